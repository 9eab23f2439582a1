// What the form says of a text on air: the pane of the status bar, the preview, and the question
// before a character gets lost.
#include <doctest.h>

#include <windows.h>

#include <commctrl.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

HWND StatusBar(const Form& form) {
    return FindByClass(form.window, STATUSCLASSNAMEW);
}

// The text is written into memory of the process that the window belongs to.
std::wstring PaneOf(const StandIn& outlook, HWND statusBar) {
    wchar_t text[256] = L"";
    void* theirs =
        VirtualAllocEx(outlook.Process(), nullptr, sizeof text, MEM_COMMIT, PAGE_READWRITE);
    const auto length =
        LOWORD(SendMessageW(statusBar, SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(theirs)));
    ReadProcessMemory(outlook.Process(), theirs, text, sizeof text, nullptr);
    VirtualFreeEx(outlook.Process(), theirs, 0, MEM_RELEASE);
    return {text, length};
}

// Waits for it.
void CheckPane(const StandIn& outlook, const Form& form, const std::wstring& text) {
    WaitUntil([&] { return PaneOf(outlook, StatusBar(form)) == text; });
    CHECK(PaneOf(outlook, StatusBar(form)) == text);
}

HWND OpenPreview(const Form& form) {
    RECT bar{};
    GetWindowRect(StatusBar(form), &bar);
    ClickAt(bar.right - 60, (bar.top + bar.bottom) / 2);
    const HWND preview = WaitForWindow(L"Vorschau");
    REQUIRE(preview);
    CHECK_FALSE(IsWindowEnabled(form.window));
    return preview;
}

}  // namespace

TEST_CASE("the pane follows the typing, and a click on it opens the preview") {
    Machine machine;
    StandIn outlook(9, L"--empty");
    const Form form = Form::Open(outlook);
    CheckPane(outlook, form, L"GSM \u00b7 1 SMS \u00b7 160 frei");
    Form::Fill(form.to, L"0171;0172");
    Form::Fill(form.message, L"Gr\u00fc\u00dfe");
    CheckPane(outlook, form, L"GSM \u00b7 1 SMS \u00d7 2 = 2 \u00b7 155 frei");
    // Characters that no keyboard has.
    TypeCharacters(L"\u2014\u201c\u00a0\u20ac" + std::wstring(62, L'x'));
    CheckPane(outlook, form, L"Unicode \u00b7 2 SMS \u00d7 2 = 4 \u00b7 63 frei");
    CHECK(FindByText(form.window, L"Zeichen: 71/160"));

    const HWND preview = OpenPreview(form);
    const HWND parts = FindByClass(preview, L"RichEdit20W");
    REQUIRE(parts);
    CHECK(TextOf(parts).find(L"Gr\u00fc\u00dfe\u2014\u201c\u00a0\u20acxxx") != std::wstring::npos);
    const HWND list = FindByClass(preview, L"ListBox");
    REQUIRE(Rows(list).size() == 3);
    CHECK(Rows(list)[0] == L"\u2014\tmacht 2 SMS statt 1\tersetzbar durch -");
    CheckTabOrder(preview);
    const std::wstring before = TextOf(form.message);
    Click(FindByText(preview, L"Ersetzen"));
    CHECK(WaitUntil([&] { return Rows(list).size() == 2; }));
    Click(FindByText(preview, L"Alle ersetzen"));
    CHECK(WaitUntil([&] { return TextOf(parts).find(L"SMS 1 von 1 (72/160)") == 0; }));
    Press(VK_ESCAPE);
    CHECK(WaitUntilGone(preview));
    CHECK(TextOf(form.message).find(L"Gr\u00fc\u00dfe-\" \u20acxxx") == 0);
    CheckPane(outlook, form, L"GSM \u00b7 1 SMS \u00d7 2 = 2 \u00b7 88 frei");
    CHECK(WaitUntil([&] { return Focus() == form.message; }));
    Press('Z', {VK_CONTROL});
    CHECK(WaitUntil([&] { return TextOf(form.message) == before; }));
    // By key, too; and gone with the form.
    Press('P', {VK_CONTROL});
    CHECK(WaitForWindow(L"Vorschau"));
    CHECK(outlook.Quit().exitCode == 0);
}

TEST_CASE(
    "a hint comes beside the pane, and who would lose characters goes back or replaces them") {
    Machine machine;
    StandIn outlook(11, L"--empty");
    outlook.Command("add-contact \"FullName=Anna Berg\" \"MobileTelephoneNumber=+49 170 1\"");
    const Form form = Form::Open(outlook);
    Form::Fill(form.to, L"an");
    CHECK(WaitUntil([&] { return TextOf(StatusBar(form)) == L"1 Treffer"; }));
    Press(VK_DOWN);
    Press(VK_RETURN);
    CHECK(WaitUntil(
        [&] { return TextOf(StatusBar(form)).find(L"wurde zu 0") != std::wstring::npos; }));
    Form::Fill(form.message, L"");
    Click(form.message);
    TypeCharacters(L"\u0141\u00f3d\u017a \u20ac");
    const auto ask = [&] {
        Click(form.Control(L"SMS senden"));
        const HWND question = WaitForBox();
        REQUIRE(question);
        return question;
    };
    HWND question = ask();
    bool named = false;
    for (const HWND child : Descendants(question)) {
        named |= TextOf(child).find(L"\u0141 \u2192 L    \u017a \u2192 z") != std::wstring::npos;
    }
    CHECK(named);
    Click(FindByText(question, L"Zur\u00fcck zum Text"));
    CHECK(WaitUntilGone(question));
    CHECK(WaitUntil([&] { return Focus() == form.message; }));
    CHECK(TextOf(form.message) == L"\u0141\u00f3d\u017a \u20ac");
    CHECK_FALSE(ReadText(QueueKey, L"cOut"));
    question = ask();
    Click(FindByText(question, L"Ersetzen und senden"));
    CHECK(WaitUntil([] { return ReadText(QueueKey, L"cOut") == L"1"; }));
    CHECK(ReadBytes(*ReadText(QueueKey, L"1")) ==
          "0491701\tL\xf3"
          "dz \x80");
}
