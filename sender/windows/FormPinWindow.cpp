#include "windows/FormPinWindow.h"

#include "platform/Keys.h"

namespace tellwick::sender {

using windows::FontMetrics;
using windows::FormRows;

namespace {

constexpr WPARAM MostDigits = 8;

// Dialog units.
constexpr int InnerWidth = 170;
constexpr int PinWidth = 60;

}  // namespace

bool FormPinWindow::Load() {
    constexpr DWORD Button = WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY;
    constexpr DWORD Field = WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD | ES_NUMBER;
    constexpr DWORD Help = SS_LEFT | SS_NOPREFIX;
    const bool made = Create({{u"LabelAsked", &labelAsked, L"STATIC", Help, 0},
                              {u"LabelPinHelp", &labelPinHelp, L"STATIC", Help, 0},
                              {u"LabelPin", &labelPin, L"STATIC", SS_LEFT, 0},
                              {u"TextPin", &textPin, L"EDIT", Field, WS_EX_CLIENTEDGE},
                              {u"ButtonOK", &buttonOK, L"BUTTON", Button, 0},
                              {u"ButtonCancel", &buttonCancel, L"BUTTON", Button, 0}},
                             owner);
    if (!made) return false;
    SendMessageW(textPin.Window(), EM_SETLIMITTEXT, MostDigits, 0);
    SetDefaultButton(buttonOK);
    return true;
}

void FormPinWindow::Tell(TextView text) {
    MessageBoxW(Window(), windows::Wide(Text(text)), L"Tellwick", MB_OK | MB_ICONEXCLAMATION);
}

// The height that all controls take.
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

SIZE FormPinWindow::LeastClient() const {
    const int width = Font().Metrics().Horizontal(InnerWidth);
    return {width + Font().Metrics().Horizontal(4 * FormRows::Margin), Arrange(width, nullptr)};
}

void FormPinWindow::OnSize() {
    if (!Loaded()) return;
    RECT client;
    GetClientRect(Window(), &client);
    windows::Placement placement;
    Arrange(int(client.right) - Font().Metrics().Horizontal(4 * FormRows::Margin), &placement);
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
