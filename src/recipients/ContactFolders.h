// Finds the contact folders of all stores, one folder at a time.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Object.h"
#include "recipients/AddressBook.h"

namespace tellwick {

class ContactFolders {
public:
    struct Found {
        ObjectPtr folder;
        KeptFolder toKeep;
    };

    ContactFolders(PendingError& errors, const ObjectPtr& nameSpace);

    // Looks at one more folder; false when there is none.
    bool LookAtOne();

    std::vector<Found> found;
    // Names, with those above them, of what could not be read; of a store that cannot be reached
    // it may be "".
    std::vector<Text> failed;

private:
    struct Level {
        ObjectPtr folders;
        std::int32_t count = 0;
        std::int32_t next = 1;
        Text path;  // with "\" at the end
    };
    void Enter(const ObjectPtr& folder, const Text& path);

    PendingError& errors;
    std::vector<Level> levels;
};

}  // namespace tellwick
