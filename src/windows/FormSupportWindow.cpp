#include "windows/FormSupportWindow.h"

#include <algorithm>

#include "platform/Keys.h"
#include "windows/ControlStyles.h"

namespace tellwick::windows {

namespace {

// Dialog units.
constexpr int Margin = 7;
constexpr int Gap = 4;
constexpr int InnerWidth = 330;
constexpr int TextHeight = 180;
constexpr int ButtonHeight = 14;

}  // namespace

bool FormSupportWindow::Load() {
    constexpr DWORD Lines =
        WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOHSCROLL;
    const bool made = Create({{u"LabelHelp", &labelHelp, L"STATIC", style::Help, 0},
                              {u"TextContents",
                               &textContents,
                               L"EDIT",
                               Lines,
                               style::Edge,
                               {u"LabelContents", &labelContents}},
                              {u"ButtonSave", &buttonSave, L"BUTTON", style::Button | WS_GROUP, 0},
                              {u"ButtonCancel", &buttonCancel, L"BUTTON", style::Button, 0}},
                             owner.Window());
    if (!made) return false;
    SetDefaultButton(buttonSave);
    return true;
}

SIZE FormSupportWindow::LeastClient() const {
    const FontMetrics& metrics = Font().Metrics();
    const int width = metrics.Horizontal(InnerWidth);
    return {width + metrics.Horizontal(2 * Margin),
            Font().Measure(labelHelp.Caption(), width).cy +
                metrics.Vertical(2 * Margin + TextHeight + ButtonHeight + 3 * Gap)};
}

void FormSupportWindow::OnSize() {
    if (!Loaded()) return;
    const FontMetrics& metrics = Font().Metrics();
    RECT client;
    GetClientRect(FormWindow::Window(), &client);
    const int left = metrics.Horizontal(Margin);
    const int width = int(client.right) - 2 * left;
    const int top = metrics.Vertical(Margin);
    const int help = Font().Measure(labelHelp.Caption(), width).cy;
    const int button = metrics.Vertical(ButtonHeight);
    const int buttons = int(client.bottom) - top - button;
    const int text = top + help + metrics.Vertical(Gap);
    Placement placement;
    placement.Move(labelHelp, left, top, width, help);
    placement.Move(textContents, left, text, width, buttons - metrics.Vertical(2 * Gap) - text);
    int x = left + width;
    for (const WindowControl* one : {&buttonCancel, &buttonSave}) {
        const int own = std::max(metrics.Horizontal(50), Font().CaptionWidth(one->Caption()));
        x -= own;
        placement.Move(*one, x, buttons, own, button);
        x -= metrics.Horizontal(Gap);
    }
}

bool FormSupportWindow::OnKeyDown(std::int32_t keyCode, std::int32_t) {
    if (keyCode != key::Escape) return false;
    events->ButtonCancel_Click();
    return true;
}

void FormSupportWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (notification != BN_CLICKED) return;
    if (control == buttonSave.Window()) events->ButtonSave_Click();
    if (control == buttonCancel.Window()) events->ButtonCancel_Click();
}

}  // namespace tellwick::windows
