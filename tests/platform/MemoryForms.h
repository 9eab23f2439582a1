// The forms' windows as plain values. While a form is not loaded its controls read as empty and
// forget what is written.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

#include "compose/FormOptionsView.h"
#include "compose/FormSmsPreviewView.h"
#include "compose/FormSmsSelectAddressView.h"
#include "compose/FormSmsSendView.h"
#include "compose/FormSupportView.h"

namespace tellwick::test {

class MemoryControl : public virtual Control {
public:
    bool Enabled() const override { return enabled; }
    void SetEnabled(bool newEnabled) override { enabled = newEnabled; }
    bool Visible() const override { return visible; }
    void SetVisible(bool newVisible) override { visible = newVisible; }
    void SetFocus() override { focus = this; }
    bool HasFocus() const override { return focus == this; }
    Text Caption() const override { return caption; }
    void SetCaption(TextView newCaption) override { caption = newCaption; }
    void SetToolTip(TextView) override {}

    bool loaded = false;
    bool enabled = true;
    bool visible = true;
    Text caption;
    static inline const MemoryControl* focus = nullptr;
};

class MemoryCheckBox : public CheckBox, public MemoryControl {
public:
    bool Checked() const override { return checked; }
    void SetChecked(bool newChecked) override { checked = newChecked; }
    bool checked = false;
};

class MemoryTextBox : public virtual TextBox, public MemoryControl {
public:
    Text GetText() const override { return loaded ? text : Text(); }
    void SetText(TextView newText) override {
        if (!loaded || text == newText) return;
        text = newText;
        before.reset();
        start = length = 0;
        if (onChange) onChange();
    }
    std::int32_t SelectionStart() const override { return start; }
    std::int32_t SelectionLength() const override { return length; }
    void Select(std::int32_t newStart, std::int32_t newLength) override {
        const auto end = std::int32_t(text.size());
        start = std::clamp(newStart, 0, end);
        length = std::clamp(newLength, 0, end - start);
    }
    void ReplaceSelection(TextView newText) override {
        if (!loaded) return;
        before = text;
        text.replace(std::size_t(start), std::size_t(length), newText);
        start += std::int32_t(newText.size());
        length = 0;
        if (onChange) onChange();
    }
    // One step, as the system's boxes have it.
    void Undo() override {
        if (!before) return;
        std::swap(text, *before);
        if (onChange) onChange();
    }
    std::function<void()> onChange;
    Text text;
    std::optional<Text> before;
    std::int32_t start = 0;
    std::int32_t length = 0;
};

class MemoryList : public virtual ItemList {
public:
    void Clear() override {
        items.clear();
        selected = -1;
    }
    void Add(TextView item) override { items.emplace_back(item); }
    std::int32_t Count() const override { return std::int32_t(items.size()); }
    Text Item(std::int32_t index) const override { return items.at(std::size_t(index)); }
    std::int32_t SelectedIndex() const override { return selected; }
    void SetSelectedIndex(std::int32_t index) override { selected = index; }
    // The user chooses the first item that begins so.
    void ChooseItem(TextView beginning) {
        const auto found = std::ranges::find_if(
            items, [&](const Text& item) { return StartsWith(item, beginning); });
        if (found == items.end()) throw std::out_of_range("no such item");
        selected = std::int32_t(found - items.begin());
    }
    std::vector<Text> items;
    std::int32_t selected = -1;
};

class MemoryListBox : public ListBox, public MemoryList, public MemoryControl {
public:
    void SetItems(const std::vector<Text>& newItems) override {
        items = newItems;
        selected = -1;
    }
    void AddItems(const std::vector<Text>& more) override {
        items.insert(items.end(), more.begin(), more.end());
    }
};

class MemoryListView : public ListView, public MemoryControl {
public:
    void SetSource(CellSource newSource, RowFinder newFinder) override {
        source = std::move(newSource);
        finder = std::move(newFinder);
    }
    void SetRowCount(std::size_t newRows) override {
        rows = newRows;
        chosen.clear();
    }
    void AddRows(std::size_t newRows) override { rows = newRows; }
    std::size_t RowCount() const override { return rows; }
    std::size_t ChosenCount() const override { return chosen.size(); }
    std::vector<std::size_t> ChosenRows(std::size_t most) const override {
        return {chosen.begin(), chosen.begin() + std::ptrdiff_t(std::min(most, chosen.size()))};
    }
    void ChooseRow(std::size_t row) override { chosen = {row}; }
    void SetColumnCaption(std::size_t, TextView) override {}
    void SetSorted(std::size_t, bool) override {}
    std::int32_t ColumnWidth(std::size_t column) const override { return widths[column]; }
    void SetColumnWidth(std::size_t column, std::int32_t width) override { widths[column] = width; }
    // A cell with marks in brackets.
    Text Cell(std::size_t row, std::size_t column) const {
        const MarkedText marked = source(row, column);
        Text text = marked.text;
        for (auto mark = marked.marks.rbegin(); mark != marked.marks.rend(); ++mark) {
            text.insert(mark->start + mark->length, u"]");
            text.insert(mark->start, u"[");
        }
        return text;
    }

    CellSource source;
    RowFinder finder;
    std::size_t rows = 0;
    std::vector<std::size_t> chosen;
    std::array<std::int32_t, 4> widths{};
};

class MemoryComboBox : public ComboBox, public MemoryList, public MemoryTextBox {
public:
    void SetSelectedIndex(std::int32_t index) override {
        selected = index;
        if (index >= 0) text = Item(index);
    }
    // The user chooses an item of the drop-down.
    void Choose(std::int32_t index) {
        SetSelectedIndex(index);
        if (onClick) onClick();
    }
    bool Dropped() const override { return dropped; }
    std::function<void()> onClick;
    bool dropped = false;
};

class MemoryProgressBar : public ProgressBar, public MemoryControl {
public:
    void SetValue(std::int32_t) override {}
};

class MemoryStatusBar : public StatusBar, public MemoryControl {
public:
    Text GetText() const override { return caption; }
    void SetText(TextView text) override { caption = text; }
    void SetPane(TextView text, TextView shortText) override {
        pane = text;
        shortPane = shortText;
    }
    Text pane, shortPane;
};

// What the windows have in common; View is the port of one of them. A control is made when it is
// first asked for, which the window's constructor does.
template <class View>
class MemoryFormView : public View {
public:
    bool Load() override {
        SetLoaded(true);
        seen = false;
        return true;
    }
    bool Loaded() const override { return loaded; }
    void Show() override {
        ++shown;
        seen = true;
    }
    void Unload() override { SetLoaded(false); }
    FormPlace Place() const override { return place; }
    void SetPlace(const FormPlace& newPlace, bool newPositioned) override {
        place = newPlace;
        positioned = newPositioned;
    }
    void SetCaption(TextView newCaption) override { caption = newCaption; }
    void ForEachControl(const std::function<void(TextView, Control&)>& visit) override {
        for (const auto& [name, control] : controls) visit(name, *control);
    }

    int shown = 0;
    bool seen = false;  // since it was loaded
    FormPlace place{10, 20, 400, 300};
    bool positioned = false;
    Text caption;

protected:
    // The control of that name, of the kind that is wanted.
    struct Owned {
        template <class Kind>
        operator Kind&() const {
            std::unique_ptr<MemoryControl>& control = form.controls[name];
            if (!control) control = std::make_unique<Kind>();
            return static_cast<Kind&>(*control);
        }
        MemoryFormView& form;
        TextView name;
    };
    Owned Own(TextView name) { return {*this, name}; }
    template <class... Controls>
    static void Have(const Controls&...) {}

private:
    void SetLoaded(bool nowLoaded) {
        loaded = nowLoaded;
        for (const auto& [name, control] : controls) control->loaded = nowLoaded;
    }
    std::map<TextView, std::unique_ptr<MemoryControl>> controls;
    bool loaded = false;
};

class MemoryFormSmsSendView final : public MemoryFormView<FormSmsSendView> {
public:
    MemoryFormSmsSendView() {
        Have(CheckStatus(), BoxExpires(), CheckSendAndQuit(), CheckSetNumber(), TextTo(),
             ListBoxNumbers(), Message(), CheckFlash(), CheckLong(), ComboBoxTextbausteine(),
             ButtonExpand(), ButtonHex(), ButtonUcs2(), LabelStatus(), ProgressBar1(),
             StatusBar1());
        ListBoxNumbers().visible = false;
    }
    MemoryCheckBox& CheckStatus() override { return Own(u"CheckStatus"); }
    MemoryListBox& BoxExpires() override { return Own(u"BoxExpires"); }
    MemoryCheckBox& CheckSendAndQuit() override { return Own(u"CheckSendAndQuit"); }
    MemoryCheckBox& CheckSetNumber() override { return Own(u"CheckSetNumber"); }
    MemoryCheckBox& ButtonBar1(BarButton button) override { return bar[std::size_t(button)]; }
    void LoadBackGround() override {}
    MemoryComboBox& TextTo() override { return Own(u"TextTo"); }
    MemoryListBox& ListBoxNumbers() override { return Own(u"ListBoxNumbers"); }
    MemoryTextBox& Message() override { return Own(u"Message"); }
    MemoryCheckBox& CheckFlash() override { return Own(u"CheckFlash"); }
    MemoryCheckBox& CheckLong() override { return Own(u"CheckLong"); }
    MemoryComboBox& ComboBoxTextbausteine() override { return Own(u"ComboBoxTextbausteine"); }
    MemoryControl& ButtonExpand() override { return Own(u"ButtonExpand"); }
    MemoryControl& ButtonHex() override { return Own(u"ButtonHex"); }
    MemoryControl& ButtonUcs2() override { return Own(u"ButtonUcs2"); }
    MemoryControl& LabelStatus() override { return Own(u"LabelStatus"); }
    MemoryProgressBar& ProgressBar1() override { return Own(u"ProgressBar1"); }
    MemoryStatusBar& StatusBar1() override { return Own(u"StatusBar1"); }
    void Unload() override {
        ComboBoxTextbausteine().Clear();
        MemoryFormView::Unload();
    }
    void Resize(bool nowExpanded) override { expanded = nowExpanded; }
    void PlaceListBoxNumbers(std::int32_t newRows) override { rows = newRows; }
    std::int32_t ButtonFields_Menu(const std::vector<Text>& entries) override {
        menu = entries;
        return chosen;
    }
    void SetMessageFont(TextView name, std::int32_t points) override {
        messageFont = Text(name) + u" " + NumberText(points);
    }
    void SetEvents(FormSmsSendEvents& events) override {
        TextTo().onChange = [&events] { events.TextTo_Change(); };
        TextTo().onClick = [&events] { events.TextTo_Click(); };
        Message().onChange = [&events] { events.Message_Change(); };
    }

    bool expanded = false;
    std::int32_t rows = 0;
    std::vector<Text> menu;
    std::int32_t chosen = -1;  // of the menu
    Text messageFont;          // name and points

private:
    std::array<MemoryCheckBox, 6> bar;
};

class MemoryFormSupportView final : public MemoryFormView<FormSupportView> {
public:
    MemoryFormSupportView() { Have(TextContents()); }
    MemoryTextBox& TextContents() override { return Own(u"TextContents"); }
    void SetEvents(FormSupportEvents&) override {}
};

class MemoryFormOptionsView final : public MemoryFormView<FormOptionsView> {
public:
    MemoryFormOptionsView() {
        Have(CheckStoreNumbers(), CheckNumberCache(), LabelNumUsedNumber(), TextNumUsedNumber(),
             OptionNational(), OptionInternational(), TextPrefixes(), BoxFont(), BoxFontSize(),
             BoxLanguage(), CheckAirCount(), CheckAskLostCharacters(), CheckForgetAnswers(),
             CheckTrace(), LabelFixed());
    }
    MemoryCheckBox& CheckStoreNumbers() override { return Own(u"CheckStoreNumbers"); }
    MemoryCheckBox& CheckNumberCache() override { return Own(u"CheckNumberCache"); }
    MemoryControl& LabelNumUsedNumber() override { return Own(u"LabelNumUsedNumber"); }
    MemoryTextBox& TextNumUsedNumber() override { return Own(u"TextNumUsedNumber"); }
    MemoryCheckBox& OptionNational() override { return Own(u"OptionNational"); }
    MemoryCheckBox& OptionInternational() override { return Own(u"OptionInternational"); }
    MemoryTextBox& TextPrefixes() override { return Own(u"TextPrefixes"); }
    MemoryListBox& BoxFont() override { return Own(u"BoxFont"); }
    MemoryListBox& BoxFontSize() override { return Own(u"BoxFontSize"); }
    MemoryListBox& BoxLanguage() override { return Own(u"BoxLanguage"); }
    MemoryCheckBox& CheckAirCount() override { return Own(u"CheckAirCount"); }
    MemoryCheckBox& CheckAskLostCharacters() override { return Own(u"CheckAskLostCharacters"); }
    MemoryCheckBox& CheckForgetAnswers() override { return Own(u"CheckForgetAnswers"); }
    MemoryCheckBox& CheckTrace() override { return Own(u"CheckTrace"); }
    MemoryControl& LabelFixed() override { return Own(u"LabelFixed"); }
    std::vector<Text> FontNames() override { return {u"Arial", u"Tahoma"}; }
    void SetEvents(FormOptionsEvents&) override {}
};

// Pieces one behind the other, a marked one in "<" and ">", one filled in between "[" and "]".
class MemoryStyledText : public StyledText, public MemoryControl {
public:
    void SetPieces(const std::vector<Piece>& pieces) override {
        text.clear();
        for (const Piece& piece : pieces) {
            text += piece.style == Style::Marked   ? u"<" + piece.text + u">"
                    : piece.style == Style::Filled ? u"[" + piece.text + u"]"
                                                   : piece.text;
        }
    }
    Text text;
};

class MemoryFormSmsPreviewView final : public MemoryFormView<FormSmsPreviewView> {
public:
    MemoryFormSmsPreviewView() {
        Have(LabelCount(), TextParts(), ListCharacters(), ButtonReplace(), ButtonReplaceAll(),
             LabelPerson(), ButtonBack(), ButtonForward(), ListMissing());
    }
    void SetPersonal(bool newPersonal) override { personal = newPersonal; }
    MemoryControl& LabelPerson() override { return Own(u"LabelPerson"); }
    MemoryControl& ButtonBack() override { return Own(u"ButtonBack"); }
    MemoryControl& ButtonForward() override { return Own(u"ButtonForward"); }
    MemoryListBox& ListMissing() override { return Own(u"ListMissing"); }
    bool personal = false;
    MemoryControl& LabelCount() override { return Own(u"LabelCount"); }
    MemoryStyledText& TextParts() override { return Own(u"TextParts"); }
    MemoryListBox& ListCharacters() override { return Own(u"ListCharacters"); }
    MemoryControl& ButtonReplace() override { return Own(u"ButtonReplace"); }
    MemoryControl& ButtonReplaceAll() override { return Own(u"ButtonReplaceAll"); }
    void SetEvents(FormSmsPreviewEvents&) override {}
};

class MemoryFormSmsSelectAddressView final : public MemoryFormView<FormSmsSelectAddressView> {
public:
    MemoryFormSmsSelectAddressView() {
        Have(TextSearch(), BoxFolder(), ListAddresses(), ListChosen(), ButtonAdd(), ButtonRemove(),
             ButtonOK(), StatusBar1());
    }
    MemoryTextBox& TextSearch() override { return Own(u"TextSearch"); }
    MemoryListBox& BoxFolder() override { return Own(u"BoxFolder"); }
    MemoryListView& ListAddresses() override { return Own(u"ListAddresses"); }
    MemoryListBox& ListChosen() override { return Own(u"ListChosen"); }
    MemoryControl& ButtonAdd() override { return Own(u"ButtonAdd"); }
    MemoryControl& ButtonRemove() override { return Own(u"ButtonRemove"); }
    MemoryControl& ButtonOK() override { return Own(u"ButtonOK"); }
    MemoryStatusBar& StatusBar1() override { return Own(u"StatusBar1"); }
    void SetEvents(FormSmsSelectAddressEvents& events) override {
        TextSearch().onChange = [&events] { events.TextSearch_Change(); };
    }
};

}  // namespace tellwick::test
