// What changed in a contact folder since it was last read: its items are compared by their dates.
// Knows nothing of Outlook.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "recipients/AddressBook.h"

namespace tellwick {

class FolderChanges {
public:
    // `ofFolder` are the folder's items by their places in the items kept; both must outlive this.
    FolderChanges(const std::vector<KeptItem>& items, std::span<const std::uint32_t> ofFolder);

    // The kept item with these dates, each only once; none when it is new or modified.
    std::optional<std::uint32_t> Take(double created, double modified);
    // The kept items that were not taken: they are gone, or modified.
    std::size_t CountLeft() const { return left; }

    // Some ways of reading give local dates. In another time zone these differ from the kept ones
    // by whole quarter hours, in summer by others than in winter. For dates of items that Take did
    // not find, takes and gives the kept items they belong to; none unless most of what is left has
    // moved so.
    struct Moved {
        std::size_t index;  // of the dates
        std::uint32_t item;
    };
    std::vector<Moved> TakeMoved(std::span<const KeptItem> dates);

    // How many items were kept, and the latest modification among them.
    std::size_t Count() const { return kept.size(); }
    double Newest() const { return newest; }
    // Whether some of them could not be read wholly.
    bool Incomplete() const { return incomplete; }
    // Whether any that is left was modified at that time or later.
    bool LeftSince(double modified) const;

private:
    void Take(std::size_t index);

    const std::vector<KeptItem>& items;
    std::span<const std::uint32_t> kept;
    std::vector<bool> taken;  // by the index in `kept`, as is the following
    // At the hash of its dates, or behind it: an index counted from 1; 0 is free. Of the size of a
    // power of two, at most half of it taken.
    std::vector<std::uint32_t> places;
    std::size_t left;
    double newest = 0;
    bool incomplete = false;
};

}  // namespace tellwick
