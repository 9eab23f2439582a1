// The add-in is taken out of Outlook while something of it is still running, and its library stays
// until that is over.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

TEST_CASE("within a tick") {
    Machine machine;
    StandIn outlook(16);
    outlook.Command("many-contacts 50 1");
    outlook.Command("slow-store \"Personal Folders\" 300 pump");
    outlook.Command("select 1");
    outlook.Command("click-ribbon 1 \"Neue SMS\"");
    outlook.Command("push An:");
    // The first answer tells that a tick runs: its command is taken while Outlook is called.
    Sleep(500);
    CHECK(outlook.Command("disconnect").empty());
    CHECK(outlook.Command("unload") == "loaded");
    outlook.Command("slow-store \"Personal Folders\" 0");
    outlook.Command("wait 1000");
    CHECK(outlook.Command("unload") == "unloaded");
    CheckClean(outlook.Quit());
}

TEST_CASE("within a key that came to the form before Outlook, and within a box") {
    for (const int version : {9, 16}) {
        for (const bool lost : {false, true}) {
            CAPTURE(version);
            CAPTURE(lost);
            Machine machine;
            StandIn outlook(version, L"--empty");
            const Form form = Form::Open(outlook);
            Form::Fill(form.message, L"Hallo");
            if (lost) {
                // A question of the add-in's own, from a click: not every phone has this letter.
                Form::Fill(form.to, L"0171");
                Click(form.message);
                Press(VK_END, {VK_CONTROL});
                TypeCharacters(L"\x0142");
                Click(form.Control(L"SMS senden"));
            } else {
                // The system's box, from a key: there is no recipient.
                Press(VK_RETURN, {VK_CONTROL});
            }
            const HWND box = WaitForBox();
            REQUIRE(box);
            CHECK(outlook.Command("disconnect").empty());
            CHECK(WaitUntilGone(box));
            CHECK(WaitUntilGone(form.window));
            CHECK(outlook.Command("unload") == "unloaded");
            CHECK_FALSE(ReadText(QueueKey, L"1"));
            outlook.Command("connect");
            // In the system's code page the other letter becomes one that it has.
            CHECK(TextOf(Form::Open(outlook).message) == (lost ? L"Hallol" : L"Hallo"));
            CheckClean(outlook.Quit());
        }
    }
}
