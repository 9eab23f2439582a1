#include "windows/FormSmsSelectAddressWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/Keys.h"

namespace tellwick::windows {

namespace {

constexpr SIZE Least{220, 160};  // dialog units
constexpr int Margin = 6;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;

}  // namespace

FormSmsSelectAddressWindow::FormSmsSelectAddressWindow() {
    textSearch.onChange = [this] { events->TextSearch_Change(); };
}

bool FormSmsSelectAddressWindow::Load() {
    constexpr DWORD Button = WS_TABSTOP | BS_PUSHBUTTON;
    constexpr DWORD List = WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    return Create({
        {u"LabelSearch", &labelSearch, L"STATIC", SS_LEFT, 0},
        {u"TextSearch", &textSearch, L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE},
        {u"ListAddresses", &listAddresses, L"LISTBOX", List, WS_EX_CLIENTEDGE},
        {u"ButtonAdd", &buttonAdd, L"BUTTON", Button, 0},
        {u"ButtonOK", &buttonOK, L"BUTTON", Button, 0},
        {u"StatusBar1", &statusBar1, STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0},
    });
}

SIZE FormSmsSelectAddressWindow::LeastClient() const {
    const FontMetrics& font = Font().Metrics();
    return {font.Horizontal(Least.cx), font.Vertical(Least.cy)};
}

void FormSmsSelectAddressWindow::OnSize() {
    if (!Loaded()) return;
    const FontMetrics& font = Font().Metrics();
    const int margin = font.Horizontal(Margin);
    const int gapX = font.Horizontal(Gap);
    const int gapY = font.Vertical(Gap);
    const int rowHeight = font.Vertical(ButtonHeight);
    statusBar1.Arrange();
    RECT bar;
    GetWindowRect(statusBar1.Window(), &bar);
    RECT client;
    GetClientRect(FormWindow::Window(), &client);
    const int bottom = client.bottom - (bar.bottom - bar.top) - gapY;
    const int columnWidth =
        std::max(Font().CaptionWidth(buttonAdd.Caption()), Font().CaptionWidth(buttonOK.Caption()));
    const int columnLeft = client.right - margin - columnWidth;
    const int labelWidth = Font().CaptionWidth(labelSearch.Caption());
    const int middle = columnLeft - 2 * gapX;
    Placement placement;
    placement.Move(labelSearch, margin, margin + font.Vertical(2), labelWidth, rowHeight);
    placement.Move(textSearch, margin + labelWidth, margin, middle - margin - labelWidth,
                   rowHeight);
    placement.Move(buttonAdd, columnLeft, margin, columnWidth, rowHeight);
    placement.Move(buttonOK, columnLeft, margin + rowHeight + gapY, columnWidth, rowHeight);
    const int top = margin + rowHeight + gapY;
    placement.Move(listAddresses, margin, top, middle - margin, bottom - top);
}

bool FormSmsSelectAddressWindow::OnKeyDown(std::int32_t keyCode, std::int32_t) {
    if (keyCode == key::Escape) {
        events->Form_Close();
        return true;
    }
    if (keyCode == key::Enter && !buttonOK.HasFocus()) {
        events->ButtonAdd_Click();
        return true;
    }
    return false;
}

void FormSmsSelectAddressWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (control == textSearch.Window()) {
        if (notification == EN_CHANGE) textSearch.Changed();
    } else if (control == listAddresses.Window()) {
        if (notification == LBN_DBLCLK) events->ListAddresses_DblClick();
    } else if (notification == BN_CLICKED) {
        if (control == buttonAdd.Window()) events->ButtonAdd_Click();
        if (control == buttonOK.Window()) events->ButtonOK_Click();
    }
}

}  // namespace tellwick::windows
