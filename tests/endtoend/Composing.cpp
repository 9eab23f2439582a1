// Typing into the form: the counters, the hexadecimal view, the matches and the lists.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

// Whether some control of the form shows exactly that text.
bool Shows(const Form& form, const std::wstring& text) {
    return WaitUntil([&] { return FindByText(form.window, text) != nullptr; });
}

}  // namespace

TEST_CASE(
    "text is counted, shown as digits, kept as a template, and comes back with the next form") {
    Machine machine;
    StandIn outlook(9, L"--empty");
    Form form = Form::Open(outlook);
    CHECK(Shows(form, L"Zeichen: 0/160"));
    const HWND flash = form.Control(L"Flash SMS");
    const HWND concatenate = form.Control(L"Lange SMS verketten");
    Form::Fill(form.message, std::wstring(160, L'x'));
    CHECK(Shows(form, L"Zeichen: 160/160"));
    CHECK(IsWindowEnabled(flash));
    CHECK_FALSE(IsWindowEnabled(concatenate));
    Type(std::wstring(10, L'\u00e4'));
    CHECK(Shows(form, L"Zeichen: 170/307 ,2 SMS"));
    CHECK_FALSE(IsWindowEnabled(flash));
    CHECK(IsWindowEnabled(concatenate));

    Form::Fill(form.message, L"Hi");
    Click(form.Control(L"Hex"));
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"4869"; }));
    CHECK(Shows(form, L"Zeichen: 2/160"));
    Press(VK_END, {VK_CONTROL});
    Type(L"g x21");
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"486921"; }));
    Click(form.Control(L"Text"));
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"Hi!"; }));

    Form::Fill(form.to, L"0171");
    Click(form.Control(L"Erweitern >>"));
    const HWND frame = form.Control(L"Textbausteine");
    CHECK(WaitUntil([&] { return IsWindowVisible(frame) != 0; }));
    HWND templates = nullptr;
    for (const HWND child : Descendants(form.window)) {
        if (ClassOf(child) == L"Edit" && child != form.to && child != form.message) {
            templates = child;
        }
    }
    REQUIRE(templates);
    Form::Fill(templates, L"Bin gleich da");
    Click(form.Control(L"Hinzuf\u00fcgen"));
    Form::Fill(form.message, L"A ");
    Click(form.Control(L"Einf\u00fcgen"));
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"A Bin gleich da"; }));
    Press(VK_ESCAPE);
    REQUIRE(WaitUntilGone(form.window));
    form = Form::Open(outlook);
    CHECK(TextOf(form.to) == L"0171");
    CHECK(TextOf(form.message) == L"A Bin gleich da");
    CHECK(IsWindowVisible(form.Control(L"Textbausteine")));
    const std::string settings = ReadBytes(machine.SettingsFile());
    CHECK(settings.find("Text0=Bin gleich da\r\n") != std::string::npos);
}
