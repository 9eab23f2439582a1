#include "windows/FormPinWindow.h"

#include "platform/Keys.h"
#include "windows/ControlStyles.h"

namespace tellwick::sender {

using windows::FontMetrics;
using windows::FormRows;
namespace style = windows::style;

namespace {

constexpr WPARAM MostDigits = 8;

// Dialog units.
constexpr int Width = 170;
constexpr int PinWidth = 60;

}  // namespace

bool FormPinWindow::Load() {
    constexpr DWORD Field = WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD | ES_NUMBER;
    const bool made = Create({{u"LabelAsked", &labelAsked, L"STATIC", style::Help, 0},
                              {u"LabelPinHelp", &labelPinHelp, L"STATIC", style::Help, 0},
                              {u"LabelPin", &labelPin, L"STATIC", SS_LEFT, 0},
                              {u"TextPin", &textPin, L"EDIT", Field, style::Edge},
                              {u"ButtonOK", &buttonOK, L"BUTTON", style::Button, 0},
                              {u"ButtonCancel", &buttonCancel, L"BUTTON", style::Button, 0}},
                             owner);
    if (!made) return false;
    SendMessageW(textPin.Window(), EM_SETLIMITTEXT, MostDigits, 0);
    SetDefaultButton(buttonOK);
    return true;
}

void FormPinWindow::Tell(TextView text) {
    MessageBoxW(Window(), windows::Wide(Text(text)), L"Tellwick", MB_OK | MB_ICONEXCLAMATION);
}

int FormPinWindow::InnerWidth() const {
    return Font().Metrics().Horizontal(Width);
}

int FormPinWindow::Arrange(int innerWidth, windows::Placement* placement) const {
    FormRows rows(Font(), innerWidth, placement);
    const FontMetrics& metrics = Font().Metrics();
    rows.Wrapped(labelAsked);
    rows.Wrapped(labelPinHelp);
    const int field = rows.left + Font().CaptionWidth(labelPin.Caption());
    rows.Label(labelPin, rows.left, field);
    rows.Field(textPin, field, field + metrics.Horizontal(PinWidth));
    rows.EndRow();
    rows.Drop(4);
    return rows.LastRow(buttonOK, buttonCancel, rows.right);
}

bool FormPinWindow::OnKeyDown(std::int32_t keyCode, std::int32_t) {
    if (keyCode != key::Escape) return false;
    events->ButtonCancel_Click();
    return true;
}

void FormPinWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (notification != BN_CLICKED) return;
    if (control == buttonOK.Window()) events->ButtonOK_Click();
    if (control == buttonCancel.Window()) events->ButtonCancel_Click();
}

}  // namespace tellwick::sender
