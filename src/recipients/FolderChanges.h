// What changed in a contact folder since it was last read: its items are compared by their dates.
// Knows nothing of Outlook.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "recipients/AddressBook.h"

namespace tellwick {

class FolderChanges {
public:
    // `ofFolder` are the folder's items by their places in the items kept.
    FolderChanges(const std::vector<KeptItem>& items, std::span<const std::uint32_t> ofFolder);

    // The kept item with these dates, each only once; none when it is new or modified.
    std::optional<std::uint32_t> Take(double created, double modified);
    // The kept items that were not taken: they are gone, or modified.
    std::vector<std::uint32_t> Left() const;
    std::size_t CountLeft() const { return left.size(); }

private:
    std::unordered_multimap<std::uint64_t, std::uint32_t> left;  // by a key of their dates
};

}  // namespace tellwick
