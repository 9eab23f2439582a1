// Outlook's contacts in the recipient field and in the recipient selection, and their reading.
#include <doctest.h>

#include <windows.h>

#include <commctrl.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

HWND MatchList(const Form& form) {
    for (const HWND child : Descendants(form.window)) {
        if (ClassOf(child) == L"ListBox" && IsWindowVisible(child)) return child;
    }
    return nullptr;
}

bool Matches(const Form& form, const std::vector<std::wstring>& rows) {
    return WaitUntil([&] {
        const HWND list = MatchList(form);
        return rows.empty() ? !list : list && Rows(list) == rows;
    });
}

}  // namespace

TEST_CASE("people are found by any of their names, in the field and in the selection window") {
    for (const int version : {9, 12}) {
        CAPTURE(version);
        Machine machine;
        StandIn outlook(version, L"--empty");
        outlook.Command(
            "add-contact \"FullName=Zde\u0148ka Nov\u00E1kov\u00E1\" \"FileAs=Nov\u00E1kov\u00E1, "
            "Zde\u0148ka\" \"MobileTelephoneNumber=+420 601 100001\"");
        outlook.Command(
            "add-contact \"FullName=J\u00F6rg M\u00FCller\" \"FileAs=M\u00FCller, J\u00F6rg\" "
            "\"MobileTelephoneNumber=0171 2000002\" \"HomeTelephoneNumber=030 3000003\" "
            "\"CompanyName=Nordwerk\"");
        const Form form = Form::Open(outlook);
        Form::Fill(form.to, L"m\u00FCl");
        CHECK(Matches(form, {L"M\u00FCller, J\u00F6rg  (01712000002)",
                             L"M\u00FCller, J\u00F6rg  (0303000003)"}));
        // A screen reader takes the label before the list for its name.
        CHECK(ClassOf(GetWindow(MatchList(form), GW_HWNDPREV)) == L"Static");
        Form::Fill(form.to, L"nov");
        CHECK(Matches(form, {L"Nov\u00E1kov\u00E1, Zde\u0148ka  (+420601100001)"}));
        Press(VK_DOWN);
        Press(VK_RETURN);
        CHECK(WaitUntil([&] { return TextOf(form.to) == L"0420601100001"; }));

        Click(form.Control(L"An:"));
        const HWND window = WaitForWindow(L"Corvane - Empf\u00E4nger ausw\u00E4hlen");
        REQUIRE(window);
        const HWND list = FindByClass(window, WC_LISTVIEWW);
        const auto count = [&] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); };
        CHECK(WaitUntil([&] { return count() == 3; }));
        TypeCharacters(L"mul nord 0171");
        CHECK(WaitUntil([&] { return count() == 1; }));
        Press(VK_RETURN);
        Press('A', {VK_CONTROL});
        Press(VK_DELETE);
        CHECK(WaitUntil([&] { return count() == 3; }));
        const HWND chosen = FindByClass(window, L"ListBox");
        CHECK(WaitUntil([&] { return Rows(chosen).size() == 2; }));
        // All of them, of which two are there already.
        Press(VK_DOWN);
        CHECK(WaitUntil([&] { return Focus() == list; }));
        Press('A', {VK_CONTROL});
        Press(VK_RETURN);
        CHECK(WaitUntil([&] { return Rows(chosen).size() == 3; }));
        Press(VK_RETURN, {VK_CONTROL});
        CHECK(WaitUntilGone(window));
        CHECK(
            WaitUntil([&] { return TextOf(form.to) == L"0420601100001;01712000002;0303000003"; }));
        CheckClean(outlook.Quit());
    }
}

TEST_CASE("closing the form or quitting Outlook ends the reading") {
    Machine machine;
    StandIn outlook(11, L"--empty");
    outlook.Command("many-contacts 30000 10");
    for (const bool quit : {false, true}) {
        CAPTURE(quit);
        const Form form = Form::Open(outlook);
        Form::Fill(form.to, L"ber");
        CHECK(WaitUntil([&] {
            const HWND bar = FindByClass(form.window, STATUSCLASSNAMEW);
            return TextOf(bar).find(L"Kontakte") != std::wstring::npos;
        }));
        // Outlook works on meanwhile.
        outlook.Command("open-explorer");
        if (quit) break;
        PostMessageW(form.window, WM_CLOSE, 0, 0);
        REQUIRE(WaitUntilGone(form.window));
    }
    CheckClean(outlook.Quit());
}
