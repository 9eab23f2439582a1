// The settings window over the SMS form.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

HWND OpenOptions(const Form& form) {
    Press('T', {VK_MENU});
    const HWND options = WaitForWindow(L"Einstellungen");
    REQUIRE(options);
    CHECK_FALSE(IsWindowEnabled(form.window));
    return options;
}

// The SMS form is back, and the user where he was in it.
void CheckClosed(HWND options, const Form& form) {
    REQUIRE(WaitUntilGone(options));
    CHECK(IsWindowEnabled(form.window));
    CHECK(WaitUntil([&] { return Focus() == form.Control(L"Einstellungen"); }));
}

// The control that a mnemonic takes the focus to.
HWND Jump(WORD letter) {
    const HWND before = Focus();
    Press(letter, {VK_MENU});
    CHECK(WaitUntil([&] { return Focus() != before; }));
    return Focus();
}

}  // namespace

TEST_CASE("Escape and the close button write nothing, OK what was changed by keyboard") {
    Machine machine;
    WriteText(AddInKey, L"Active", L"1");
    const std::wstring file = machine.SettingsFile();
    WritePrivateProfileStringW(L"QuestionBox", L"Answer126", L"6", file.c_str());
    StandIn outlook(9, L"--empty");
    const Form form = Form::Open(outlook);
    HWND options = OpenOptions(form);
    const std::string before = ReadBytes(file);
    Jump('A');
    Type(L"99");
    HWND font = Jump('S');
    Press(VK_DOWN, {VK_MENU});
    const auto open = [&] { return SendMessageW(font, CB_GETDROPPEDSTATE, 0, 0) != 0; };
    CHECK(WaitUntil(open));
    Press(VK_ESCAPE);
    CHECK(WaitUntil([&] { return !open(); }));
    CHECK(IsWindowVisible(options));
    Press(VK_ESCAPE);
    CheckClosed(options, form);
    CHECK(ReadBytes(file) == before);

    options = OpenOptions(form);
    CHECK(FindByText(options, L"10"));
    CheckTabOrder(options);
    Jump('A');
    Type(L"2x5");
    // The arrows choose, the tabulator goes on to the field of the first choice.
    const HWND national = Jump('L');
    const auto chosen = [](HWND option) { return SendMessageW(option, BM_GETCHECK, 0, 0) != 0; };
    Press(VK_DOWN);
    CHECK(WaitUntil([&] { return Focus() != national && chosen(Focus()); }));
    CHECK_FALSE(chosen(national));
    Press(VK_DOWN);
    CHECK(WaitUntil([&] { return Focus() == national && chosen(national); }));
    Press(VK_TAB);
    CHECK(WaitUntil([&] { return ClassOf(Focus()) == L"Edit"; }));
    const HWND prefixes = Focus();
    CHECK(TextOf(GetWindow(prefixes, GW_HWNDPREV)) == L"Ländervorwahl:");  // names it
    Type(L"+49, 0");
    Press(VK_RETURN);
    REQUIRE(WaitForBox());
    Press(VK_RETURN);
    CHECK(WaitUntil([&] { return Focus() == prefixes; }));
    CHECK(TextOf(prefixes) == L"+49, 0");
    Press(VK_END);
    Type(L"043");
    CHECK(WaitUntil([&] { return TextOf(prefixes) == L"+49, 0043"; }));
    font = Jump('S');
    Press(VK_DOWN);
    CHECK(WaitUntil([&] { return TextOf(font) != L"(wie Windows)"; }));
    const std::wstring fontName = TextOf(font);
    Jump('G');
    Press(VK_END);
    Jump('P');
    Type(L"e");
    Jump('F');
    Jump('R');
    Press(VK_RETURN);
    CheckClosed(options, form);
    CHECK(machine.Setting(L"SMS", L"StoreNumbers") == L"(none)");
    CHECK(machine.Setting(L"SMS", L"NumUsedNumber") == L"25");
    CHECK(machine.Setting(L"Prefixes", L"Remove0InPrefixes") == L"+49 +43");
    CHECK(machine.Setting(L"Editor", L"Font") == fontName);
    CHECK(machine.Setting(L"Editor", L"FontSize") == L"72");
    CHECK(machine.Setting(L"Settings", L"Language") == L"English");
    CHECK(machine.Setting(L"QuestionBox", L"Answer126") == L"(none)");
    CHECK(ReadText(AddInKey, L"DebugMode") == L"1");
    // The trace begins without a new start.
    Click(form.message);
    Type(std::wstring(100, L'x'));
    CHECK(
        WaitUntil([&] { return FileExists(machine.ProgramFolder() + L"TellwickAddIn.dbg.xml"); }));

    // A second "New SMS" fetches the form to the front, with its dialog.
    options = OpenOptions(form);
    Jump('A');
    Type(L"99");
    outlook.ClickButton(1, "Neue SMS");
    CHECK(WaitUntil([&] { return GetForegroundWindow() == options; }));
    PostMessageW(options, WM_SYSCOMMAND, SC_CLOSE, 0);
    CheckClosed(options, form);
    CHECK(machine.Setting(L"SMS", L"NumUsedNumber") == L"25");
    // Outlook may quit over the open window.
    OpenOptions(form);
    CHECK(outlook.Quit().exitCode == 0);
}
