// The window of the settings: a dialog of the SMS form.
#pragma once

#include "windows/FormRows.h"

#include "compose/FormOptionsView.h"

namespace tellwick::windows {

class FormOptionsWindow : public FormOfRows<FormOptionsView> {
public:
    // `owner` is loaded whenever this window is.
    explicit FormOptionsWindow(const FormWindow& owner) : owner(owner) {}

    bool Load() override;

    CheckBox& CheckStoreNumbers() override { return checkStoreNumbers; }
    CheckBox& CheckNumberCache() override { return checkNumberCache; }
    Control& LabelNumUsedNumber() override { return labelNumUsedNumber; }
    TextBox& TextNumUsedNumber() override { return textNumUsedNumber; }
    CheckBox& OptionNational() override { return optionNational; }
    CheckBox& OptionInternational() override { return optionInternational; }
    TextBox& TextPrefixes() override { return textPrefixes; }
    ItemList& BoxFont() override { return boxFont; }
    ItemList& BoxFontSize() override { return boxFontSize; }
    ItemList& BoxLanguage() override { return boxLanguage; }
    CheckBox& CheckAirCount() override { return checkAirCount; }
    CheckBox& CheckAskLostCharacters() override { return checkAskLostCharacters; }
    CheckBox& CheckForgetAnswers() override { return checkForgetAnswers; }
    CheckBox& CheckTrace() override { return checkTrace; }
    Control& LabelFixed() override { return labelFixed; }
    std::vector<Text> FontNames() override { return InstalledFonts(); }
    void SetEvents(FormOptionsEvents& newEvents) override { events = &newEvents; }

private:
    void OnClose() override { events->ButtonCancel_Click(); }
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;
    int InnerWidth() const override;
    int Arrange(int innerWidth, Placement* placement) const override;
    int LabelWidth() const;

    const FormWindow& owner;
    FormOptionsEvents* events = nullptr;

    WindowControl frameNumbers;
    WindowCheckBox checkStoreNumbers;
    WindowCheckBox checkNumberCache;
    WindowControl labelNumUsedNumber;
    WindowTextBox textNumUsedNumber;
    WindowControl framePrefixes;
    WindowCheckBox optionNational;
    WindowCheckBox optionInternational;
    WindowControl labelPrefixes;
    WindowTextBox textPrefixes;
    WindowControl labelPrefixHelp;
    WindowControl frameFont;
    WindowControl labelFont;
    WindowComboBox boxFont;
    WindowControl labelFontSize;
    WindowComboBox boxFontSize;
    WindowControl frameLanguage;
    WindowControl labelLanguage;
    WindowComboBox boxLanguage;
    WindowControl labelLanguageHelp;
    WindowControl frameCharacters;
    WindowCheckBox checkAirCount;
    WindowCheckBox checkAskLostCharacters;
    WindowControl frameMisc;
    WindowCheckBox checkForgetAnswers;
    WindowCheckBox checkTrace;
    WindowControl labelTraceHelp;
    WindowControl labelFixed;
    WindowControl buttonSupport;
    WindowControl buttonOK;
    WindowControl buttonCancel;
};

}  // namespace tellwick::windows
