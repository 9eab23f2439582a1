// Port: the controls of the program's forms. A form's controls exist as long as the form object;
// while the form is not loaded, reading them gives empty values and writing is forgotten.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

class Control {
public:
    virtual ~Control() = default;
    virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual void SetFocus() = 0;
    virtual bool HasFocus() const = 0;
    // Caption of labels, buttons, check boxes and frames, with "&" before the mnemonic; other
    // controls have none. A tool tip of "" is none.
    virtual Text Caption() const = 0;
    virtual void SetCaption(TextView caption) = 0;
    virtual void SetToolTip(TextView text) = 0;
};

// Or an option button, of which setting one leaves the others of its group alone.
class CheckBox : public virtual Control {
public:
    virtual bool Checked() const = 0;
    virtual void SetChecked(bool checked) = 0;
};

// A text with a caret. Positions count UTF-16 code units from 0; a line break counts two.
// Setting a different text puts the caret at 0 and raises the change event before it returns.
class TextBox : public virtual Control {
public:
    virtual Text GetText() const = 0;
    virtual void SetText(TextView text) = 0;
    virtual std::int32_t SelectionStart() const = 0;
    virtual std::int32_t SelectionLength() const = 0;
    // Out-of-range values are brought into range.
    virtual void Select(std::int32_t start, std::int32_t length) = 0;
    // Replaces the selection (inserts at the caret when it is empty), leaves the caret behind the
    // new text and raises the change event.
    virtual void ReplaceSelection(TextView text) = 0;
    // Takes back the last change that the user or ReplaceSelection made, if it is still known, and
    // raises the change event.
    virtual void Undo() = 0;
};

// Items count from 0; an index of -1 is none.
class ItemList : public virtual Control {
public:
    virtual void Clear() = 0;
    virtual void Add(TextView item) = 0;
    virtual std::int32_t Count() const = 0;
    virtual Text Item(std::int32_t index) const = 0;
    virtual std::int32_t SelectedIndex() const = 0;
    // Raises no event. In a combo box the item's text goes to the edit field.
    virtual void SetSelectedIndex(std::int32_t index) = 0;
};

class ListBox : public virtual ItemList {
public:
    // In place of those that are there, drawn once; none is selected.
    virtual void SetItems(const std::vector<Text>& items) = 0;
    // Behind those that are there, drawn once.
    virtual void AddItems(const std::vector<Text>& items) = 0;
};

// A text of which some parts are marked; start and length in UTF-16 code units, ascending.
struct MarkedText {
    struct Mark {
        std::size_t start, length;
    };
    Text text;
    std::vector<Mark> marks;
};

// A list with columns, of which several rows can be chosen. It holds no texts but asks for those
// that are to be seen. Rows and columns count from 0.
class ListView : public virtual Control {
public:
    using CellSource = std::function<MarkedText(std::size_t row, std::size_t column)>;
    // The next row, from one on and around, that begins so.
    using RowFinder =
        std::function<std::optional<std::size_t>(std::size_t first, TextView beginning)>;

    // Raises nothing. The finder is for who types a beginning while the list has the focus.
    virtual void SetSource(CellSource source, RowFinder finder) = 0;
    // All rows may be others now; none is chosen, and the first is the one the arrows go on from.
    virtual void SetRowCount(std::size_t rows) = 0;
    // So many rows are there now: those before, and others behind them.
    virtual void AddRows(std::size_t rows) = 0;
    virtual std::size_t RowCount() const = 0;
    virtual std::size_t ChosenCount() const = 0;
    // The first of them, at most so many, ascending.
    virtual std::vector<std::size_t> ChosenRows(std::size_t most) const = 0;
    virtual void ChooseRow(std::size_t row) = 0;
    virtual void SetColumnCaption(std::size_t column, TextView caption) = 0;
    // Shows by an arrow how the rows are sorted.
    virtual void SetSorted(std::size_t column, bool descending) = 0;
    // In pixels at 96 to the inch.
    virtual std::int32_t ColumnWidth(std::size_t column) const = 0;
    virtual void SetColumnWidth(std::size_t column, std::int32_t width) = 0;
};

// A drop-down list with an edit field. Clearing the list keeps the text of the edit field.
class ComboBox : public virtual ItemList, public virtual TextBox {
public:
    // Whether the list is open.
    virtual bool Dropped() const = 0;
};

// A text to be read, put together from pieces.
class StyledText : public virtual Control {
public:
    enum class Style { Plain, Heading, Filled, Marked };
    struct Piece {
        Style style;
        Text text;
    };
    virtual void SetPieces(const std::vector<Piece>& pieces) = 0;
};

class ProgressBar : public virtual Control {
public:
    // 0 to 100.
    virtual void SetValue(std::int32_t percent) = 0;
};

class StatusBar : public virtual Control {
public:
    virtual Text GetText() const = 0;
    virtual void SetText(TextView text) = 0;
    // A pane of its own at the right end, which leaves the bar's text its place: as wide as its
    // text, or as the short one where both do not fit. An empty text takes it away. The tool tip
    // of the bar is the pane's.
    virtual void SetPane(TextView text, TextView shortText) = 0;
};

}  // namespace tellwick
