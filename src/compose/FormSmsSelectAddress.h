// The recipient selection: the address list, narrowed by a search and a folder, from which
// recipients are taken over into the SMS form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "compose/FormSmsSelectAddressView.h"
#include "platform/Clock.h"
#include "platform/Timer.h"
#include "recipients/AddressRows.h"
#include "settings/Services.h"

namespace tellwick {

class Addresses;
class Prefixes;
class RecipientField;
class RecipientPeople;

class FormSmsSelectAddress : public Form, public FormSmsSelectAddressEvents, private Services {
public:
    FormSmsSelectAddress(const Services& services, FormSmsSelectAddressView& view, Forms& forms,
                         Prefixes& prefixes, Addresses& addresses, RecipientPeople& recipientPeople,
                         RecipientField& recipientField, Clock& clock, Timers& timers);
    ~FormSmsSelectAddress() override;

    void Show();
    void Unload() override;

    // Leaves the SMS form as it is.
    void Form_Close() override { Unload(); }
    void TextSearch_Change() override;
    void BoxFolder_Click() override;
    // Sorts by the column; the second time the other way round.
    void ListAddresses_ColumnClick(std::size_t column) override;
    void ListAddresses_DblClick() override { ButtonAdd_Click(); }
    void ListChosen_DblClick() override { ButtonRemove_Click(); }
    // Adds the chosen rows, at most a thousand, or the only one that is left.
    void ButtonAdd_Click() override;
    void ButtonRemove_Click() override;
    // Puts those chosen so far into the SMS form's field, in their order.
    void ButtonOK_Click() override;

    enum Column : std::size_t { Name, Number, Kind, Folder, Columns };

private:
    struct Recipient {
        Text number;  // as the field holds it
        Text shown;
    };

    void Load();
    void Addresses_Change(bool listChanged);
    void FillFolders();
    void SortRows();
    void NarrowRows(double firstSlice = 4);  // milliseconds
    void FillRows(double milliseconds);
    void TimerRows_Timer();
    void ShowStatus();
    void ShowChosen();
    MarkedText Cell(std::size_t row, std::size_t column) const;
    Text KindText(NumberKind kind) const;
    void AddOnly();
    // By their places in the list.
    void AddRows(const std::vector<std::size_t>& places);
    // With the name of the first of those who have the number.
    Recipient Named(Text number, const std::vector<std::uint32_t>& rowsOf) const;

    std::vector<Text> folderNames;  // in the box
    AddressRows rows;
    std::unique_ptr<Timer> timer;
    bool looking = false;   // for rows, in slices
    bool addsOnly = false;  // the only row, once it is known to be that
    double listed = 0;      // when the list last grew
    std::vector<Recipient> chosen;
    std::size_t sortedBy = Name;
    bool descending = false;

    FormSmsSelectAddressView& view;
    Forms& forms;
    Prefixes& prefixes;
    Addresses& addresses;
    RecipientPeople& recipientPeople;
    RecipientField& recipientField;
    Clock& clock;
    Timers& timers;
};

}  // namespace tellwick
