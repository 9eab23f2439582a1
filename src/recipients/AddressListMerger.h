// Takes some rows out of a large address list and puts those of a small one in: much quicker than
// making a list of all of them, and likewise in small steps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "recipients/AddressBook.h"

namespace tellwick {

class Locale;

class AddressListMerger {
public:
    // All of these must outlive this. `itemNumbers` has, for each item of the large list, its place
    // among the items counted from 1, or 0 when its rows are to go, as those of distribution lists
    // do anyway. The rows of the small list name items and folders as they are now.
    AddressListMerger(Locale& locale, const AddressList& large, const AddressList& small,
                      std::span<const std::uint32_t> itemNumbers,
                      const std::vector<KeptItem>& items);

    // Does some of it; false when all is done. `most` is about how many rows a step may look at.
    bool DoSome(std::size_t most);
    AddressList Take() { return std::move(list); }

private:
    enum class Step { Rows, Texts, Added, Places, Entries, Starts, Ends, Done };

    void KeepRows(std::size_t most);
    void KeepTexts(std::size_t most);
    void AddRows(std::size_t most);
    void FindPlaces(std::size_t most);
    void MergeEntries(std::size_t most);
    template <class Type>
    bool MergeBuckets(std::vector<Type> AddressList::*found,
                      std::vector<std::uint32_t> AddressList::*buckets, std::size_t most);
    std::size_t PlaceOf(AddressList::Entry entry, std::size_t first) const;

    Locale& locale;
    const AddressList& large;
    const AddressList& small;
    std::span<const std::uint32_t> itemNumbers;
    const std::vector<KeptItem>& items;
    AddressList list;
    Step step = Step::Rows;
    std::size_t next = 0;
    std::vector<std::uint32_t> rowNumbers;  // of the large list's rows
    std::vector<std::uint32_t> numberIds;   // of the small one's
    std::vector<std::size_t> places;        // before which entry the small one's come
    std::size_t nextPlace = 0;
    std::vector<std::uint32_t> largeNumbers, smallNumbers;  // of the entries
};

}  // namespace tellwick
