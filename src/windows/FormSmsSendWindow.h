// The window of the SMS form.
#pragma once

#include "compose/FormSmsSendView.h"
#include "windows/FormSmsSendControls.h"
#include "windows/FormSmsSendLayout.h"
#include "windows/FormWindow.h"

namespace tellwick::windows {

class FormSmsSendWindow : public FormViewWindow<FormSmsSendView> {
public:
    FormSmsSendWindow();

    bool Load() override;
    void ForEachControl(const std::function<void(TextView, Control&)>& visit) override;

    ComboBox& TextTo() override { return controls.textTo; }
    ListBox& ListBoxNumbers() override { return controls.listBoxNumbers; }
    TextBox& Message() override { return controls.message; }
    CheckBox& CheckFlash() override { return controls.checkFlash; }
    CheckBox& CheckStatus() override { return controls.checkStatus; }
    CheckBox& CheckLong() override { return controls.checkLong; }
    ItemList& BoxExpires() override { return controls.boxExpires; }
    CheckBox& CheckSendAndQuit() override { return controls.checkSendAndQuit; }
    CheckBox& CheckSetNumber() override { return controls.checkSetNumber; }
    ComboBox& ComboBoxTextbausteine() override { return controls.comboBoxTextbausteine; }
    Control& ButtonExpand() override { return controls.buttonExpand; }
    Control& ButtonHex() override { return controls.buttonHex; }
    Control& ButtonUcs2() override { return controls.buttonUcs2; }
    CheckBox& ButtonBar1(BarButton button) override {
        return controls.buttonBar1.Button(int(button) + 1);
    }
    Control& LabelStatus() override { return controls.labelStatus; }
    ProgressBar& ProgressBar1() override { return controls.progressBar1; }
    StatusBar& StatusBar1() override { return controls.statusBar1; }

    void Resize(bool nowExpanded) override;
    void LoadBackGround() override;
    void PlaceListBoxNumbers(std::int32_t rows) override;
    std::int32_t ButtonFields_Menu(const std::vector<Text>& entries) override;
    void SetMessageFont(TextView name, std::int32_t points) override;
    void SetEvents(FormSmsSendEvents& newEvents) override { events = &newEvents; }

private:
    SIZE LeastClient() const override;
    SIZE UsualClient() const override;
    void OnActivate() override { events->Form_Activate(); }
    void OnDeactivate() override { events->Form_Deactivate(); }
    void OnClose() override { events->Form_Close(); }
    void OnSize() override { events->Form_Resize(); }
    void OnResolution() override;
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override {
        return events->Form_KeyDown(keyCode, shift);
    }
    bool OnCharacter(char16_t character) override { return events->Form_KeyPress(character); }
    bool OnDoubleClick(HWND target) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;
    LRESULT OnNotify(const NMHDR& notification) override;
    void OnListDrawn(HWND list) override;
    void TextToCommand(WORD notification);
    void ListBoxNumbersCommand(WORD notification);
    void ClickButton(HWND control);
    void LeaveTemplates();
    void MakeMessageFont();

    FormSmsSendEvents* events = nullptr;
    // Mutable for the const functions that ask a layout for its size: a layout is also made to move
    // the controls, which it does not do there.
    mutable FormSmsSendControls controls;
    bool expanded = false;
    int grown = 0;  // by how much the window became higher when it was expanded, in pixels

    Text fontName;
    std::int32_t fontPoints = 0;
    GdiObject messageFont;
};

}  // namespace tellwick::windows
