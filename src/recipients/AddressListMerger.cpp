#include "recipients/AddressListMerger.h"

#include <algorithm>
#include <utility>

#include "platform/Locale.h"
#include "recipients/AddressBuckets.h"

namespace tellwick {

namespace {

constexpr std::uint32_t Gone = 0xFFFFFFFF;
constexpr std::size_t Quick = 16;  // so much faster than the other steps

}  // namespace

AddressListMerger::AddressListMerger(Locale& locale, const AddressList& large,
                                     const AddressList& small,
                                     std::span<const std::uint32_t> itemNumbers,
                                     const std::vector<KeptItem>& items)
    : locale(locale), large(large), small(small), itemNumbers(itemNumbers), items(items) {
    list.rows.reserve(large.rows.size() + small.rows.size());
    list.texts.reserve(large.texts.size() + small.texts.size());
    list.entries.reserve(large.entries.size() + small.entries.size());
    rowNumbers.reserve(large.rows.size());
    largeNumbers.reserve(large.entries.size());
}

bool AddressListMerger::DoSome(std::size_t most) {
    switch (step) {
        case Step::Rows:
            KeepRows(most);
            break;
        case Step::Texts:
            KeepTexts(most);
            break;
        case Step::Added:
            AddRows(most);
            break;
        case Step::Places:
            FindPlaces(most);
            break;
        case Step::Entries:
            MergeEntries(Quick * most);
            break;
        case Step::Starts:
            if (!MergeBuckets(&AddressList::starts, &AddressList::startBuckets, Quick * most))
                step = Step::Ends;
            break;
        case Step::Ends:
            if (!MergeBuckets(&AddressList::ends, &AddressList::endBuckets, Quick * most))
                step = Step::Done;
            break;
        case Step::Done:
            break;
    }
    return step != Step::Done;
}

void AddressListMerger::KeepRows(std::size_t most) {
    const std::size_t end = std::min(large.rows.size(), next + most);
    for (; next < end; ++next) {
        AddressList::StoredRow row = large.rows[next];
        const std::uint32_t number = itemNumbers[row.item];
        const bool stays = number != 0 && row.kind != NumberKind::List;
        rowNumbers.push_back(stays ? std::uint32_t(list.rows.size()) : Gone);
        if (!stays) continue;
        row.item = number - 1;
        row.folder = items[row.item].folder;
        list.rows.push_back(row);
    }
    if (next < large.rows.size()) return;
    next = 0;
    step = Step::Texts;
}

// All of them: the few that nobody needs any more are left out when the list is made the next time.
void AddressListMerger::KeepTexts(std::size_t most) {
    constexpr std::size_t UnitsEach = 256;
    list.texts.append(large.texts, next, UnitsEach * most);
    next = list.texts.size();
    if (next < large.texts.size()) return;
    list.texts.append(small.texts);
    list.numberIds = large.numberIds;
    numberIds.assign(small.numberIds, Gone);
    next = 0;
    step = Step::Added;
}

void AddressListMerger::AddRows(std::size_t most) {
    const auto textsBefore = std::uint32_t(large.texts.size());
    const std::size_t end = std::min(small.rows.size(), next + most);
    for (; next < end; ++next) {
        AddressList::StoredRow row = small.rows[next];
        std::uint32_t& numberId = numberIds[row.numberId];
        if (numberId == Gone)
            numberId =
                large.NumberIdOf(small.At(row.name), small.At(row.number)).value_or(list.numberIds);
        list.numberIds = std::max(list.numberIds, numberId + 1);
        row.numberId = numberId;
        for (AddressList::Span* span : {&row.name, &row.fileAs, &row.company, &row.number})
            span->at += textsBefore;
        list.rows.push_back(row);
    }
    if (next < small.rows.size()) return;
    next = 0;
    step = Step::Places;
}

// Behind all that are equal, as their rows are.
std::size_t AddressListMerger::PlaceOf(AddressList::Entry entry, std::size_t first) const {
    const AddressList::StoredRow& row = small.rows[entry.row];
    const std::string key = locale.SortKey(small.At(entry.byFileAs ? row.fileAs : row.name));
    std::size_t last = large.entries.size();
    while (first < last) {
        const std::size_t middle = first + (last - first) / 2;
        const int order = key.compare(locale.SortKey(large.EntryName(middle)));
        const bool before =
            order < 0 || (order == 0 && row.kind < large.rows[large.entries[middle].row].kind);
        (before ? last : first) = before ? middle : middle + 1;
    }
    return first;
}

void AddressListMerger::FindPlaces(std::size_t most) {
    constexpr std::size_t LooksEach = 16;
    const std::size_t end = std::min(small.entries.size(), next + most / LooksEach + 1);
    for (; next < end; ++next)
        places.push_back(PlaceOf(small.entries[next], places.empty() ? 0 : places.back()));
    if (next < small.entries.size()) return;
    next = 0;
    step = Step::Entries;
}

void AddressListMerger::MergeEntries(std::size_t most) {
    const std::size_t end = std::min(large.entries.size(), next + most);
    const auto rowsBefore = std::uint32_t(list.rows.size() - small.rows.size());
    for (;; ++next) {
        for (; nextPlace < places.size() && places[nextPlace] == next; ++nextPlace) {
            const AddressList::Entry entry = small.entries[nextPlace];
            smallNumbers.push_back(std::uint32_t(list.entries.size()));
            list.entries.emplace_back(rowsBefore + entry.row, entry.byFileAs != 0);
        }
        if (next == end) break;
        const AddressList::Entry entry = large.entries[next];
        const std::uint32_t row = rowNumbers[entry.row];
        largeNumbers.push_back(row == Gone ? Gone : std::uint32_t(list.entries.size()));
        if (row == Gone) continue;
        list.entries.emplace_back(row, entry.byFileAs != 0);
    }
    if (next < large.entries.size()) return;
    next = 0;
    step = Step::Starts;
}

// Some of what leads to the entries. False when that is done.
template <class Type>
bool AddressListMerger::MergeBuckets(std::vector<Type> AddressList::*found,
                                     std::vector<std::uint32_t> AddressList::*buckets,
                                     std::size_t most) {
    const auto append = [&](const AddressList& from, const std::vector<std::uint32_t>& numbers) {
        for (std::uint32_t at = (from.*buckets)[next]; at < (from.*buckets)[next + 1]; ++at) {
            Type each = (from.*found)[at];
            each.entry = numbers[each.entry];
            if (each.entry != Gone) (list.*found).push_back(each);
        }
    };
    if (next == 0) (list.*found).reserve((large.*found).size() + (small.*found).size());
    for (const std::size_t enough = (list.*found).size() + most;
         next < BucketCount && (list.*found).size() < enough; ++next) {
        (list.*buckets).push_back(std::uint32_t((list.*found).size()));
        append(large, largeNumbers);
        append(small, smallNumbers);
    }
    if (next < BucketCount) return true;
    (list.*buckets).push_back(std::uint32_t((list.*found).size()));
    next = 0;
    return false;
}

}  // namespace tellwick
