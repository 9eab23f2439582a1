// The form as a window: its place, its growth, its characters, and what it says to a screen reader.
#include <doctest.h>

#include <optional>
#include <set>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

LONG HeightOf(HWND window) {
    const RECT place = PlaceOf(window);
    return place.bottom - place.top;
}

POINT MiddleOf(HWND window) {
    const RECT place = PlaceOf(window);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

void PutOnClipboard(const std::wstring& text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    lstrcpyW(static_cast<wchar_t*>(GlobalLock(memory)), text.c_str());
    GlobalUnlock(memory);
    REQUIRE(WaitUntil([] { return OpenClipboard(nullptr) != 0; }));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

// What was announced: windows, and parts of them.
std::set<std::pair<HWND, LONG>> announced;

void CALLBACK NoteNameChange(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG child, DWORD, DWORD) {
    announced.emplace(window, child);
}

// A screen reader hears of both counters.
void CheckAnnounced(const Form& form) {
    const HWND counter = form.Control(L"Zeichen: 0/160");
    const std::pair pane(FindByClass(form.window, L"msctls_statusbar32"), 2L);
    const HWINEVENTHOOK hook =
        SetWinEventHook(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_NAMECHANGE, nullptr, NoteNameChange,
                        0, 0, WINEVENT_OUTOFCONTEXT);
    REQUIRE(hook);
    Form::Fill(form.message, L"x");
    CHECK(WaitUntil([&] {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        return announced.contains({counter, CHILDID_SELF}) && announced.contains(pane);
    }));
    UnhookWinEvent(hook);
}

}  // namespace

TEST_CASE("the form opens over Outlook, later where and as it was, unless no screen is there") {
    Machine machine;
    std::optional<StandIn> outlook(std::in_place, 11, L"--empty");
    Form form = Form::Open(*outlook);
    const POINT middle = MiddleOf(form.window);
    const POINT outlooks = MiddleOf(outlook->Window(1));
    CHECK(std::abs(middle.x - outlooks.x) < 20);
    CHECK(std::abs(middle.y - outlooks.y) < 40);

    SetWindowPos(form.window, nullptr, 60, 70, 640, 520, SWP_NOZORDER);
    Press(VK_ESCAPE);
    REQUIRE(WaitUntilGone(form.window));
    form = Form::Open(*outlook);
    const RECT place = PlaceOf(form.window);
    CHECK(std::abs(place.left - 60) < 15);
    CHECK(std::abs(place.top - 70) < 35);
    CHECK(place.right - place.left == 640);
    CheckAnnounced(form);

    // Unfolding makes it higher by what it shows, folding takes that back.
    const LONG folded = HeightOf(form.window);
    const LONG message = HeightOf(form.message);
    Press('R', {VK_MENU});
    REQUIRE(WaitUntil([&] {
        const HWND frame = FindByText(form.window, L"Textbausteine");
        return frame && IsWindowVisible(frame);
    }));
    CHECK(WaitUntil([&] { return HeightOf(form.window) > folded; }));
    const LONG unfolded = HeightOf(form.window);
    CHECK(HeightOf(form.message) == message);
    Press(VK_ESCAPE);
    REQUIRE(WaitUntilGone(form.window));
    form = Form::Open(*outlook);
    CHECK(HeightOf(form.window) == unfolded);
    Press('R', {VK_MENU});
    CHECK(WaitUntil([&] { return HeightOf(form.window) == folded; }));
    CHECK(HeightOf(form.message) == message);
    Press(VK_ESCAPE);
    REQUIRE(WaitUntilGone(form.window));
    const std::string settings = ReadBytes(machine.SettingsFile());
    const std::size_t at = settings.find("SMSSendPosx=");
    REQUIRE(at != std::string::npos);
    WriteBytes(machine.SettingsFile(), settings.substr(0, at) + "SMSSendPosx=-9000" +
                                           settings.substr(settings.find("\r\n", at)));
    outlook.emplace(11, L"--empty");
    form = Form::Open(*outlook);
    const RECT again = PlaceOf(form.window);
    CHECK(again.left >= 0);
    CHECK(again.right - again.left == 640);
}

TEST_CASE("every character arrives, typed and pasted, whatever loop the host has") {
    for (const wchar_t* const options : {L"--empty", L"--empty --ansi-loop"}) {
        Machine machine;
        StandIn outlook(9, options);
        const Form form = Form::Open(outlook);
        Click(form.message);
        REQUIRE(WaitUntil([&] { return Focus() == form.message; }));
        TypeCharacters(L"\u0141\u00F3d\u017A \u03A9 \u20AC \u4F60");
        CHECK(WaitUntil(
            [&] { return TextOf(form.message) == L"\u0141\u00F3d\u017A \u03A9 \u20AC \u4F60"; }));
        PutOnClipboard(L"\u041F\u0440\u0438\u0432\u0435\u0442");
        Press('A', {VK_CONTROL});
        Press('V', {VK_CONTROL});
        CHECK(WaitUntil(
            [&] { return TextOf(form.message) == L"\u041F\u0440\u0438\u0432\u0435\u0442"; }));
        Press('Z', {VK_CONTROL});
        CHECK(
            WaitUntil([&] { return TextOf(form.message).find(L'\u03A9') != std::wstring::npos; }));
        Click(form.to);
        REQUIRE(WaitUntil([&] { return Focus() == form.to; }));
        TypeCharacters(L"\u0160\u00E1rka");
        CHECK(WaitUntil([&] { return TextOf(form.to) == L"\u0160\u00E1rka"; }));
    }
}
