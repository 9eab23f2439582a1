#include "compose/FormSmsSelectAddress.h"

#include <algorithm>
#include <numeric>

#include "recipients/Contacts.h"
#include "recipients/Prefixes.h"
#include "recipients/RecipientField.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView FormName = u"FormSmsSelectAddress";

}  // namespace

FormSmsSelectAddress::FormSmsSelectAddress(const Services& services, FormSmsSelectAddressView& view,
                                           Forms& forms, Prefixes& prefixes, Contacts& contacts,
                                           RecipientField& recipientField)
    : Services(services),
      view(view),
      forms(forms),
      prefixes(prefixes),
      contacts(contacts),
      recipientField(recipientField) {
    view.SetEvents(*this);
}

FormSmsSelectAddress::~FormSmsSelectAddress() {
    forms.Remove(*this);
}

void FormSmsSelectAddress::Show() {
    if (!view.Loaded()) {
        if (!view.Load()) return;
        forms.Add(*this);
        language.GetLanguageStringsForForm(FormName, view);
    }
    TextSearch_Change();
    view.Show();
}

void FormSmsSelectAddress::Unload() {
    if (!view.Loaded()) return;
    view.Unload();
    forms.Remove(*this);
}

void FormSmsSelectAddress::TextSearch_Change() {
    Procedure procedure{debug, u"TextSearch_Change"};
    const AddressList& addresses = contacts.Addresses();
    const Text search = Trimmed(view.TextSearch().GetText());
    if (search.empty()) {
        shown.resize(addresses.Size());
        std::iota(shown.begin(), shown.end(), std::size_t(0));
    } else {
        shown = addresses.Matches(search);
    }
    view.ListAddresses().Clear();
    for (const std::size_t entry : shown) view.ListAddresses().Add(addresses.Entry(entry));
    if (!shown.empty()) view.ListAddresses().SetSelectedIndex(0);
    view.StatusBar1().SetText(ReplaceAll(language.TextOrBuiltIn(FormName, u"Matches"), u"%n",
                                         NumberText(std::int64_t(shown.size()))));
}

void FormSmsSelectAddress::ButtonAdd_Click() {
    Procedure procedure{debug, u"ButtonAdd_Click"};
    const std::int32_t row = view.ListAddresses().SelectedIndex();
    const AddressList& addresses = contacts.Addresses();
    if (row < 0 || std::size_t(row) >= shown.size()) return;
    const std::size_t entry = shown[std::size_t(row)];
    if (entry < addresses.Size()) recipientField.Add(prefixes.GetNumber(addresses.Entry(entry)));
}

}  // namespace tellwick
