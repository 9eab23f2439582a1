// Lays out the controls of a form that is a column of frames.
#pragma once

#include <algorithm>

#include "windows/FormControls.h"
#include "windows/FormWindow.h"

namespace tellwick::windows {

// Lays controls out from top to bottom, frame by frame. Without a placement it only counts the
// height.
class FormRows {
public:
    static constexpr int Margin = 7;  // dialog units

    const int frameLeft;
    const int left;  // within the frames
    const int right;
    const int frameRight;
    const int rowHeight;

    // Of a form without drop-downs.
    FormRows(const MessageFont& font, int innerWidth, Placement* placement)
        : FormRows(font, 0, innerWidth, placement) {}
    // The drop-down is one of the form's, all of which have its height.
    FormRows(const MessageFont& font, const WindowComboBox& dropDown, int innerWidth,
             Placement* placement);

    // Moves on by dialog units.
    void Drop(int dialogUnits) { y += font.Metrics().Vertical(dialogUnits); }
    int Y() const { return y; }
    void GoTo(int newY) { y = newY; }

    void Begin() {
        frameTop = y;
        Drop(11);
    }
    void End(const WindowControl& frame) {
        Drop(3);
        Put(frame, frameLeft, frameRight, frameTop, y - frameTop);
        Drop(5);
    }

    void Line(const WindowControl& box) {
        Put(box, left, right, y, font.Metrics().Vertical(12));
        Drop(14);
    }
    void Wrapped(const WindowControl& label) {
        const int height = font.Measure(label.Caption(), right - left).cy;
        Put(label, left, right, y, height);
        y += height;
        Drop(4);
    }

    // Parts of one row, level with each other.
    void Button(const WindowControl& button, int from, int to) const {
        Put(button, from, to, y, rowHeight);
    }
    void Label(const WindowControl& label, int from, int to) const {
        Middle(label, from, to, font.Metrics().lineHeight);
    }
    void Field(const WindowControl& field, int from, int to) const {
        // The text stands one pixel below the edge.
        Middle(field, from, to, font.Metrics().lineHeight + 2 * (GetSystemMetrics(SM_CYEDGE) + 1));
    }
    void DropDown(const WindowControl& box, int from, int to) const {
        constexpr int ListHeight = 120;  // dialog units, of an open one with its field
        Put(box, from, to, y + (rowHeight - boxHeight) / 2, font.Metrics().Vertical(ListHeight));
    }
    void EndRow() {
        y += rowHeight;
        Drop(3);
    }

    // The last row, at the right edge. The height of the whole form.
    int LastRow(const WindowControl& ok, const WindowControl& cancel, int edge) const;

private:
    FormRows(const MessageFont& font, int boxHeight, int innerWidth, Placement* placement);
    void Middle(const WindowControl& control, int from, int to, int height) const {
        Put(control, from, to, y + (rowHeight - height) / 2, height);
    }
    void Put(const WindowControl& control, int from, int to, int top, int height) const {
        if (placement) placement->Move(control, from, top, to - from, height);
    }

    const MessageFont& font;
    const int boxHeight;  // of a closed drop-down
    Placement* const placement;
    int y = 0;
    int frameTop = 0;
};

// A form of such rows, which is no larger than they need.
template <class View>
class FormOfRows : public FormViewWindow<View> {
protected:
    // The width within the frames that the rows need.
    virtual int InnerWidth() const = 0;
    // The height that all controls take.
    virtual int Arrange(int innerWidth, Placement* placement) const = 0;

    SIZE LeastClient() const override {
        const int width = InnerWidth();
        return {width + Margins(), Arrange(width, nullptr)};
    }
    SIZE UsualClient() const override { return LeastClient(); }
    void OnSize() override {
        if (!this->Loaded()) return;
        RECT client;
        GetClientRect(FormWindow::Window(), &client);
        Placement placement;
        Arrange(int(client.right) - Margins(), &placement);
    }

private:
    int Margins() const { return this->Font().Metrics().Horizontal(4 * FormRows::Margin); }
};

}  // namespace tellwick::windows
