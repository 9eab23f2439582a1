// The recipient selection: the address list, narrowed by a search, from which recipients are taken
// over into the SMS form.
#pragma once

#include <cstddef>
#include <vector>

#include "compose/FormSmsSelectAddressView.h"
#include "settings/Services.h"

namespace tellwick {

class Contacts;
class Prefixes;
class RecipientField;

class FormSmsSelectAddress : public Form, public FormSmsSelectAddressEvents, private Services {
public:
    FormSmsSelectAddress(const Services& services, FormSmsSelectAddressView& view, Forms& forms,
                         Prefixes& prefixes, Contacts& contacts, RecipientField& recipientField);
    ~FormSmsSelectAddress() override;

    void Show();
    void Unload() override;

    void Form_Close() override { Unload(); }
    void TextSearch_Change() override;
    void ListAddresses_DblClick() override { ButtonAdd_Click(); }
    void ButtonAdd_Click() override;
    void ButtonOK_Click() override { Unload(); }

private:
    std::vector<std::size_t> shown;  // index into the address list by row

    FormSmsSelectAddressView& view;
    Forms& forms;
    Prefixes& prefixes;
    Contacts& contacts;
    RecipientField& recipientField;
};

}  // namespace tellwick
