#include "windows/FormSmsSendLayout.h"

#include <algorithm>

namespace tellwick::windows {

namespace {

// Dialog units.
constexpr int LeastField = 110;    // the width of recipients and message
constexpr int LeastMessage = 40;   // its height
constexpr int LeastTemplate = 80;  // the width of the templates' drop-down
constexpr int ListHeight = 120;    // of an open drop-down with its field
constexpr int CounterHeight = 10;

// As it is now; of a drop-down, its field's.
int HeightOf(const WindowControl& control) {
    RECT place{};
    if (control.Window()) GetWindowRect(control.Window(), &place);
    return int(place.bottom - place.top);
}

}  // namespace

FormSmsSendLayout::FormSmsSendLayout(FormSmsSendControls& controls, const MessageFont& font)
    : controls(controls),
      font(font),
      margin(font.Metrics().Horizontal(6)),
      gapX(font.Metrics().Horizontal(4)),
      gapY(font.Metrics().Vertical(4)),
      rowHeight(font.Metrics().Vertical(14)),
      lineHeight(font.Metrics().Vertical(13)),
      lineGap(font.Metrics().Vertical(2)),
      frameTop(font.Metrics().Vertical(10)),
      column{&controls.buttonSend,   &controls.buttonStore,   &controls.buttonHex,
             &controls.buttonUcs2,   &controls.buttonOptions, &controls.buttonHelp,
             &controls.buttonExpand, &controls.buttonOK} {
    for (const WindowControl* button : column) columnWidth = std::max(columnWidth, Width(*button));
    const auto widest = [this](std::initializer_list<const WindowControl*> boxes) {
        int width = 0;
        for (const WindowControl* box : boxes) width = std::max(width, Width(*box));
        return width + this->font.Metrics().Horizontal(4);
    };
    firstOptions = widest({&controls.checkFlash, &controls.checkLong, &controls.checkSendAndQuit});
    labelExpires = font.Measure(controls.labelExpires.Caption()).cx + gapX;
    secondOptions = std::max(widest({&controls.checkStatus, &controls.checkSetNumber}),
                             labelExpires + font.DropDownWidth(controls.boxExpires));
}

int FormSmsSendLayout::ColumnHeight() const {
    return int(column.size()) * (rowHeight + gapY) - gapY;
}

void FormSmsSendLayout::MoveInRow(Placement& placement, const WindowControl& list, int x, int y,
                                  int width, int row) const {
    placement.Move(list, x, y + (row - HeightOf(list)) / 2, width,
                   font.Metrics().Vertical(ListHeight));
}

SIZE FormSmsSendLayout::Least(bool expanded) const {
    const FontMetrics& metrics = font.Metrics();
    const int field = Width(controls.buttonTo) + gapX + metrics.Horizontal(LeastField);
    const int options = firstOptions + secondOptions + 3 * gapX;
    int width = std::max(field, options) + 2 * gapX + columnWidth;
    int height = std::max(
        rowHeight + metrics.Vertical(LeastMessage + CounterHeight) + OptionsHeight() + 3 * gapY,
        ColumnHeight());
    if (expanded) {
        int templates = metrics.Horizontal(LeastTemplate) + 6 * gapX;
        for (const WindowControl* button : {&controls.buttonAdd, &controls.buttonDel,
                                            &controls.buttonInsert, &controls.buttonFields}) {
            templates += Width(*button);
        }
        width = std::max(width, templates);
        height += TemplatesHeight();
    }
    const int bars = controls.buttonBar1.Arrange() + HeightOf(controls.statusBar1);
    return {width + 2 * margin, height + bars + 2 * gapY};
}

void FormSmsSendLayout::Arrange(SIZE client, bool expanded) {
    controls.statusBar1.Arrange();
    const int top = controls.buttonBar1.Arrange() + gapY;
    const int right = client.cx - margin;
    const int columnLeft = right - columnWidth;
    const int middle = columnLeft - 2 * gapX;  // right edge of recipients and message
    const FontMetrics& metrics = font.Metrics();

    Placement placement;
    int y = top;
    for (const WindowControl* button : column) {
        placement.Move(*button, columnLeft, y, columnWidth, rowHeight);
        y += rowHeight + gapY;
    }
    const int toWidth = Width(controls.buttonTo);
    placement.Move(controls.buttonTo, margin, top, toWidth, rowHeight);
    MoveInRow(placement, controls.textTo, margin + toWidth + gapX, top,
              middle - margin - toWidth - gapX, rowHeight);

    // From below: the templates when shown, the counter, the options, the rest for the message.
    int below = client.cy - HeightOf(controls.statusBar1) - gapY;
    for (WindowControl* part : controls.Templates()) part->SetVisible(expanded);
    if (expanded) {
        below -= TemplatesHeight();
        ArrangeTemplates(placement, below + gapY, right);
    }
    const int counterHeight = metrics.Vertical(CounterHeight);
    below -= counterHeight;
    const int counterWidth = (middle - margin - gapX) / 2;
    placement.Move(controls.labelStatus, margin, below, counterWidth, counterHeight);
    placement.Move(controls.progressBar1, middle - counterWidth, below, counterWidth,
                   counterHeight - metrics.Vertical(2));
    below -= gapY + OptionsHeight();
    placement.Move(controls.frameOptions, margin, below, middle - margin, OptionsHeight());
    ArrangeOptions(placement, below + frameTop);
    const int messageTop = top + rowHeight + gapY;
    placement.Move(controls.message, margin, messageTop, middle - margin,
                   below - gapY - messageTop);
}

void FormSmsSendLayout::ArrangeOptions(Placement& placement, int top) const {
    const int step = lineHeight + lineGap;
    const int first = margin + gapX;
    const int second = first + firstOptions + gapX;
    const int labelDrop = font.Metrics().Vertical(2);  // so that its text is level with the field's
    placement.Move(controls.checkFlash, first, top, firstOptions, lineHeight);
    placement.Move(controls.checkLong, first, top + step, firstOptions, lineHeight);
    placement.Move(controls.checkSendAndQuit, first, top + 2 * step, firstOptions, lineHeight);
    placement.Move(controls.checkStatus, second, top, secondOptions, lineHeight);
    placement.Move(controls.labelExpires, second, top + step + labelDrop, labelExpires,
                   lineHeight - labelDrop);
    MoveInRow(placement, controls.boxExpires, second + labelExpires, top + step,
              font.DropDownWidth(controls.boxExpires), lineHeight);
    placement.Move(controls.checkSetNumber, second, top + 2 * step, secondOptions, lineHeight);
}

void FormSmsSendLayout::ArrangeTemplates(Placement& placement, int top, int right) const {
    placement.Move(controls.frameTextbausteine, margin, top, right - margin,
                   TemplatesHeight() - gapY);
    int left = right - gapX;
    for (const WindowControl* button : {&controls.buttonFields, &controls.buttonInsert,
                                        &controls.buttonDel, &controls.buttonAdd}) {
        const int width = Width(*button);
        left -= width;
        placement.Move(*button, left, top + frameTop, width, rowHeight);
        left -= gapX;
    }
    MoveInRow(placement, controls.comboBoxTextbausteine, margin + gapX, top + frameTop,
              left - margin - gapX, rowHeight);
}

}  // namespace tellwick::windows
