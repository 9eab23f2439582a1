// The form without a mouse, from its opening to the queue, and the trace of that in its file.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

// The box that is open now, which is answered with that button.
void Answer(int button) {
    const HWND box = WaitForBox();
    REQUIRE(box);
    Click(GetDlgItem(box, button));
    CHECK(WaitUntilGone(box));
}

void CheckTrace(const std::string& trace) {
    CAPTURE(trace);
    CHECK(trace.starts_with("<start>_\r\n\r\n"));
    std::size_t at = 0;
    for (const char* record :
         {"<ButtonSMSNew_Click>_\r\n", "<NewSMS>_\r\n", "<Form_Initialize_>_\r\n",
          "</Form_Initialize_>\r\n", "</NewSMS>\r\n", "</ButtonSMSNew_Click>\r\n",
          "<Message_Change>_\r\n", "</Message_Change>\r\n", "<ButtonSend_Click>_\r\n",
          "<CheckIfRunning>_\r\n", "<GetProcList>_\r\n", "</GetProcList>\r\n",
          "</CheckIfRunning>\r\n", "<Form_Unload>_\r\n", "</Form_Unload>\r\n",
          "</ButtonSend_Click>\r\n"}) {
        const std::size_t found = trace.find(record, at);
        CHECK_MESSAGE(found != std::string::npos, record);
        if (found != std::string::npos) at = found + 1;
    }
    // Nothing but whole lines.
    for (at = 0; (at = trace.find('\n', at)) != std::string::npos; ++at)
        CHECK(trace[at - 1] == '\r');
}

}  // namespace

TEST_CASE("an SMS is written, sent and traced, and the form closed, by keys alone") {
    Machine machine;
    WriteText(AddInKey, L"Active", L"1");
    WriteText(AddInKey, L"DebugMode", L"1");
    StandIn outlook(10, L"--empty");
    Answer(IDOK);
    Form form = Form::Open(outlook);
    // Enter goes on from the recipient.
    Form::Fill(form.to, L"0171");
    Press(VK_RETURN);
    CHECK(WaitUntil([&] { return Focus() == form.message; }));
    CHECK(TextOf(form.message).empty());
    // The validity by its mnemonic; its list by F4, a choice by the arrow.
    Press('G', {VK_MENU});
    REQUIRE(WaitUntil([&] { return ClassOf(Focus()) == L"ComboBox"; }));
    const HWND expires = Focus();
    Press(VK_F4);
    CHECK(WaitUntil([&] { return SendMessageW(expires, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
    Press(VK_DOWN);
    Press(VK_RETURN);
    CHECK(WaitUntil([&] { return SendMessageW(expires, CB_GETDROPPEDSTATE, 0, 0) == 0; }));
    CHECK(TextOf(expires) == L"0 Minuten");
    CHECK(IsWindowVisible(form.window));
    // Enter pushes the button that has the focus.
    const HWND hex = form.Control(L"Hex");
    Form::Fill(form.message, L"Hi");
    for (int tabs = 0; tabs < 20 && Focus() != hex; ++tabs) Press(VK_TAB);
    REQUIRE(Focus() == hex);
    Press(VK_RETURN);
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"4869"; }));
    Click(hex);
    CHECK(WaitUntil([&] { return TextOf(form.message) == L"Hi"; }));

    // In the message Enter makes a line break, and Ctrl+Enter sends without one.
    Form::Fill(form.message, L"ab\ncd");
    Press(VK_RETURN, {VK_CONTROL});
    Answer(IDNO);
    REQUIRE(WaitUntilGone(form.window));
    const auto path = ReadText(QueueKey, L"1");
    REQUIRE(path);
    CHECK(ReadBytes(*path) == "0171\tab\r\ncd");

    form = Form::Open(outlook);
    Click(form.to);
    REQUIRE(WaitUntil([&] { return Focus() == form.to; }));
    CheckTabOrder(form.window);
    Press(VK_ESCAPE);
    CHECK(WaitUntilGone(form.window));
    form = Form::Open(outlook);
    Press('E', {VK_MENU});
    CHECK(WaitUntilGone(form.window));
    CHECK(outlook.Quit().exitCode == 0);
    CheckTrace(ReadBytes(machine.ProgramFolder() + L"TellwickAddIn.dbg.xml"));
}
