// One text to many, each by name: the pane, the preview, the menu of fields, the question, and what
// is in the queue.
#include <doctest.h>

#include <windows.h>

#include <commctrl.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

bool Holds(HWND window, const std::wstring& text) {
    return WaitUntil([&] {
        for (const HWND child : Descendants(window)) {
            if (TextOf(child).find(text) != std::wstring::npos) return true;
        }
        return false;
    });
}

}  // namespace

TEST_CASE("each person gets a text of their own, but for those whom the user leaves out") {
    for (const int version : {9, 16}) {
        CAPTURE(version);
        Machine machine;
        StandIn outlook(version, L"--empty");
        outlook.Command(
            "add-contact \"FullName=Anna Berger\" \"MobileTelephoneNumber=+49 171 2345678\" "
            "CompanyName=Nordwerk");
        outlook.Command(
            "add-contact \"FullName=J\u00F6rg M\u00FCller\" \"MobileTelephoneNumber=0170 "
            "1234567\"");
        outlook.Command("folder 1 contacts");
        outlook.Command("select 1 1 2");
        const Form form = Form::Open(outlook);
        CHECK(WaitUntil([&] { return TextOf(form.to) == L"0491712345678;01701234567"; }));
        // Typed later, and in no contact's.
        Click(form.to);
        CHECK(WaitUntil([&] { return Focus() == form.to; }));
        Press(VK_END);
        Type(L";112");
        Form::Fill(form.message, L"Hallo , kommt ");
        TypeCharacters(L"{Firma}");
        Press(VK_HOME);
        for (int letter = 0; letter < 6; ++letter) Press(VK_RIGHT);

        Click(form.Control(L"Erweitern >>"));
        const HWND fields = form.Control(L"Felder");
        CHECK(WaitUntil([&] { return IsWindowVisible(fields) != 0; }));
        // The menu has the keys for itself: Escape closes it, and not the form.
        Click(fields);
        CHECK(WaitUntil([] { return FindWindowW(L"#32768", nullptr) != nullptr; }));
        Press(VK_ESCAPE);
        CHECK(WaitUntil([] { return FindWindowW(L"#32768", nullptr) == nullptr; }));
        Click(fields);
        CHECK(WaitUntil([] { return FindWindowW(L"#32768", nullptr) != nullptr; }));
        Press(VK_DOWN);
        Press(VK_RETURN);
        CHECK(WaitUntil([&] { return TextOf(form.message) == L"Hallo {Vorname}, kommt {Firma}"; }));
        CHECK(WaitUntil([&] { return Focus() == form.message; }));

        Press('P', {VK_CONTROL});
        const HWND preview = WaitForWindow(L"Vorschau");
        REQUIRE(preview);
        CHECK(Holds(preview, L"GSM \u00b7 1 SMS \u00d7 3 = 3 \u00b7 134 frei"));
        CHECK(Holds(preview, L"Empf\u00e4nger 1 von 3: Anna Berger (0491712345678)"));
        CHECK(Holds(preview, L"Hallo Anna, kommt Nordwerk"));
        CheckTabOrder(preview);
        Press(VK_NEXT);
        CHECK(Holds(preview, L"Empf\u00e4nger 2 von 3: J\u00f6rg M\u00fcller (01701234567)"));
        CHECK(Holds(preview, L"Hallo J\u00f6rg, kommt"));
        Click(FindByText(preview, L"N\u00e4chste >"));
        CHECK(Holds(preview, L"Empf\u00e4nger 3 von 3: 112"));
        Press(VK_PRIOR);
        CHECK(Holds(preview, L"Empf\u00e4nger 2 von 3"));
        std::vector<std::wstring> lacking;
        for (const HWND child : Descendants(preview)) {
            if (ClassOf(child) == L"ListBox" && lacking.empty()) lacking = Rows(child);
        }
        CHECK(lacking == std::vector<std::wstring>{L"J\u00f6rg M\u00fcller (01701234567)\tFirma",
                                                   L"112\tVorname, Firma"});
        Press(VK_ESCAPE);
        CHECK(WaitUntilGone(preview));

        Click(form.Control(L"SMS senden"));
        const HWND question = WaitForBox();
        REQUIRE(question);
        CHECK(Holds(question, L"112: Vorname, Firma"));
        CHECK_FALSE(ReadText(QueueKey, L"cOut"));
        Click(FindByText(question, L"Empf\u00e4nger auslassen"));
        CHECK(WaitUntil([] { return ReadText(QueueKey, L"cOut") == L"1"; }));
        CHECK(ReadBytes(*ReadText(QueueKey, L"1")) == "0491712345678\tHallo Anna, kommt Nordwerk");
        const HWND start = WaitForBox();
        REQUIRE(start);
        Click(GetDlgItem(start, IDNO));
        CHECK(WaitUntilGone(form.window));
        CheckClean(outlook.Quit());
    }
}

TEST_CASE("appointments become a reminder for each of their people, by every version's own door") {
    for (const int version : {9, 11, 12, 16}) {
        CAPTURE(version);
        Machine machine;
        StandIn outlook(version, L"--empty");
        outlook.Command("add-contact \"FullName=Anna Berger\" MobileTelephoneNumber=01712345678");
        outlook.Command(
            "add-contact \"FullName=J\u00F6rg M\u00FCller\" MobileTelephoneNumber=0170");
        outlook.Command(
            "add-appointment Subject=Zahnarzt Location=Weg Days=1 \"Attendee=Anna Berger\" "
            "\"Attendee=J\u00F6rg M\u00FCller\"");
        outlook.Command("add-appointment Subject=Friseur Days=2 \"Attendee=Anna Berger\"");
        const auto begins = [&](const std::wstring& text) {
            const Form form = Form::Opened();
            CHECK(WaitUntil([&] { return TextOf(form.message).starts_with(text); }));
            CHECK(WaitUntil([&] { return TextOf(form.to) == L"01712345678;0170"; }));
            return form;
        };
        for (const bool opened : {false, true}) {
            outlook.Command(opened ? "open-inspector 3" : "select 1 3");
            if (opened) outlook.Command("select 1");
            if (opened && version >= 12) {
                outlook.Command("click-ribbon-inspector 1 \"Per SMS erinnern\"");
            } else {
                outlook.ClickButton(1, "Neue SMS");
            }
            const HWND form = begins(L"Erinnerung: Zahnarzt\r\n").window;
            SendMessageW(form, WM_CLOSE, 0, 0);
            CHECK(WaitUntilGone(form));
        }
        outlook.Command("select 1 3 4");
        if (version < 14) {
            outlook.ClickButton(1, "Neue SMS");
        } else {
            outlook.Command("click-context 1 \"SMS schreiben\"");
        }
        const Form form = begins(L"Erinnerung: {Betreff}\r\n{Datum} {Uhrzeit}\r\n{Ort}");
        Press('P', {VK_CONTROL});
        const HWND preview = WaitForWindow(L"Vorschau");
        REQUIRE(preview);
        CHECK(Holds(preview, L"1 SMS \u00d7 3 = 3"));
        Press(VK_NEXT);
        CHECK(Holds(preview, L"Empf\u00e4nger 2 von 3: Anna Berger (01712345678), "));
        CHECK(Holds(preview, L"Erinnerung: Friseur"));
        Press(VK_ESCAPE);
        CHECK(WaitUntilGone(preview));
        Click(form.Control(L"SMS senden"));
        CHECK(WaitUntil([] { return ReadText(QueueKey, L"cOut") == L"3"; }));
        const auto entry = [](const wchar_t* number) {
            return ReadBytes(ReadText(QueueKey, number).value_or(L""));
        };
        CHECK(entry(L"1").starts_with("01712345678\tErinnerung: Zahnarzt\r\n"));
        CHECK(entry(L"1").ends_with("\r\nWeg"));
        CHECK(entry(L"2").starts_with("01712345678\tErinnerung: Friseur\r\n"));
        CHECK(entry(L"3").starts_with("0170\tErinnerung: Zahnarzt\r\n"));
        const HWND start = WaitForBox();
        REQUIRE(start);
        Click(GetDlgItem(start, IDNO));
        CHECK(WaitUntilGone(form.window));
        CheckClean(outlook.Quit());
    }
}
