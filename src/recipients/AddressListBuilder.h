// Makes an address list of rows in small steps, so that nobody has to wait for it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "recipients/AddressList.h"

namespace tellwick {

class Locale;

// Numbers what differs by its hash, from 0. In one piece, so that it is quick to fill and to free.
class HashNumbers {
public:
    void Reserve(std::size_t count);
    std::uint32_t NumberOf(std::uint64_t hash);
    std::uint32_t Count() const { return count; }

private:
    struct Place {
        std::uint64_t hash = 0;
        std::uint32_t number = 0;  // from 1; 0 is free
    };

    std::vector<Place> places;  // a power of two, at most half of them taken
    std::uint32_t count = 0;
};

class AddressListBuilder {
public:
    explicit AddressListBuilder(Locale& locale) : locale(locale) {}

    // About so many rows will come.
    void Reserve(std::size_t rows);

    // What was added since the mark is taken back by BackTo; entries must not have been added.
    struct Mark {
        std::size_t rows = 0, texts = 0;
    };
    Mark Here() const { return {list.rows.size(), list.texts.size()}; }
    void BackTo(const Mark& mark);

    // A row of no list, copied. Those of one person come one behind the other.
    void Add(const AddressRow& row);
    // The next entries, in the order in which they are to stand in a list that needs no sorting.
    void AddEntry(std::uint32_t row, bool byFileAs);

    // Sorts, unless entries were added, and makes the search fast. Does some of it; false when all
    // is done. `most` is about how many entries a step may look at.
    bool DoSome(std::size_t most);

    std::size_t Rows() const { return list.rows.size(); }
    const AddressList& List() const { return list; }
    AddressList Take() { return std::move(list); }

private:
    enum class Step { Keys, Sort, Merge, Index, Starts, Ends, Trim, TrimTexts, Done };

    // An entry with the first bytes of its sort key, which mostly decide.
    struct Sortable {
        std::array<std::uint64_t, 2> keyStart;
        std::uint32_t name;  // numbered from 0, each once
        AddressList::Entry entry;
    };
    template <class Type>
    struct Found {
        Type found;
        std::uint32_t bucket;
    };

    AddressList::Span Store(TextView text);
    std::string_view Key(std::uint32_t name) const;
    Sortable ToSort(AddressList::Entry entry);
    bool Before(const Sortable& left, const Sortable& right) const;
    void MakeKeys(std::size_t most);
    void SortRun(std::size_t most);
    void Merge(std::size_t most);
    void Index(std::size_t most);
    template <class Type>
    bool Scatter(std::vector<Found<Type>>& found, std::vector<Type>& into,
                 std::vector<std::uint32_t>& buckets, std::size_t most);

    Locale& locale;
    AddressList list;
    // By a hash of 64 bits, which no two of them have in common.
    std::unordered_map<std::uint64_t, AddressList::Span> companies;
    HashNumbers numbers;
    Step step = Step::Keys;
    std::size_t next = 0;
    // Sort keys by name, in one piece.
    HashNumbers names;
    std::string keys;
    std::vector<std::uint32_t> keyStarts;
    std::vector<Sortable> sorted, merged;
    // Where each sorted run ends; neighbours are merged until one is left.
    std::vector<std::size_t> runs, mergedRuns;
    std::size_t run = 0, left = 0, right = 0;
    // What is to be put into buckets, in the order of the entries.
    std::vector<Found<AddressList::Start>> starts;
    std::vector<Found<AddressList::WordEnd>> ends;
    Text folded;  // of the entry at hand
};

}  // namespace tellwick
