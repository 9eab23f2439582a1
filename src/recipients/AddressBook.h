// What is kept of Outlook's contacts: the address list, and where each number comes from, so that
// only what changed is read again. One word for each stage of a person: "kept" is what this book
// has, "read" what Outlook says now, and "chosen" what the user selects in a form.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/Text.h"
#include "recipients/AddressList.h"

namespace tellwick {

struct KeptFolder {
    // Outlook's, of the folder and of the store that it lies in.
    Text id, storeId;
    Text name;  // with those above it: "Personal Folders\Contacts\Club"
};

// Anything that lies in a contact folder. Dates tell one from another: Outlook hands them out with
// many items at once in every version, its own identifiers it does not.
struct KeptItem {
    static constexpr double ReadAgain = -1;  // as the date of one that could not be read wholly

    double created = 0;
    double modified = 0;
    std::uint16_t folder = 0;  // of `folders`

    bool operator==(const KeptItem& other) const = default;
};

struct AddressBook {
    AddressList list;  // its rows name folders and items by their place in these
    std::vector<KeptFolder> folders;
    std::vector<KeptItem> items;
    // The names in the distribution lists, by item.
    std::map<std::uint32_t, std::vector<Text>> members;
};

}  // namespace tellwick
