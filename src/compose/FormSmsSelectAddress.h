// The recipient selection: the address list, narrowed by a search, from which recipients are taken
// over into the SMS form.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "compose/FormSmsSelectAddressView.h"

namespace tellwick {

class Contacts;
class Debug;
class Language;
class Prefixes;

class FormSmsSelectAddress : public Form, public FormSmsSelectAddressEvents {
public:
    // Takes the number of a chosen entry.
    using RecipientTaker = std::function<void(TextView number)>;

    FormSmsSelectAddress(FormSmsSelectAddressView& view, Forms& forms, Debug& debug,
                         Language& language, Prefixes& prefixes, Contacts& contacts,
                         RecipientTaker takeRecipient);
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
    Debug& debug;
    Language& language;
    Prefixes& prefixes;
    Contacts& contacts;
    RecipientTaker takeRecipient;
};

}  // namespace tellwick
