// The window of the recipient selection.
#pragma once

#include "windows/FormWindow.h"
#include "windows/WindowListView.h"

#include "compose/FormSmsSelectAddressView.h"

namespace tellwick::windows {

class FormSmsSelectAddressWindow : public FormViewWindow<FormSmsSelectAddressView> {
public:
    FormSmsSelectAddressWindow();

    bool Load() override;

    TextBox& TextSearch() override { return textSearch; }
    ItemList& BoxFolder() override { return boxFolder; }
    ListView& ListAddresses() override { return listAddresses; }
    ListBox& ListChosen() override { return listChosen; }
    Control& ButtonAdd() override { return buttonAdd; }
    Control& ButtonRemove() override { return buttonRemove; }
    Control& ButtonOK() override { return buttonOK; }
    StatusBar& StatusBar1() override { return statusBar1; }
    void SetEvents(FormSmsSelectAddressEvents& newEvents) override { events = &newEvents; }

private:
    SIZE LeastClient() const override;
    SIZE UsualClient() const override;
    void OnClose() override { events->Form_Close(); }
    void OnSize() override;
    void OnResolution() override;
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;
    LRESULT OnNotify(const NMHDR& notification) override;

    FormSmsSelectAddressEvents* events = nullptr;

    WindowLabel labelSearch, labelFolder, labelAddresses, labelChosen;
    WindowTextBox textSearch;
    WindowComboBox boxFolder;
    WindowListView listAddresses;
    WindowListBox listChosen;
    WindowControl buttonAdd, buttonRemove, buttonOK, buttonCancel;
    WindowStatusBar statusBar1;
};

}  // namespace tellwick::windows
