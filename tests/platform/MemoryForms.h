// The forms' windows as plain values. While a form is not loaded its controls read as empty and
// forget what is written.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "compose/FormOptionsView.h"
#include "compose/FormSmsPreviewView.h"
#include "compose/FormSmsSelectAddressView.h"
#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendView.h"
#include "compose/MessageText.h"
#include "recipients/RecipientField.h"

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
    void SetToolTip(TextView newToolTip) override { toolTip = newToolTip; }

    bool loaded = false;
    bool enabled = true;
    bool visible = true;
    Text caption;
    Text toolTip;
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
    std::vector<Text> items;
    std::int32_t selected = -1;
};

class MemoryListBox : public ListBox, public MemoryList, public MemoryControl {
public:
    void SetItems(const std::vector<Text>& newItems) override {
        items = newItems;
        selected = -1;
    }
};

class MemoryListView : public ListView, public MemoryControl {
public:
    void SetSource(CellSource newSource) override { source = std::move(newSource); }
    void SetRowCount(std::size_t newRows) override {
        rows = newRows;
        chosen.clear();
    }
    std::size_t RowCount() const override { return rows; }
    std::vector<std::size_t> ChosenRows() const override { return chosen; }
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
    std::function<void()> onClick;
};

class MemoryProgressBar : public ProgressBar, public MemoryControl {
public:
    void SetValue(std::int32_t newPercent) override { percent = newPercent; }
    std::int32_t percent = 0;
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

// What the windows have in common; View is the port of one of them.
template <class View>
class MemoryFormView : public View {
public:
    bool Load() override {
        SetLoaded(true);
        return true;
    }
    bool Loaded() const override { return loaded; }
    void Show() override { ++shown; }
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
    FormPlace place{10, 20, 400, 300};
    bool positioned = false;
    Text caption;
    std::vector<std::pair<TextView, MemoryControl*>> controls;

private:
    void SetLoaded(bool nowLoaded) {
        loaded = nowLoaded;
        for (const auto& [name, control] : controls) control->loaded = nowLoaded;
    }
    bool loaded = false;
};

class MemoryFormSmsSendView : public MemoryFormView<FormSmsSendView> {
public:
    MemoryFormSmsSendView() {
        controls = {{u"TextTo", &textTo},
                    {u"ButtonTo", &buttonTo},
                    {u"ListBoxNumbers", &numbers},
                    {u"Message", &message},
                    {u"CheckFlash", &checkFlash},
                    {u"CheckLong", &checkLong},
                    {u"ButtonAdd", &buttonAdd},
                    {u"ComboBoxTextbausteine", &templates},
                    {u"ButtonDel", &buttonDel},
                    {u"ButtonInsert", &buttonInsert},
                    {u"ButtonSend", &buttonSend},
                    {u"ButtonStore", &buttonStore},
                    {u"ButtonOK", &buttonOK},
                    {u"ButtonExpand", &buttonExpand},
                    {u"ButtonHex", &buttonHex},
                    {u"ButtonUcs2", &buttonUcs2},
                    {u"LabelStatus", &labelStatus},
                    {u"ProgressBar1", &progressBar},
                    {u"CheckStatus", &checkStatus},
                    {u"BoxExpires", &boxExpires},
                    {u"CheckSendAndQuit", &checkSendAndQuit},
                    {u"CheckSetNumber", &checkSetNumber},
                    {u"StatusBar1", &statusBar}};
        numbers.visible = false;
    }
    MemoryCheckBox& CheckStatus() override { return checkStatus; }
    MemoryListBox& BoxExpires() override { return boxExpires; }
    MemoryCheckBox& CheckSendAndQuit() override { return checkSendAndQuit; }
    MemoryCheckBox& CheckSetNumber() override { return checkSetNumber; }
    MemoryCheckBox& ButtonBar1(BarButton button) override { return bar[std::size_t(button)]; }
    void LoadBackGround() override {}
    MemoryComboBox& TextTo() override { return textTo; }
    MemoryListBox& ListBoxNumbers() override { return numbers; }
    MemoryTextBox& Message() override { return message; }
    MemoryCheckBox& CheckFlash() override { return checkFlash; }
    MemoryCheckBox& CheckLong() override { return checkLong; }
    MemoryComboBox& ComboBoxTextbausteine() override { return templates; }
    MemoryControl& ButtonExpand() override { return buttonExpand; }
    MemoryControl& ButtonHex() override { return buttonHex; }
    MemoryControl& ButtonUcs2() override { return buttonUcs2; }
    MemoryControl& LabelStatus() override { return labelStatus; }
    MemoryProgressBar& ProgressBar1() override { return progressBar; }
    MemoryStatusBar& StatusBar1() override { return statusBar; }
    void Resize(bool nowExpanded) override { expanded = nowExpanded; }
    void PlaceListBoxNumbers(std::int32_t newRows) override { rows = newRows; }
    void SetMessageFont(TextView name, std::int32_t points) override {
        messageFont = Text(name) + u" " + NumberText(points);
    }
    void SetHandlers(FormSmsSend& form, const FormSmsSendParts& parts) override {
        textTo.onChange = [&form, &field = parts.recipientField] {
            field.TextTo_Change();
            form.Contents_Change();
        };
        textTo.onClick = [&form, &field = parts.recipientField] {
            field.TextTo_Click();
            form.Contents_Change();
        };
        message.onChange = [&form, &text = parts.messageText] {
            text.Message_Change();
            form.Contents_Change();
        };
    }

    bool expanded = false;
    std::int32_t rows = 0;
    Text messageFont;  // name and points

private:
    MemoryComboBox textTo, templates;
    MemoryListBox numbers, boxExpires;
    MemoryTextBox message;
    MemoryCheckBox checkFlash, checkLong, checkStatus, checkSendAndQuit, checkSetNumber;
    std::array<MemoryCheckBox, 6> bar;
    MemoryControl buttonTo, buttonAdd, buttonDel, buttonInsert, buttonSend, buttonStore, buttonOK,
        buttonExpand, buttonHex, buttonUcs2, labelStatus;
    MemoryProgressBar progressBar;
    MemoryStatusBar statusBar;
};

class MemoryFormOptionsView : public MemoryFormView<FormOptionsView> {
public:
    MemoryFormOptionsView() {
        controls = {{u"CheckStoreNumbers", &checkStoreNumbers},
                    {u"CheckNumberCache", &checkNumberCache},
                    {u"LabelNumUsedNumber", &labelNumUsedNumber},
                    {u"TextNumUsedNumber", &textNumUsedNumber},
                    {u"TextPrefixes", &textPrefixes},
                    {u"ButtonPrefix", &buttonPrefix},
                    {u"BoxFont", &boxFont},
                    {u"BoxFontSize", &boxFontSize},
                    {u"BoxLanguage", &boxLanguage},
                    {u"CheckAirCount", &checkAirCount},
                    {u"CheckAskLostCharacters", &checkAskLostCharacters},
                    {u"CheckForgetAnswers", &checkForgetAnswers},
                    {u"CheckTrace", &checkTrace}};
    }
    MemoryCheckBox& CheckStoreNumbers() override { return checkStoreNumbers; }
    MemoryCheckBox& CheckNumberCache() override { return checkNumberCache; }
    MemoryControl& LabelNumUsedNumber() override { return labelNumUsedNumber; }
    MemoryTextBox& TextNumUsedNumber() override { return textNumUsedNumber; }
    MemoryTextBox& TextPrefixes() override { return textPrefixes; }
    MemoryControl& ButtonPrefix() override { return buttonPrefix; }
    MemoryListBox& BoxFont() override { return boxFont; }
    MemoryListBox& BoxFontSize() override { return boxFontSize; }
    MemoryListBox& BoxLanguage() override { return boxLanguage; }
    MemoryCheckBox& CheckAirCount() override { return checkAirCount; }
    MemoryCheckBox& CheckAskLostCharacters() override { return checkAskLostCharacters; }
    MemoryCheckBox& CheckForgetAnswers() override { return checkForgetAnswers; }
    MemoryCheckBox& CheckTrace() override { return checkTrace; }
    std::vector<Text> FontNames() override { return fontNames; }
    void SetEvents(FormOptionsEvents&) override {}

    std::vector<Text> fontNames{u"Arial", u"Tahoma"};

private:
    MemoryCheckBox checkStoreNumbers, checkNumberCache, checkAirCount, checkAskLostCharacters,
        checkForgetAnswers, checkTrace;
    MemoryControl labelNumUsedNumber, buttonPrefix;
    MemoryTextBox textNumUsedNumber, textPrefixes;
    MemoryListBox boxFont, boxFontSize, boxLanguage;
};

// Pieces one behind the other, a marked one in "<" and ">".
class MemoryStyledText : public StyledText, public MemoryControl {
public:
    void SetPieces(const std::vector<Piece>& pieces) override {
        text.clear();
        for (const Piece& piece : pieces) {
            text += piece.style == Style::Marked ? u"<" + piece.text + u">" : piece.text;
        }
    }
    Text text;
};

class MemoryFormSmsPreviewView : public MemoryFormView<FormSmsPreviewView> {
public:
    MemoryFormSmsPreviewView() {
        controls = {{u"LabelCount", &labelCount},
                    {u"TextParts", &parts},
                    {u"ListCharacters", &list},
                    {u"ButtonReplace", &buttonReplace},
                    {u"ButtonReplaceAll", &buttonReplaceAll}};
    }
    MemoryControl& LabelCount() override { return labelCount; }
    MemoryStyledText& TextParts() override { return parts; }
    MemoryListBox& ListCharacters() override { return list; }
    MemoryControl& ButtonReplace() override { return buttonReplace; }
    MemoryControl& ButtonReplaceAll() override { return buttonReplaceAll; }
    void SetEvents(FormSmsPreviewEvents&) override {}

private:
    MemoryStyledText parts;
    MemoryListBox list;
    MemoryControl labelCount, buttonReplace, buttonReplaceAll;
};

class MemoryFormSmsSelectAddressView : public MemoryFormView<FormSmsSelectAddressView> {
public:
    MemoryFormSmsSelectAddressView() {
        controls = {{u"TextSearch", &search},   {u"BoxFolder", &folder},
                    {u"ListAddresses", &list},  {u"ListChosen", &chosen},
                    {u"ButtonAdd", &buttonAdd}, {u"ButtonRemove", &buttonRemove},
                    {u"ButtonOK", &buttonOK},   {u"StatusBar1", &statusBar}};
    }
    MemoryTextBox& TextSearch() override { return search; }
    MemoryListBox& BoxFolder() override { return folder; }
    MemoryListView& ListAddresses() override { return list; }
    MemoryListBox& ListChosen() override { return chosen; }
    MemoryControl& ButtonAdd() override { return buttonAdd; }
    MemoryControl& ButtonRemove() override { return buttonRemove; }
    MemoryControl& ButtonOK() override { return buttonOK; }
    MemoryStatusBar& StatusBar1() override { return statusBar; }
    void SetEvents(FormSmsSelectAddressEvents& events) override {
        search.onChange = [&events] { events.TextSearch_Change(); };
    }

private:
    MemoryTextBox search;
    MemoryListBox folder, chosen;
    MemoryListView list;
    MemoryControl buttonAdd, buttonRemove, buttonOK;
    MemoryStatusBar statusBar;
};

}  // namespace tellwick::test
