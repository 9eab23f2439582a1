// Settings and texts that the add-in and the sender application share.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Form.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;

TEST_CASE("what the form saves, the system's profile functions read, and the other way round") {
    Machine machine;
    const std::wstring file = machine.SettingsFile();
    WritePrivateProfileStringW(L"SMS", L"LastNumber", L"+43 664 1112223", file.c_str());
    WritePrivateProfileStringW(L"SMS", L"LastText", L"K\u00f6ln\\13\\10zwei", file.c_str());
    WritePrivateProfileStringW(L"Other", L"Kept", L"as it is", file.c_str());
    const std::string before = ReadBytes(file);

    StandIn outlook(11, L"--empty");
    const Form form = Form::Open(outlook);
    CHECK(TextOf(form.to) == L"+43 664 1112223");
    CHECK(TextOf(form.message) == L"K\u00f6ln\r\nzwei");
    Click(form.message);
    Press(VK_END, {VK_CONTROL});
    Type(L" = \u00fc");
    Press(VK_ESCAPE);
    REQUIRE(WaitUntilGone(form.window));
    outlook.Quit();

    CHECK(machine.Setting(L"SMS", L"LastText") == L"K\u00f6ln\\13\\10zwei = \u00fc");
    CHECK(machine.Setting(L"SMS", L"LastNumber") == L"+43 664 1112223");
    CHECK(machine.Setting(L"Positions", L"SMSSendx") != L"(none)");
    CHECK(machine.Setting(L"Other", L"Kept") == L"as it is");
    CHECK(machine.Setting(L"Settings", L"Language") == L"Deutsch");
}

TEST_CASE("the chosen language is in toolbar and form") {
    struct {
        std::string language, button;
        std::wstring caption, send;
    } cases[] = {{"Deutsch", "Neue SMS", L"SMS erstellen", L"SMS senden"},
                 {"English", "New SMS", L"Write SMS", L"Send SMS"}};
    for (const auto& expected : cases) {
        CAPTURE(expected.language);
        Machine machine(expected.language);
        StandIn outlook(10, L"--empty");
        outlook.ClickButton(1, expected.button);
        const HWND form = WaitForWindow(expected.caption);
        REQUIRE(form);
        CHECK(FindByText(form, expected.send));
    }
}
