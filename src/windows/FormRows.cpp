#include "windows/FormRows.h"

namespace tellwick::windows {

namespace {

int HeightOf(const WindowComboBox& dropDown) {
    const auto item = int(SendMessageW(dropDown.Window(), CB_GETITEMHEIGHT, WPARAM(-1), 0));
    return item + 2 * GetSystemMetrics(SM_CYFIXEDFRAME);
}

}  // namespace

FormRows::FormRows(const MessageFont& font, const WindowComboBox& dropDown, int innerWidth,
                   Placement* placement)
    : FormRows(font, HeightOf(dropDown), innerWidth, placement) {}

FormRows::FormRows(const MessageFont& font, int boxHeight, int innerWidth, Placement* placement)
    : frameLeft(font.Metrics().Horizontal(Margin)),
      left(2 * frameLeft),
      right(left + innerWidth),
      frameRight(right + frameLeft),
      rowHeight(std::max(font.Metrics().Vertical(14), boxHeight)),
      font(font),
      boxHeight(boxHeight),
      placement(placement) {
    Drop(Margin);
}

int FormRows::LastRow(const WindowControl& ok, const WindowControl& cancel, int edge) const {
    const FontMetrics& metrics = font.Metrics();
    const int width = std::max({metrics.Horizontal(50), font.CaptionWidth(ok.Caption()),
                                font.CaptionWidth(cancel.Caption())});
    const int cancelLeft = edge - width;
    const int okRight = cancelLeft - metrics.Horizontal(4);
    Button(ok, okRight - width, okRight);
    Button(cancel, cancelLeft, edge);
    return y + rowHeight + metrics.Vertical(Margin);
}

}  // namespace tellwick::windows
