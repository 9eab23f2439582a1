// Where the controls of the SMS form stand: the button bar and the recipients on top, the message
// filling the space, the options and the counter below it, the templates when they are unfolded,
// the buttons in a column on the right, the status bar at the bottom.
#pragma once

#include "windows/FormSmsSendControls.h"

namespace tellwick::windows {

// All sizes follow the font and the captions. Made anew for every use.
class FormSmsSendLayout {
public:
    FormSmsSendLayout(FormSmsSendControls& controls, const MessageFont& font);

    // The least client area that shows everything, in pixels.
    SIZE Least(bool expanded) const;
    // By how much the templates area makes the form higher.
    int TemplatesHeight() const { return frameTop + rowHeight + 2 * gapY; }
    void Arrange(SIZE client, bool expanded);

private:
    int Width(const WindowControl& control) const { return font.CaptionWidth(control.Caption()); }
    int OptionsHeight() const { return frameTop + 3 * lineHeight + 2 * lineGap + gapY; }
    int ColumnHeight() const;
    // Places a drop-down in the middle of a row; its field has the height that its font gives it.
    void MoveInRow(Placement& placement, const WindowControl& list, int x, int y, int width,
                   int row) const;
    void ArrangeOptions(Placement& placement, int top) const;
    void ArrangeTemplates(Placement& placement, int top, int right) const;

    FormSmsSendControls& controls;
    const MessageFont& font;
    const int margin;
    const int gapX;
    const int gapY;
    const int rowHeight;   // of buttons and fields
    const int lineHeight;  // of check boxes and labels
    const int lineGap;
    const int frameTop;  // from a frame's upper edge to what is in it
    std::vector<WindowControl*> column;
    int columnWidth = 0;
    // The options: two columns.
    int firstOptions = 0;
    int labelExpires = 0;
    int secondOptions = 0;
};

}  // namespace tellwick::windows
