// The rows of the recipient selection: those of the address list that a search and a folder leave,
// sorted by a column. Done in small steps, so that a key is never waited for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "recipients/AddressSearch.h"

namespace tellwick {

class Addresses;

class AddressRows {
public:
    enum class Order { Name, Number, Kind, Folder };

    explicit AddressRows(const Addresses& addresses) : addresses(addresses) {}

    // Both begin anew; what is shown is empty until DoSome finds it. Sort is also for a list that
    // has changed. Rows that are equal in that order stand by name.
    void Sort(Order newOrder, bool newDescending);
    void Narrow(TextView text, std::optional<std::uint16_t> newFolder);
    // Goes on with about so many rows; false when all are found.
    bool DoSome(std::size_t most);
    void Clear();

    // Rows of the address list that are found so far, in their order.
    const std::vector<std::uint32_t>& Shown() const { return shown; }
    const AddressSearch& Search() const { return search; }
    // The place among those shown of the next person, from one place on and around, whose name
    // begins so, letter case ignored.
    std::optional<std::size_t> Find(std::size_t first, TextView start) const;

private:
    struct Keyed {
        std::uint64_t key;  // by which it is sorted
        std::uint32_t row;
        std::uint32_t place;  // by name
    };
    void Begin();
    void Collect(std::size_t most);
    void Merge();
    void EndSorting();
    std::uint64_t KeyOf(std::uint32_t row) const;
    bool Before(const Keyed& one, const Keyed& other) const;

    const Addresses& addresses;
    Order order = Order::Name;
    bool descending = false;
    AddressSearch search{{}};
    std::optional<std::uint16_t> folder;
    // While rows are sorted: runs of them that are, and where each begins, and the last ends.
    bool isSorted = true;
    std::size_t nextEntry = 0;
    std::vector<std::size_t> folderPlaces;  // by the folders' numbers
    std::vector<Keyed> keyed;
    std::vector<std::size_t> runs;
    std::size_t nextRun = 0;

    std::size_t next = 0;  // of those sorted
    std::vector<std::uint32_t> sorted, shown;
};

}  // namespace tellwick
