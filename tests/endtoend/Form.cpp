#include "endtoend/Form.h"

#include <doctest.h>

#include <algorithm>
#include <set>

namespace tellwick::endtoend {

namespace {

// Of the add-in's button, whatever the language; the button may be made by a timer yet to come.
std::string ButtonCaption(StandIn& outlook) {
    std::string caption;
    REQUIRE(WaitUntil([&] {
        std::vector<std::string> controls = outlook.List("ribbon 1");
        if (controls.empty()) controls = outlook.List("toolbar 1");
        for (const std::string& control : controls) {
            if (control.find("tag=\"101\"") == std::string::npos &&
                control.find("at=Tab") == std::string::npos) {
                continue;
            }
            const std::size_t begin = control.find('"') + 1;
            caption = control.substr(begin, control.find('"', begin) - begin);
        }
        return !caption.empty();
    }));
    return caption;
}

}  // namespace

Form Form::Open(StandIn& outlook) {
    outlook.ClickButton(1, ButtonCaption(outlook));
    return Opened();
}

Form Form::Opened() {
    Form form;
    form.window = WaitForWindow(L"Corvane - ");
    REQUIRE(form.window);
    form.to = FindByClass(FindByClass(form.window, L"ComboBox"), L"Edit");
    for (const HWND child : Descendants(form.window)) {
        const bool lines = GetWindowLongW(child, GWL_STYLE) & ES_MULTILINE;
        if (ClassOf(child) == L"Edit" && lines) form.message = child;
    }
    REQUIRE(form.to);
    REQUIRE(form.message);
    return form;
}

void Form::Fill(HWND field, const std::wstring& text) {
    Click(field);
    CHECK(WaitUntil([&] { return Focus() == field; }));
    Press(VK_HOME, {VK_CONTROL});
    Press(VK_END, {VK_CONTROL, VK_SHIFT});
    Type(text);
}

HWND Form::Control(const std::wstring& text) const {
    // A click before may still have it made.
    HWND control = nullptr;
    WaitUntil([&] { return (control = FindByText(window, text)) != nullptr; });
    REQUIRE_MESSAGE(control, "no such control");
    return control;
}

void CheckTabOrder(HWND window) {
    const HWND first = Focus();
    std::vector<HWND> visited;
    do {
        const HWND before = Focus();
        visited.push_back(before);
        Press(VK_TAB);
        REQUIRE(WaitUntil([&] { return Focus() != before; }));
    } while (Focus() != first && visited.size() < 50);
    CHECK(std::set<HWND>(visited.begin(), visited.end()).size() == visited.size());
    for (const HWND child : Descendants(window)) {
        const bool stop = GetWindowLongW(child, GWL_STYLE) & WS_TABSTOP;
        if (!stop || !IsWindowVisible(child) || !IsWindowEnabled(child)) continue;
        const bool reached = std::any_of(visited.begin(), visited.end(), [&](HWND control) {
            return control == child || GetParent(control) == child;
        });
        CHECK_MESSAGE(reached, TextOf(child));
    }
    Press(VK_TAB, {VK_SHIFT});
    CHECK(WaitUntil([&] { return Focus() == visited.back(); }));
}

}  // namespace tellwick::endtoend
