// A list with columns over the system's list view, which is told the texts it shows and no others.
#pragma once

#include "windows/WindowControls.h"

#include <commctrl.h>

namespace tellwick::windows {

class WindowListView : public ListView, public WindowControl {
public:
    static constexpr DWORD Style = WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS | LVS_OWNERDATA;

    void SetSource(CellSource newSource, RowFinder newFinder) override {
        source = std::move(newSource);
        finder = std::move(newFinder);
    }
    void SetRowCount(std::size_t rows) override;
    void AddRows(std::size_t rows) override;
    std::size_t RowCount() const override;
    std::size_t ChosenCount() const override { return std::size_t(Send(LVM_GETSELECTEDCOUNT)); }
    std::vector<std::size_t> ChosenRows(std::size_t most) const override;
    void ChooseRow(std::size_t row) override;
    void SetColumnCaption(std::size_t column, TextView caption) override;
    void SetSorted(std::size_t column, bool descending) override;
    std::int32_t ColumnWidth(std::size_t column) const override;
    void SetColumnWidth(std::size_t column, std::int32_t width) override;

    void ChooseAll();
    // The form's resolution, which the columns' widths follow.
    void SetResolution(int dotsPerInch);
    // What the control asks its form, but for clicks.
    LRESULT Answer(const NMHDR& notification);

private:
    std::size_t Columns() const;
    LRESULT Draw(NMLVCUSTOMDRAW& drawing);
    void DrawMarked(HDC context, RECT cell, const MarkedText& text) const;
    LRESULT FindRow(const NMLVFINDITEMW& wanted) const;

    CellSource source;
    RowFinder finder;
    int resolution = 96;
    GdiObject markFont;  // made of the other
    HFONT plainFont = nullptr;
};

}  // namespace tellwick::windows
