#include "windows/FormSmsSelectAddressWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/Keys.h"

namespace tellwick::windows {

namespace {

constexpr SIZE Least{290, 190};  // dialog units
constexpr SIZE Usual{430, 260};
constexpr int Margin = 6;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;
constexpr int LabelHeight = 9;
constexpr int ChosenHeight = 50;
constexpr int DroppedRows = 12;

}  // namespace

FormSmsSelectAddressWindow::FormSmsSelectAddressWindow() {
    textSearch.onChange = [this] { events->TextSearch_Change(); };
}

bool FormSmsSelectAddressWindow::Load() {
    constexpr DWORD Button = WS_TABSTOP | BS_PUSHBUTTON;
    constexpr DWORD Chosen = WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    constexpr DWORD Box = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    if (!Create({
            {u"LabelSearch", &labelSearch, L"STATIC", SS_LEFT, 0},
            {u"TextSearch", &textSearch, L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE},
            {u"LabelFolder", &labelFolder, L"STATIC", SS_LEFT, 0},
            {u"BoxFolder", &boxFolder, L"COMBOBOX", Box, 0},
            {u"ListAddresses",
             &listAddresses,
             WC_LISTVIEWW,
             WindowListView::Style,
             WS_EX_CLIENTEDGE,
             {u"LabelAddresses", &labelAddresses}},
            {u"ButtonAdd", &buttonAdd, L"BUTTON", Button, 0},
            {u"LabelChosen", &labelChosen, L"STATIC", SS_LEFT, 0},
            {u"ListChosen", &listChosen, L"LISTBOX", Chosen, WS_EX_CLIENTEDGE},
            {u"ButtonRemove", &buttonRemove, L"BUTTON", Button, 0},
            {u"ButtonOK", &buttonOK, L"BUTTON", Button, 0},
            {u"ButtonCancel", &buttonCancel, L"BUTTON", Button, 0},
            {u"StatusBar1", &statusBar1, STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0},
        })) {
        return false;
    }
    listAddresses.SetResolution(Font().Resolution());
    return true;
}

SIZE FormSmsSelectAddressWindow::LeastClient() const {
    const FontMetrics& font = Font().Metrics();
    return {font.Horizontal(Least.cx), font.Vertical(Least.cy)};
}

SIZE FormSmsSelectAddressWindow::UsualClient() const {
    const FontMetrics& font = Font().Metrics();
    return {font.Horizontal(Usual.cx), font.Vertical(Usual.cy)};
}

void FormSmsSelectAddressWindow::OnResolution() {
    listAddresses.SetResolution(Font().Resolution());
}

// Search and folder above the list, those chosen below it, the buttons in a column at the right.
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
    int columnWidth = 0;
    for (const WindowControl* button : {&buttonAdd, &buttonRemove, &buttonOK, &buttonCancel})
        columnWidth = std::max(columnWidth, Font().CaptionWidth(button->Caption()));
    const int columnLeft = client.right - margin - columnWidth;
    const int listRight = columnLeft - 2 * gapX;
    const int searchWidth = Font().CaptionWidth(labelSearch.Caption());
    const int folderWidth = Font().CaptionWidth(labelFolder.Caption());
    const int fields = (listRight - margin - searchWidth - folderWidth - gapX) / 2;
    const int textTop = margin + font.Vertical(2);
    const int folderLeft = margin + searchWidth + fields + gapX;
    Placement placement;
    placement.Move(labelSearch, margin, textTop, searchWidth, rowHeight);
    placement.Move(textSearch, margin + searchWidth, margin, fields, rowHeight);
    placement.Move(labelFolder, folderLeft, textTop, folderWidth, rowHeight);
    placement.Move(boxFolder, folderLeft + folderWidth, margin,
                   listRight - folderLeft - folderWidth, rowHeight * DroppedRows);
    const int listTop = margin + rowHeight + gapY;
    const int chosenTop = bottom - font.Vertical(ChosenHeight);
    const int labelTop = chosenTop - font.Vertical(LabelHeight);
    placement.Move(listAddresses, margin, listTop, listRight - margin, labelTop - gapY - listTop);
    placement.Move(buttonAdd, columnLeft, listTop, columnWidth, rowHeight);
    placement.Move(labelChosen, margin, labelTop, listRight - margin, font.Vertical(LabelHeight));
    placement.Move(listChosen, margin, chosenTop, listRight - margin, bottom - chosenTop);
    placement.Move(buttonRemove, columnLeft, chosenTop, columnWidth, rowHeight);
    placement.Move(buttonOK, columnLeft, bottom - 2 * rowHeight - gapY, columnWidth, rowHeight);
    placement.Move(buttonCancel, columnLeft, bottom - rowHeight, columnWidth, rowHeight);
}

// Enter adds, wherever no other button has the focus; with Ctrl it is OK.
bool FormSmsSelectAddressWindow::OnKeyDown(std::int32_t keyCode, std::int32_t shift) {
    if (boxFolder.Dropped()) return false;
    switch (keyCode) {
        case key::Escape:
            events->Form_Close();
            return true;
        case key::Enter:
            if (shift == key::Control) {
                events->ButtonOK_Click();
            } else if (buttonOK.HasFocus() || buttonCancel.HasFocus() || buttonRemove.HasFocus()) {
                return false;
            } else {
                events->ButtonAdd_Click();
            }
            return true;
        case key::Down:
            if (!textSearch.HasFocus() || listAddresses.RowCount() == 0) return false;
            listAddresses.ChooseRow(0);
            listAddresses.SetFocus();
            return true;
        case VK_DELETE:
            if (!listChosen.HasFocus()) return false;
            events->ButtonRemove_Click();
            return true;
        case 'A':
            if (shift != key::Control || !listAddresses.HasFocus()) return false;
            listAddresses.ChooseAll();
            return true;
        default:
            return false;
    }
}

void FormSmsSelectAddressWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (control == textSearch.Window()) {
        if (notification == EN_CHANGE) textSearch.Changed();
    } else if (control == boxFolder.Window()) {
        if (notification == CBN_SELCHANGE) events->BoxFolder_Click();
    } else if (control == listChosen.Window()) {
        if (notification == LBN_DBLCLK) events->ListChosen_DblClick();
    } else if (notification == BN_CLICKED) {
        if (control == buttonAdd.Window()) {
            events->ButtonAdd_Click();
        } else if (control == buttonRemove.Window()) {
            events->ButtonRemove_Click();
        } else if (control == buttonOK.Window()) {
            events->ButtonOK_Click();
        } else if (control == buttonCancel.Window()) {
            events->Form_Close();
        }
    }
}

LRESULT FormSmsSelectAddressWindow::OnNotify(const NMHDR& notification) {
    if (notification.hwndFrom != listAddresses.Window()) return 0;
    switch (notification.code) {
        case LVN_COLUMNCLICK:
            events->ListAddresses_ColumnClick(
                std::size_t(reinterpret_cast<const NMLISTVIEW&>(notification).iSubItem));
            return 0;
        case NM_DBLCLK:
            events->ListAddresses_DblClick();
            return 0;
        default:
            return listAddresses.Answer(notification);
    }
}

}  // namespace tellwick::windows
