// Typing into the form: the counters, the hexadecimal view, the matches and the lists.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Form.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;

namespace {

// Whether some control of the form shows exactly that text.
bool Shows(const Form& form, const std::wstring& text) {
    return WaitUntil([&] { return FindByText(form.window, text) != nullptr; });
}

HWND MatchList(const Form& form) {
    for (const HWND child : Descendants(form.window)) {
        if (ClassOf(child) == L"ListBox" && IsWindowVisible(child)) return child;
    }
    return nullptr;
}

std::wstring Row(HWND list, int row) {
    wchar_t text[256] = L"";
    SendMessageW(list, LB_GETTEXT, WPARAM(row), reinterpret_cast<LPARAM>(text));
    return text;
}

}  // namespace

TEST_CASE("typing is counted, and the flash option follows") {
    Machine machine;
    StandIn outlook(11, L"--empty");
    const Form form = Form::Open(outlook);
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
}

TEST_CASE("the hexadecimal view takes digits only and gives the text back") {
    Machine machine;
    StandIn outlook(11, L"--empty");
    const Form form = Form::Open(outlook);
    Form::Fill(form.message, L"Hi");
    Click(form.Control(L"Hex"));
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"4869"; }));
    CHECK(Shows(form, L"Zeichen: 2/160"));
    Press(VK_END, {VK_CONTROL});
    Type(L"g x21");
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"486921"; }));
    Click(form.Control(L"Text"));
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"Hi!"; }));
}

TEST_CASE("typing a name offers the contacts, Enter takes the chosen one's number") {
    Machine machine;
    StandIn outlook(10, L"--empty");
    for (const char* const contact : {"\"FullName=Anna Berg\" \"MobileTelephoneNumber=+49 170 1\"",
                                      "\"FullName=Anton Berg\" \"MobileTelephoneNumber=0171 2\"",
                                      "\"FullName=Zoe Tal\" \"MobileTelephoneNumber=0171 3\""}) {
        outlook.Command(std::string("add-contact ") + contact);
    }
    const Form form = Form::Open(outlook);
    Form::Fill(form.to, L"0160;an");
    REQUIRE(WaitUntil([&] { return MatchList(form) != nullptr; }));
    const HWND list = MatchList(form);
    CHECK(SendMessageW(list, LB_GETCOUNT, 0, 0) == 2);
    CHECK(Row(list, 0) == L"Anna Berg  (+491701)");
    CHECK(Focus() == form.to);
    Press(VK_DOWN);
    Press(VK_DOWN);
    CHECK(WaitUntil([&] { return SendMessageW(list, LB_GETCURSEL, 0, 0) == 1; }));
    Press(VK_RETURN);
    CHECK(WaitUntil([&] { return TextOf(form.to) == L"0160;01712"; }));
    CHECK(WaitUntil([&] { return Focus() == form.message; }));
    CHECK(MatchList(form) == nullptr);
}

TEST_CASE("recipient and templates come back with the next form") {
    Machine machine;
    StandIn outlook(9, L"--empty");
    Form form = Form::Open(outlook);
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
    Click(form.message);
    Type(L"A ");
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
