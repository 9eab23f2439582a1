// The window of the SMS form.
#pragma once

#include <optional>

#include "windows/FormWindow.h"

#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendView.h"

namespace tellwick::windows {

class FormSmsSendWindow : public FormSmsSendView, private FormWindow {
public:
    FormSmsSendWindow();

    bool Load() override;
    bool Loaded() const override { return FormWindow::Window() != nullptr; }
    void Show() override;
    void Unload() override { Destroy(); }
    FormPlace Place() const override { return WindowPlace(); }
    void SetPlace(const FormPlace& place) override { SetWindowPlace(place); }
    void SetCaption(TextView caption) override { SetWindowCaption(caption); }
    void ForEachControl(const std::function<void(TextView, Control&)>& visit) override {
        VisitControls(visit);
    }

    ComboBox& TextTo() override { return textTo; }
    Control& ButtonTo() override { return buttonTo; }
    ListBox& ListBoxNumbers() override { return listBoxNumbers; }
    TextBox& Message() override { return message; }
    CheckBox& CheckFlash() override { return checkFlash; }
    CheckBox& CheckLong() override { return checkLong; }
    ComboBox& ComboBoxTextbausteine() override { return comboBoxTextbausteine; }
    Control& ButtonAdd() override { return buttonAdd; }
    Control& ButtonDel() override { return buttonDel; }
    Control& ButtonInsert() override { return buttonInsert; }
    Control& ButtonSend() override { return buttonSend; }
    Control& ButtonStore() override { return buttonStore; }
    Control& ButtonOK() override { return buttonOK; }
    Control& ButtonExpand() override { return buttonExpand; }
    Control& ButtonHex() override { return buttonHex; }
    Control& ButtonUcs2() override { return buttonUcs2; }
    Control& LabelStatus() override { return labelStatus; }
    ProgressBar& ProgressBar1() override { return progressBar1; }
    StatusBar& StatusBar1() override { return statusBar1; }

    void Resize(bool expanded) override;
    void PlaceListBoxNumbers(std::int32_t rows) override;
    void SetMessageFont(TextView name, std::int32_t points) override;
    void SetHandlers(FormSmsSend& newForm, const FormSmsSendParts& newParts) override;

private:
    void OnActivate() override { form->Form_Activate(); }
    void OnClose() override { form->Form_Close(); }
    void OnSize() override { form->Form_Resize(); }
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    bool OnCharacter(char16_t character) override;
    bool OnDoubleClick(HWND target) override;
    void OnCommand(HWND control, WORD notification) override;
    void TextToCommand(WORD notification);
    void ListBoxNumbersCommand(WORD notification);
    void ClickButton(HWND control);

    FormSmsSend* form = nullptr;
    std::optional<FormSmsSendParts> parts;
    GdiObject messageFont;

    WindowControl buttonTo;
    WindowComboBox textTo;
    WindowTextBox message;
    WindowCheckBox checkFlash;
    WindowCheckBox checkLong;
    WindowControl buttonSend;
    WindowControl buttonStore;
    WindowControl buttonHex;
    WindowControl buttonUcs2;
    WindowControl buttonOptions;
    WindowControl buttonExpand;
    WindowControl buttonOK;
    WindowControl frameTextbausteine;
    WindowComboBox comboBoxTextbausteine;
    WindowControl buttonAdd;
    WindowControl buttonDel;
    WindowControl buttonInsert;
    WindowControl labelStatus;
    WindowProgressBar progressBar1;
    WindowStatusBar statusBar1;
    WindowListBox listBoxNumbers;
};

}  // namespace tellwick::windows
