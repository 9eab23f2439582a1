// The form without a mouse.
#include <doctest.h>

#include <algorithm>
#include <set>

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
    std::vector<HWND> visited;
    do {
        const HWND before = Focus();
        visited.push_back(before);
        Press(VK_TAB);
        REQUIRE(WaitUntil([&] { return Focus() != before; }));
    } while (Focus() != form.to && visited.size() < 50);
    CHECK(std::set<HWND>(visited.begin(), visited.end()).size() == visited.size());
    CHECK(std::count(visited.begin(), visited.end(), form.message) == 1);
    for (const HWND child : Descendants(form.window)) {
        const bool stop = GetWindowLongW(child, GWL_STYLE) & WS_TABSTOP;
        if (!stop || !IsWindowVisible(child) || !IsWindowEnabled(child)) continue;
        const bool reached = std::any_of(visited.begin(), visited.end(), [&](HWND window) {
            return window == child || GetParent(window) == child;
        });
        CHECK_MESSAGE(reached, TextOf(child));
    }
    Press(VK_TAB, {VK_SHIFT});
    CHECK(WaitUntil([&] { return Focus() == visited.back(); }));
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
