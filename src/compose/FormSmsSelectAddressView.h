// The window of the recipient selection: all numbers of Outlook's contacts, narrowed by a search
// and a folder, and those chosen so far.
#pragma once

#include "platform/Forms.h"

namespace tellwick {

class FormSmsSelectAddressEvents {
public:
    virtual ~FormSmsSelectAddressEvents() = default;
    // The user closed the window by its frame or Escape.
    virtual void Form_Close() = 0;
    virtual void TextSearch_Change() = 0;
    virtual void BoxFolder_Click() = 0;
    virtual void ListAddresses_ColumnClick(std::size_t column) = 0;
    virtual void ListAddresses_DblClick() = 0;
    virtual void ListChosen_DblClick() = 0;
    virtual void ButtonAdd_Click() = 0;
    virtual void ButtonRemove_Click() = 0;
    virtual void ButtonOK_Click() = 0;
};

class FormSmsSelectAddressView : public FormView {
public:
    virtual TextBox& TextSearch() = 0;
    virtual ItemList& BoxFolder() = 0;
    virtual ListView& ListAddresses() = 0;
    virtual ListBox& ListChosen() = 0;
    virtual Control& ButtonAdd() = 0;
    virtual Control& ButtonRemove() = 0;
    virtual Control& ButtonOK() = 0;
    virtual StatusBar& StatusBar1() = 0;
    virtual void SetEvents(FormSmsSelectAddressEvents& events) = 0;
};

}  // namespace tellwick
