// The window of the recipient selection.
#pragma once

#include "windows/FormWindow.h"

#include "compose/FormSmsSelectAddressView.h"

namespace tellwick::windows {

class FormSmsSelectAddressWindow : public FormViewWindow<FormSmsSelectAddressView> {
public:
    FormSmsSelectAddressWindow();

    bool Load() override;

    TextBox& TextSearch() override { return textSearch; }
    ListBox& ListAddresses() override { return listAddresses; }
    Control& ButtonAdd() override { return buttonAdd; }
    Control& ButtonOK() override { return buttonOK; }
    StatusBar& StatusBar1() override { return statusBar1; }
    void SetEvents(FormSmsSelectAddressEvents& newEvents) override { events = &newEvents; }

private:
    SIZE LeastClient() const override;
    void OnClose() override { events->Form_Close(); }
    void OnSize() override;
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;

    FormSmsSelectAddressEvents* events = nullptr;

    WindowControl labelSearch;
    WindowTextBox textSearch;
    WindowListBox listAddresses;
    WindowControl buttonAdd;
    WindowControl buttonOK;
    WindowStatusBar statusBar1;
};

}  // namespace tellwick::windows
