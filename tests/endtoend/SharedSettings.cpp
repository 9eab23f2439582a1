// Settings and texts that the add-in and the sender application share, and the trace's last record.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

TEST_CASE("profile functions of the system read what the form saves, in the chosen language") {
    Machine machine("English");
    const std::wstring file = machine.SettingsFile();
    WritePrivateProfileStringW(L"SMS", L"LastNumber", L"+43 664 1112223", file.c_str());
    WritePrivateProfileStringW(L"SMS", L"LastText", L"K\u00f6ln\\13\\10zwei", file.c_str());
    WritePrivateProfileStringW(L"Other", L"Kept", L"as it is", file.c_str());
    // Every record of the trace takes the place of the one before, in the registry and in no file.
    WriteText(AddInKey, L"DebugMode", L"-1");

    StandIn outlook(11, L"--empty");
    const HWND question = WaitForBox();
    REQUIRE(question);
    Click(GetDlgItem(question, IDYES));
    outlook.ClickButton(1, "New SMS");
    const Form form = Form::Opened();
    CHECK(TextOf(form.window).find(L"Write SMS") != std::wstring::npos);
    CHECK(FindByText(form.window, L"Send SMS"));
    CHECK(TextOf(form.to) == L"+43 664 1112223");
    CHECK(TextOf(form.message) == L"K\u00f6ln\r\nzwei");
    Click(form.message);
    Press(VK_END, {VK_CONTROL});
    Type(L" = \u00fc");
    Press(VK_ESCAPE);
    REQUIRE(WaitUntilGone(form.window));
    const auto last = ReadText(L"Software\\Omberline\\Tellwick\\Debug", L"");
    REQUIRE(last);
    CHECK(last->starts_with(L"</"));
    CHECK_FALSE(FileExists(machine.ProgramFolder() + L"TellwickAddIn.dbg.xml"));
    CHECK(outlook.Quit().exitCode == 0);

    CHECK(machine.Setting(L"SMS", L"LastText") == L"K\u00f6ln\\13\\10zwei = \u00fc");
    CHECK(machine.Setting(L"SMS", L"LastNumber") == L"+43 664 1112223");
    CHECK(machine.Setting(L"Positions", L"SMSSendx") != L"(none)");
    CHECK(machine.Setting(L"Other", L"Kept") == L"as it is");
    CHECK(machine.Setting(L"Settings", L"Language") == L"English");
}
