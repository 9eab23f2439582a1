// Makes an address list of rows in small steps, so that nobody has to wait for it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "recipients/AddressList.h"
#include "recipients/HashNumbers.h"
#include "recipients/NameOrder.h"

namespace tellwick {

class Locale;

class AddressListBuilder {
public:
    explicit AddressListBuilder(Locale& locale) : names(locale) {}

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
    enum class Step { Names, Sort, Place, Index, Starts, Ends, Trim, TrimTexts, Done };

    // An entry with the number of its name.
    struct Named {
        AddressList::Entry entry;
        std::uint32_t name;
    };
    template <class Type>
    struct Found {
        Type found;
        std::uint32_t bucket;
    };

    AddressList::Span Store(TextView text);
    void AddNamed(AddressList::Entry entry, TextView name);
    void NumberNames(std::size_t most);
    void CountPlaces();
    void PlaceEntries(std::size_t most);
    void Index(std::size_t most);
    bool TrimTexts();
    template <class Type>
    bool Scatter(std::vector<Found<Type>>& found, std::vector<Type>& into,
                 std::vector<std::uint32_t>& buckets, std::size_t most);

    AddressList list;
    // By a hash of 64 bits, which no two of them have in common.
    std::unordered_map<std::uint64_t, AddressList::Span> companies;
    HashNumbers numbers;
    Step step = Step::Names;
    std::size_t next = 0;
    NameOrder names;
    // In the order of the rows, one part for each kind of number.
    std::array<std::vector<Named>, KindCount> named;
    std::size_t kind = 0;
    std::vector<std::uint32_t> places;  // by the rank of a name: where its next entry goes
    // What is to be put into buckets, in the order of the entries.
    std::vector<Found<AddressList::Start>> starts;
    std::vector<Found<AddressList::WordEnd>> ends;
    Text folded;   // of the entry at hand
    Text trimmed;  // the texts, in no more memory than they need
};

}  // namespace tellwick
