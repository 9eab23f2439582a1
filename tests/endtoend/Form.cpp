#include "endtoend/Form.h"

#include <doctest.h>

#include "endtoend/Desktop.h"

namespace tellwick::endtoend {

Form Form::Open(StandIn& outlook) {
    outlook.ClickButton(1, "Neue SMS");
    Form form;
    form.window = WaitForWindow(L"SMS erstellen");
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
    const HWND control = FindByText(window, text);
    REQUIRE_MESSAGE(control, "no such control");
    return control;
}

}  // namespace tellwick::endtoend
