// The window of the recipient selection: a list of address entries, narrowed by a search field.
#pragma once

#include "platform/Forms.h"

namespace tellwick {

class FormSmsSelectAddressEvents {
public:
    virtual ~FormSmsSelectAddressEvents() = default;
    // The user closed the window by its frame or Escape.
    virtual void Form_Close() = 0;
    virtual void TextSearch_Change() = 0;
    virtual void ListAddresses_DblClick() = 0;
    // The default button: takes the chosen entry over as a recipient.
    virtual void ButtonAdd_Click() = 0;
    virtual void ButtonOK_Click() = 0;
};

class FormSmsSelectAddressView : public FormView {
public:
    virtual TextBox& TextSearch() = 0;
    virtual ListBox& ListAddresses() = 0;
    virtual Control& ButtonAdd() = 0;
    virtual Control& ButtonOK() = 0;
    virtual StatusBar& StatusBar1() = 0;
    virtual void SetEvents(FormSmsSelectAddressEvents& events) = 0;
};

}  // namespace tellwick
