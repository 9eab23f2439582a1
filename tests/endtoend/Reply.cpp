// Replies to SMS that lie in Outlook, with the real form.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

TEST_CASE("a reply fills the form and can be undone, with and without the outside library") {
    for (const int version : {9, 10, 11, 12, 14, 16}) {
        CAPTURE(version);
        const bool library = version != 11;
        Machine machine;
        StandIn outlook(version, library ? L"" : L"--no-redemption");
        const Form form = Form::Open(outlook);
        Form::Fill(form.message, L"unsent");
        outlook.Command("select 1 2");
        CHECK(outlook.Command("reply-selected 1") == "cancelled");
        CHECK(outlook.List("inspectors").empty());
        CHECK(TextOf(form.to) == (library ? L"+491701234567" : L"RE"));
        CHECK(TextOf(form.message) ==
              (library ? L"Komme um 5 an. Gr\u00FC\u00DFe, J\u00F6rg" : L"SMS from +491701234567"));
        CHECK(WaitUntil([&] { return Focus() == form.message; }));
        Press('Z', {VK_CONTROL});
        CHECK(WaitUntil([&] { return TextOf(form.message) == L"unsent"; }));
        if (version >= 14) {
            outlook.Command("select-conversation 1 4 2");
            CHECK(outlook.Command("reply-selected 1") == "cancelled");
            CHECK(TextOf(form.to) == L"+436641112223");
            Press('Z', {VK_CONTROL});
            CHECK(WaitUntil([&] { return TextOf(form.message) == L"unsent"; }));
        }
        // Any other mail gets Outlook's own reply.
        outlook.Command("select 1 1");
        CHECK(outlook.Command("reply-selected 1") == "opened");
        CHECK(TextOf(form.message) == L"unsent");
        CheckClean(outlook.Quit());
        CHECK(machine.Setting(L"SMS", L"LastText") == L"unsent");
    }
}
