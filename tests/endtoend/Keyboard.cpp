// The form without a mouse.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Form.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;

TEST_CASE("Tab visits every control once, Shift+Tab goes back") {
    Machine machine;
    StandIn outlook(9, L"--empty");
    const Form form = Form::Open(outlook);
    Click(form.to);
    REQUIRE(WaitUntil([&] { return Focus() == form.to; }));
    CheckTabOrder(form.window);
}

TEST_CASE("Ctrl+Enter sends without the line break, Enter makes one, Escape and Alt+E close") {
    Machine machine;
    StandIn outlook(10, L"--empty");
    Form form = Form::Open(outlook);
    Form::Fill(form.to, L"0171");
    Form::Fill(form.message, L"ab\ncd");
    Press(VK_RETURN, {VK_CONTROL});
    const HWND question = WaitForBox();
    REQUIRE(question);
    Click(GetDlgItem(question, IDNO));
    REQUIRE(WaitUntilGone(form.window));
    const auto path = ReadText(QueueKey, L"1");
    REQUIRE(path);
    CHECK(ReadBytes(*path) == "0171\tab\r\ncd");

    form = Form::Open(outlook);
    Press(VK_ESCAPE);
    CHECK(WaitUntilGone(form.window));
    form = Form::Open(outlook);
    Press('E', {VK_MENU});
    CHECK(WaitUntilGone(form.window));
}
