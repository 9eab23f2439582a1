// The address list: every number of every person in the contact folders, in alphabetical order, and
// the search in it while the user types.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

// In the order in which a person's numbers are offered.
enum class NumberKind : std::uint8_t {
    Mobile,
    Home,
    Home2,
    Business,
    Business2,
    Car,
    Other,
    Primary,
    List,  // of a distribution list: its members' numbers, separated by ";"
};
inline constexpr std::size_t KindCount = std::size_t(NumberKind::List) + 1;

// One number of a person.
struct AddressRow {
    TextView name;     // "Anna Berger"
    TextView fileAs;   // "Berger, Anna"; empty when it is no other name
    TextView company;  // may be empty
    TextView number;   // as a phone can dial it, never empty
    NumberKind kind;
    std::uint16_t folder;  // the reader's own number of the folder it comes from
    std::uint32_t item;    // likewise of the contact
};

// Rows of the address list, for each of several numbers.
using RowsOfNumbers = std::vector<std::vector<std::uint32_t>>;

class AddressList {
public:
    // Rows and entries are numbered from 0. A row has one entry "Name  (number)", and another one
    // with the name by which the contact is filed, if that differs.
    struct Entry {
        static constexpr std::uint32_t MostRow = 0x7FFFFFFF;
        Entry(std::uint32_t row, bool byFileAs) : row(row & MostRow), byFileAs(byFileAs) {}
        std::uint32_t row : 31;
        std::uint32_t byFileAs : 1;
    };

    std::size_t Rows() const { return rows.size(); }
    AddressRow Row(std::size_t row) const;
    std::size_t Size() const { return entries.size(); }
    Entry EntryAt(std::size_t index) const { return entries[index]; }
    static constexpr TextView Separator = u"  (";
    // "Name  (number)" of the entry at an index below Size().
    Text EntryText(std::size_t index) const;
    TextView EntryName(std::size_t index) const;
    // For who goes through all entries: has the memory of those soon to come fetched. Their texts
    // lie in the order in which they were read.
    void FetchAhead(std::size_t index) const;

    // For each of the numbers the rows of all people who have it, with or without its prefix;
    // distribution lists have none.
    RowsOfNumbers RowsOf(const std::vector<Text>& numbers) const;

    // The row of the person whom a text names first, letter case ignored; of several names that
    // begin there the longest, of equal ones the first. A name counts where it stands by itself,
    // not within a word; the names by which contacts are filed, and distribution lists, do not
    // count.
    std::optional<std::size_t> RowNamedFirstIn(TextView text) const;

    // The numbers that come first among the matches, as the user sent to them.
    void SetRecent(const std::vector<Text>& numbers);

    // Indexes of the entries that begin with the search text, or hold it followed by a blank or by
    // "(", letter case ignored: first those of recent numbers, then those that begin so, then the
    // others, each in alphabetical order. A number comes once for each person. The search text has
    // no blank at its ends; an empty one matches nothing.
    std::vector<std::uint32_t> Matches(TextView search) const;

private:
    friend class AddressListBuilder;
    friend class AddressListMerger;

    struct Span {
        std::uint32_t at;
        std::uint16_t length;
    };
    struct StoredRow {
        Span name, fileAs, company, number;
        std::uint32_t item;
        std::uint32_t numberId;  // the same for equal numbers of people of one name
        std::uint16_t folder;
        NumberKind kind;
    };
    // The classes of the units behind those that choose the bucket.
    using Signature = std::uint32_t;
    struct Start {
        std::uint32_t entry;
        Signature signature;
    };
    // Where a word of an entry ends: before a blank or "(". Its units count backwards.
    struct WordEnd {
        std::uint32_t entry;
        std::uint32_t end;
        Signature signature;
    };
    class Marks;

    TextView At(const Span& span) const { return {texts.data() + span.at, span.length}; }
    std::optional<std::uint32_t> NumberIdOf(TextView name, TextView number) const;
    bool Continues(std::size_t entry, std::size_t from, TextView folded) const;
    std::optional<std::size_t> RowNamedAtStart(TextView folded, bool& promising) const;
    void MatchAll(TextView folded, Marks& begins, Marks& others) const;

    Text texts;
    std::vector<StoredRow> rows;
    std::vector<Entry> entries;
    std::uint32_t numberIds = 0;
    std::vector<std::uint32_t> recent;  // entries, ascending
    // Entries by their first, and word ends by their last three units, in buckets; the start of
    // each bucket, and the end of the last.
    std::vector<Start> starts;
    std::vector<WordEnd> ends;
    std::vector<std::uint32_t> startBuckets, endBuckets;
};

}  // namespace tellwick
