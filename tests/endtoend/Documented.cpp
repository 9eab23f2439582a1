// Every row of the stand-in's table of documented behaviours that takes a desktop: that the host
// does it, and what the add-in makes of it.
#include "model/Documented.h"

#include <doctest.h>

#include <ole2.h>

#include <map>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;
using tellwick::standin::Documented;
using tellwick::standin::DocumentedRow;

namespace {

// Plays one row through, switched on or off.
using Proof = void (*)(Machine& machine, StandIn& outlook, bool on);

// Whether a window follows the monitor that it is on.
bool FollowsMonitor(HWND window) {
    const auto function = [](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
    };
    static const auto contextOf =
        reinterpret_cast<HANDLE(WINAPI*)(HWND)>(function("GetWindowDpiAwarenessContext"));
    static const auto awarenessOf =
        reinterpret_cast<int(WINAPI*)(HANDLE)>(function("GetAwarenessFromDpiAwarenessContext"));
    return awarenessOf(contextOf(window)) == 2;
}

void Send(StandIn& outlook) {
    const Form form = Form::Open(outlook);
    Form::Fill(form.to, L"0171 2345678");
    Form::Fill(form.message, L"Hallo");
    Click(form.Control(L"SMS senden"));
}

bool HasSent(const Machine& machine) {
    return WaitUntil(
        [&] { return machine.Taken() == std::vector<std::string>{"01712345678\tHallo"}; });
}

void EveryWindowFollowsItsMonitor(Machine& machine, StandIn& outlook, bool on) {
    CHECK(FollowsMonitor(outlook.Window(1)) == on);
    Form form = Form::Open(outlook);
    CHECK(FollowsMonitor(form.window));
    CHECK(FollowsMonitor(form.to));
    WriteText(RootKey, L"On", L"0");
    Form::Fill(form.to, L"0171 2345678");
    Form::Fill(form.message, L"Hallo");
    // Made in the message hook, when the mouse came.
    HWND tips = nullptr;
    do {
        tips = FindWindowExW(nullptr, tips, L"tooltips_class32", nullptr);
    } while (tips && GetWindow(tips, GW_OWNER) != form.window);
    CHECK(FollowsMonitor(tips));
    Click(form.Control(L"SMS senden"));
    // A dialog of the add-in's own; then a message box of the system's.
    const HWND question = WaitForBox();
    CHECK(FollowsMonitor(question));
    Click(GetDlgItem(question, IDYES));
    CHECK(HasSent(machine));
    REQUIRE(WaitUntilGone(form.window));
    form = Form::Open(outlook);
    Form::Fill(form.message, L"x");
    Press('A', {VK_CONTROL});
    Press(VK_DELETE);
    Press(VK_RETURN, {VK_CONTROL});
    const HWND box = WaitForBox();
    CHECK(FollowsMonitor(box));
    Press(VK_RETURN);
    CHECK(WaitUntilGone(box));
}

void ButtonHasItsPicture(Machine&, StandIn& outlook, bool) {
    CHECK(outlook.HasBars("1"));
}

void ButtonHasItsPictureUnderAViewer(Machine& machine, StandIn& outlook, bool on) {
    REQUIRE(WaitUntil([] { return OpenClipboard(nullptr) != 0; }));
    EmptyClipboard();
    CloseClipboard();
    CHECK(WaitUntil([] { return !OpenClipboard(nullptr) || !CloseClipboard(); }, 200));
    ButtonHasItsPicture(machine, outlook, on);
}

void TellsAnSms(Machine&, StandIn& outlook, bool) {
    outlook.Command("add-mail SentOnBehalfOfName=+491701234567 Body=Hallo IsSMS=true");
    outlook.Command("select 1 1");
    CHECK(outlook.Command("reply-selected 1") == "cancelled");
    CHECK(TextOf(Form::Opened().to) == L"+491701234567");
}

void SendsFromAForeignFolder(Machine& machine, StandIn& outlook, bool) {
    REQUIRE(FindWindowW(L"TellwickSender", nullptr));
    // Kept in the queue, to be looked at.
    EndSender();
    Send(outlook);
    const HWND question = WaitForBox();
    const std::wstring path = ReadText(QueueKey, L"1").value_or(L"");
    wchar_t whole[MAX_PATH] = L"";
    GetLongPathNameW(path.c_str(), whole, MAX_PATH);
    CHECK_MESSAGE(std::wstring(whole).find(L"\u0141\u03C3") != std::wstring::npos, path);
    Click(GetDlgItem(question, IDYES));
    CHECK(HasSent(machine));
}

void KnowsTheSender(Machine& machine, StandIn& outlook, bool) {
    DWORD sender = 0;
    GetWindowThreadProcessId(FindWindowW(L"TellwickSender", nullptr), &sender);
    CHECK_FALSE(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, sender));
    Send(outlook);
    CHECK(HasSent(machine));
}

bool FoundByOthers() {
    CLSID identifier;
    IUnknown* found = nullptr;
    if (SUCCEEDED(CLSIDFromProgID(L"Outlook.Application", &identifier)))
        GetActiveObject(identifier, nullptr, &found);
    if (found) found->Release();
    return found != nullptr;
}

void IsFoundByOthers(Machine&, StandIn& outlook, bool on) {
    REQUIRE(SUCCEEDED(CoInitialize(nullptr)));
    const HWND window = outlook.Window(1);
    CHECK(WaitUntil([&] { return GetForegroundWindow() == window; }));
    CHECK(FoundByOthers() == !on);
    const HWND sender = FindWindowW(L"TellwickSender", nullptr);
    ShowWindow(sender, SW_SHOWNORMAL);
    // A window that is just being shown may have no use for the foreground yet.
    CHECK(
        WaitUntil([&] { return SetForegroundWindow(sender) && GetForegroundWindow() == sender; }));
    CHECK(WaitUntil(FoundByOthers));
    CoUninitialize();
}

const std::map<Documented, Proof>& Proofs() {
    static const std::map<Documented, Proof> proofs{
        {Documented::SystemDpiCalls, &EveryWindowFollowsItsMonitor},
        {Documented::OwnedClipboard, &ButtonHasItsPicture},
        {Documented::BusyClipboard, &ButtonHasItsPictureUnderAViewer},
        {Documented::NoRedemption, &TellsAnSms},
        {Documented::ForeignUser, &SendsFromAForeignFolder},
        {Documented::UnreadableProcess, &KnowsTheSender},
        {Documented::RunningAfterFocus, &IsFoundByOthers},
    };
    return proofs;
}

}  // namespace

TEST_CASE("the add-in is right where the host does what is documented of it") {
    for (const DocumentedRow& row : tellwick::standin::DocumentedRows()) {
        if (row.shown != DocumentedRow::OnDesktop) continue;
        const std::wstring name(row.name.begin(), row.name.end());
        for (const bool on : {true, false}) {
            if (!on && !row.usual) continue;
            CAPTURE(name);
            CAPTURE(on);
            REQUIRE(Proofs().contains(row.behaviour));
            Machine machine;
            const Child sender(L"\"" + machine.ProgramFolder() + L"Tellwick.exe\" nocheck");
            REQUIRE(WaitUntil([] { return FindWindowW(L"TellwickSender", nullptr) != nullptr; }));
            StandIn outlook(row.first, L"--empty --switch " + name + (on ? L"" : L"=off"));
            outlook.Command("explorers");  // it has started
            Proofs().at(row.behaviour)(machine, outlook, on);
            CheckClean(outlook.Quit());
        }
    }
}
