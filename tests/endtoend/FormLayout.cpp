// The form's controls in every language at every resolution, in the smallest window.
#include <doctest.h>

#include "endtoend/Form.h"
#include "endtoend/Layout.h"

using namespace tellwick::endtoend;

namespace {

std::vector<ControlOnForm> Controls(StandIn& outlook) {
    std::vector<ControlOnForm> controls;
    for (const std::string& entry : outlook.List("controls"))
        controls.push_back(Described(entry.substr(1, entry.size() - 2)));
    // The names of the user's own folders may be as long as they are.
    for (ControlOnForm& control : controls)
        if (control.caption.starts_with("Personal Folders")) control.needed = 0;
    return controls;
}

void CheckLayout(StandIn& outlook, std::size_t least = 20) {
    outlook.Command("shrink-forms");
    CheckLayout(Controls(outlook), least);
    CheckReading(GetForegroundWindow());
}

// A button of the button bar, by its place.
enum BarButton : WPARAM { Template = 3, Options = 5 };

void Push(const Form& form, BarButton button) {
    const HWND bar = FindByClass(form.window, L"ToolbarWindow32");
    REQUIRE(bar);
    SendMessageW(form.window, WM_COMMAND, button, reinterpret_cast<LPARAM>(bar));
}

// Every field of one line that holds a text shows where it begins.
void CheckBeginnings(HWND window) {
    for (const HWND field : Descendants(window)) {
        const bool lines = GetWindowLongW(field, GWL_STYLE) & ES_MULTILINE;
        if (ClassOf(field) != L"Edit" || lines || TextOf(field).empty()) continue;
        CAPTURE(TextOf(field));
        CHECK(short(LOWORD(SendMessageW(field, EM_POSFROMCHAR, 0, 0))) >= 0);
    }
}

bool Shows(HWND window, std::wstring_view caption) {
    const std::vector<HWND> all = Descendants(window);
    return std::any_of(all.begin(), all.end(),
                       [caption](HWND control) { return TextOf(control) == caption; });
}

}  // namespace

TEST_CASE("every caption fits and nothing overlaps, in every language at every resolution") {
    Machine machine;
    InEveryLook([&](const std::string& language, int) {
        WriteBytes(machine.SettingsFile(), "[Settings]\r\nLanguage=" + language + "\r\n");
        StandIn outlook(11, L"--empty");
        // The hint that his number was rewritten is in the status bar.
        outlook.Command("add-contact FullName=Eva MobileTelephoneNumber=+491701234567");
        outlook.Command("folder 1 contacts");
        outlook.Command("select 1 1");
        const Form form = Form::Open(outlook);
        REQUIRE(WaitUntil([&] { return TextOf(form.to) == L"0491701234567"; }));
        CheckLayout(outlook);
        // Whatever code page this Windows has.
        if (language == "Polski") CHECK(Shows(form.window, L"Wy\u015Blij SMS"));
        if (language == "Portugues-BR") CHECK(Shows(form.window, L"Op\u00E7\u00F5es"));
        Push(form, Template);
        CheckLayout(outlook);
        Click(form.message);
        REQUIRE(WaitUntil([&] { return Focus() == form.message; }));
        // Of one text for everybody, and of one by name.
        for (const bool byName : {false, true}) {
            if (byName) TypeCharacters(L"{Name}");
            Press('P', {VK_CONTROL});
            REQUIRE(WaitUntil([&] { return !IsWindowEnabled(form.window); }));
            CheckLayout(outlook, byName ? 13 : 8);
            if (byName) break;
            Press(VK_ESCAPE);
            REQUIRE(WaitUntil([&] { return Focus() == form.message; }));
        }
        PostMessageW(GetLastActivePopup(form.window), WM_CLOSE, 0, 0);
        REQUIRE(WaitUntil([&] { return IsWindowEnabled(form.window) != 0; }));
        for (const HWND button : Descendants(form.window)) {
            if (ClassOf(button) == L"Button" && TextOf(button).ends_with(L':'))
                PostMessageW(button, BM_CLICK, 0, 0);
        }
        HWND selection = nullptr;
        REQUIRE(WaitUntil([&] {
            selection = GetForegroundWindow();
            return selection && selection != form.window && ClassOf(selection) == L"TellwickForm";
        }));
        CheckLayout(outlook, 12);
        PostMessageW(selection, WM_CLOSE, 0, 0);
        REQUIRE(WaitUntilGone(selection));
        REQUIRE(WaitUntil([&] { return GetForegroundWindow() == form.window; }));
        Push(form, Options);
        CheckLayout(outlook);
        const HWND options = GetLastActivePopup(form.window);
        for (const HWND button : Descendants(options)) {
            if (ClassOf(button) == L"Button" && TextOf(button).ends_with(L"..."))
                PostMessageW(button, BM_CLICK, 0, 0);
        }
        REQUIRE(WaitUntil([&] { return !IsWindowEnabled(options); }));
        CheckLayout(outlook, 4);
    });
}

TEST_CASE("on a monitor of another resolution the form is laid out anew") {
    Machine machine;
    StandIn outlook(16, L"--empty");
    const Form form = Form::Open(outlook);
    Form::Fill(form.message, L"bleibt");
    const auto button = [&] {
        for (const ControlOnForm& control : Controls(outlook)) {
            if (control.caption == "SMS senden") return control.place;
        }
        return RECT{};
    };
    const RECT before = button();
    outlook.Command("resolution 192");
    CheckLayout(outlook);
    const RECT after = button();
    CHECK(after.bottom - after.top > 3 * (before.bottom - before.top) / 2);
    CHECK(TextOf(form.message) == L"bleibt");
    outlook.Command("resolution 96");
    CheckLayout(outlook);
}

TEST_CASE("a field shows the beginning of what it was filled with, at every size and resolution") {
    const std::string many = "+491701234567;+491701234568;+491701234569;+491701234570;01712345678";
    Machine machine;
    WriteBytes(machine.SettingsFile(),
               "[SMS]\r\nLastNumber=" + many + "\r\n[SMSNumberList]\r\nNumber1=" + many +
                   "\r\n[Texte]\r\nText0=" + many + many + "\r\n[Prefixes]\r\nRemove0InPrefixes=" +
                   std::string(40, '9') + " " + many + "\r\n");
    StandIn outlook(11);
    const auto check = [&](const Form& form, const std::wstring& text) {
        CHECK(TextOf(form.to) == text);
        const auto look = [&] {
            CheckBeginnings(form.window);
            for (const char* change : {"shrink-forms", "resolution 192", "resolution 96"}) {
                CAPTURE(change);
                outlook.Command(change);
                CheckBeginnings(form.window);
            }
        };
        look();
        Push(form, Template);
        Press(VK_DOWN);
        look();
        Push(form, Template);
        look();
    };
    const auto close = [](const Form& form) {
        PostMessageW(form.window, WM_CLOSE, 0, 0);
        REQUIRE(WaitUntilGone(form.window));
    };
    const std::wstring all(many.begin(), many.end());
    outlook.Command("select 1");
    Form form = Form::Open(outlook);
    check(form, all);
    Form::Fill(form.to, L"x");
    Press(VK_DOWN);  // the list's first entry
    CHECK(WaitUntil([&] { return TextOf(form.to) == all; }));
    CheckBeginnings(form.window);
    Form::Fill(form.to, all + all);
    Click(form.message);
    CHECK(WaitUntil([&] { return Focus() == form.message; }));
    CheckBeginnings(form.window);
    close(form);
    for (const auto& [folder, item] : {std::pair("inbox", 1), {"contacts", 1}}) {
        outlook.Command(std::string("folder 1 ") + folder);
        outlook.Command("select 1 " + std::to_string(item));
        form = Form::Open(outlook);
        check(form, L"01712345678");
        close(form);
    }
    outlook.Command("folder 1 inbox");
    outlook.Command("select 1 2");
    CHECK(outlook.Command("reply-selected 1") == "cancelled");
    form = Form::Opened();
    check(form, L"+491701234567");
    Push(form, Options);
    REQUIRE(WaitUntil([&] { return !IsWindowEnabled(form.window); }));
    CheckBeginnings(GetLastActivePopup(form.window));
}
