#include "windows/WindowListView.h"

#include <algorithm>

namespace tellwick::windows {

namespace {

constexpr int CellMargin = 6;  // as the control itself leaves free at both sides of a text

}  // namespace

void WindowListView::SetRowCount(std::size_t rows) {
    Send(LVM_SETITEMCOUNT, rows, 0);
    LVITEMW none{};
    none.stateMask = LVIS_SELECTED;
    Send(LVM_SETITEMSTATE, WPARAM(-1), reinterpret_cast<LPARAM>(&none));
    LVITEMW first{};
    first.stateMask = first.state = LVIS_FOCUSED;
    if (rows > 0) Send(LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&first));
    if (rows > 0) Send(LVM_ENSUREVISIBLE, 0, FALSE);
    if (Window()) InvalidateRect(Window(), nullptr, FALSE);
}

void WindowListView::AddRows(std::size_t rows) {
    Send(LVM_SETITEMCOUNT, rows, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

std::size_t WindowListView::RowCount() const {
    return std::size_t(Send(LVM_GETITEMCOUNT));
}

// For the next chosen row the control looks at all in between: it is asked for no more than there
// are.
std::vector<std::size_t> WindowListView::ChosenRows(std::size_t most) const {
    std::vector<std::size_t> rows;
    LRESULT row = -1;
    for (std::size_t left = std::min(most, ChosenCount()); left > 0; --left) {
        row = Send(LVM_GETNEXTITEM, WPARAM(row), LVNI_SELECTED);
        if (row < 0) break;
        rows.push_back(std::size_t(row));
    }
    return rows;
}

void WindowListView::ChooseRow(std::size_t row) {
    LVITEMW chosen{};
    chosen.stateMask = chosen.state = LVIS_SELECTED | LVIS_FOCUSED;
    Send(LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&chosen));
}

void WindowListView::ChooseAll() {
    LVITEMW chosen{};
    chosen.stateMask = chosen.state = LVIS_SELECTED;
    Send(LVM_SETITEMSTATE, WPARAM(-1), reinterpret_cast<LPARAM>(&chosen));
}

std::size_t WindowListView::Columns() const {
    const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    return header ? std::size_t(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
}

// A column is made when it gets its caption; they get them in their order.
void WindowListView::SetColumnCaption(std::size_t column, TextView caption) {
    Text shown(caption);
    LVCOLUMNW properties{};
    properties.mask = LVCF_TEXT;
    properties.pszText = const_cast<wchar_t*>(Wide(shown));
    if (column < Columns()) {
        Send(LVM_SETCOLUMNW, column, reinterpret_cast<LPARAM>(&properties));
        return;
    }
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    Send(LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&properties));
}

void WindowListView::SetSorted(std::size_t column, bool descending) {
    const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    for (std::size_t index = 0; index < Columns(); ++index) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (index == column) item.fmt |= descending ? HDF_SORTDOWN : HDF_SORTUP;
        SendMessageW(header, HDM_SETITEMW, index, reinterpret_cast<LPARAM>(&item));
    }
}

std::int32_t WindowListView::ColumnWidth(std::size_t column) const {
    return MulDiv(int(Send(LVM_GETCOLUMNWIDTH, column)), 96, resolution);
}

void WindowListView::SetColumnWidth(std::size_t column, std::int32_t width) {
    Send(LVM_SETCOLUMNWIDTH, column, MulDiv(width, resolution, 96));
}

void WindowListView::SetResolution(int dotsPerInch) {
    std::vector<std::int32_t> widths;
    for (std::size_t column = 0; column < Columns(); ++column)
        widths.push_back(ColumnWidth(column));
    resolution = dotsPerInch;
    for (std::size_t column = 0; column < widths.size(); ++column)
        SetColumnWidth(column, widths[column]);
}

LRESULT WindowListView::Answer(const NMHDR& notification) {
    switch (notification.code) {
        case LVN_GETDISPINFOW: {
            LVITEMW& item =
                const_cast<NMLVDISPINFOW&>(reinterpret_cast<const NMLVDISPINFOW&>(notification))
                    .item;
            if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0 || !source) return 0;
            const Text text = source(std::size_t(item.iItem), std::size_t(item.iSubItem)).text;
            const std::size_t length = std::min(text.size(), std::size_t(item.cchTextMax) - 1);
            std::copy_n(text.begin(), length, item.pszText);
            item.pszText[length] = L'\0';
            return 0;
        }
        case LVN_ODFINDITEMW:
            return FindRow(reinterpret_cast<const NMLVFINDITEMW&>(notification));
        case NM_CUSTOMDRAW:
            return Draw(
                const_cast<NMLVCUSTOMDRAW&>(reinterpret_cast<const NMLVCUSTOMDRAW&>(notification)));
        default:
            return 0;
    }
}

// The user types the beginning of a name while the list has the focus.
LRESULT WindowListView::FindRow(const NMLVFINDITEMW& wanted) const {
    if (!(wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !finder) return -1;
    const auto row = finder(std::size_t(std::max(wanted.iStart, 0)), FromWide(wanted.lvfi.psz));
    // What is found may not be listed yet.
    return row && *row < RowCount() ? LRESULT(*row) : -1;
}

// Cells with marks are drawn here, the others by the control.
LRESULT WindowListView::Draw(NMLVCUSTOMDRAW& drawing) {
    switch (drawing.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
        case CDDS_ITEMPREPAINT:
            return CDRF_NOTIFYITEMDRAW;  // and CDRF_NOTIFYSUBITEMDRAW, which is the same
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
            break;
        default:
            return CDRF_DODEFAULT;
    }
    const std::size_t row = drawing.nmcd.dwItemSpec;
    const MarkedText text = source ? source(row, std::size_t(drawing.iSubItem)) : MarkedText();
    if (text.marks.empty()) return CDRF_DODEFAULT;
    RECT cell{};
    cell.top = drawing.iSubItem;
    cell.left = drawing.iSubItem == 0 ? LVIR_LABEL : LVIR_BOUNDS;
    if (!Send(LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&cell))) return CDRF_DODEFAULT;
    const bool chosen = (Send(LVM_GETITEMSTATE, row, LVIS_SELECTED) & LVIS_SELECTED) != 0;
    const int background = !chosen ? COLOR_WINDOW : HasFocus() ? COLOR_HIGHLIGHT : COLOR_BTNFACE;
    FillRect(drawing.nmcd.hdc, &cell, GetSysColorBrush(background));
    SetTextColor(drawing.nmcd.hdc,
                 GetSysColor(chosen && HasFocus() ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(drawing.nmcd.hdc, TRANSPARENT);
    const auto font = reinterpret_cast<HFONT>(Send(WM_GETFONT));
    if (plainFont != font) {
        LOGFONTW look{};
        GetObjectW(font, sizeof look, &look);
        look.lfWeight = FW_BOLD;
        look.lfUnderline = TRUE;
        markFont.reset(CreateFontIndirectW(&look));
        plainFont = font;
    }
    DrawMarked(drawing.nmcd.hdc, cell, text);
    return CDRF_SKIPDEFAULT;
}

void WindowListView::DrawMarked(HDC context, RECT cell, const MarkedText& text) const {
    cell.left += CellMargin;
    cell.right -= CellMargin / 2;
    const HGDIOBJ before = SelectObject(context, plainFont);
    const auto draw = [&](std::size_t start, std::size_t length, HGDIOBJ font) {
        if (length == 0 || cell.left >= cell.right) return;
        SelectObject(context, font);
        const Text part = text.text.substr(start, length);
        DrawTextW(context, Wide(part), int(part.size()), &cell,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        SIZE size{};
        GetTextExtentPoint32W(context, Wide(part), int(part.size()), &size);
        cell.left += size.cx;
    };
    std::size_t at = 0;
    for (const MarkedText::Mark& mark : text.marks) {
        draw(at, mark.start - at, plainFont);
        draw(mark.start, mark.length, markFont.get());
        at = mark.start + mark.length;
    }
    draw(at, text.text.size() - at, plainFont);
    SelectObject(context, before);
}

}  // namespace tellwick::windows
