#include "recipients/AddressListBuilder.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

#include "platform/Locale.h"
#include "recipients/AddressBuckets.h"
#include "recipients/RunningHash.h"

namespace tellwick {

namespace {

std::uint64_t HashOf(TextView text) {
    const std::uint64_t hash = HashOfUnits(text);
    return hash ^ hash >> 32;
}

}  // namespace

void HashNumbers::Reserve(std::size_t wanted) {
    const std::size_t size = std::bit_ceil(2 * wanted + 2);
    if (size <= places.size()) return;
    std::vector<Place> before(size);
    before.swap(places);
    count = 0;
    std::ranges::sort(before, {}, &Place::number);
    for (const Place& place : before) {
        if (place.number != 0) NumberOf(place.hash);
    }
}

std::uint32_t HashNumbers::NumberOf(std::uint64_t hash) {
    if (2 * std::size_t(count) >= places.size()) Reserve(2 * std::size_t(count) + 64);
    for (std::size_t at = hash;; ++at) {
        Place& place = places[at & (places.size() - 1)];
        if (place.number == 0) place = {hash, ++count};
        if (place.hash == hash) return place.number - 1;
    }
}

AddressList::Span AddressListBuilder::Store(TextView text) {
    constexpr std::size_t Longest = std::numeric_limits<std::uint16_t>::max();
    text = text.substr(0, Longest);
    const auto at = std::uint32_t(list.texts.size());
    list.texts.append(text);
    return {at, std::uint16_t(text.size())};
}

void AddressListBuilder::Reserve(std::size_t rows) {
    constexpr std::size_t UnitsEach = 48;
    list.rows.reserve(rows);
    list.texts.reserve(rows * UnitsEach);
    numbers.Reserve(rows);
}

void AddressListBuilder::BackTo(const Mark& mark) {
    list.rows.resize(mark.rows);
    list.texts.resize(mark.texts);
    std::erase_if(companies, [&](const auto& company) { return company.second.at >= mark.texts; });
}

void AddressListBuilder::Add(const AddressRow& row) {
    AddressList::StoredRow stored{};
    const AddressList::StoredRow* before = list.rows.empty() ? nullptr : &list.rows.back();
    if (before && before->item == row.item && list.At(before->name) == row.name &&
        list.At(before->fileAs) == row.fileAs) {
        stored = *before;
    } else {
        stored.name = Store(row.name);
        stored.fileAs = Store(row.fileAs);
        const auto [company, isNew] = companies.try_emplace(HashOf(row.company));
        if (isNew) company->second = Store(row.company);
        stored.company = company->second;
    }
    // Two people may share a number; a person's is offered once.
    folded.clear();
    for (const char16_t unit : row.name) folded += LowerCase(unit);
    stored.numberId = numbers.NumberOf(HashOf(folded.append(1, u'\0').append(row.number)));
    list.numberIds = numbers.Count();
    stored.number = Store(row.number);
    stored.item = row.item;
    stored.folder = row.folder;
    stored.kind = row.kind;
    list.rows.push_back(stored);
}

void AddressListBuilder::AddEntry(std::uint32_t row, bool byFileAs) {
    list.entries.emplace_back(row, byFileAs);
    step = Step::Index;
}

bool AddressListBuilder::Before(const Sortable& left, const Sortable& right) const {
    if (left.keyStart != right.keyStart) return left.keyStart < right.keyStart;
    if (left.name != right.name) {
        if (const int order = Key(left.name).compare(Key(right.name))) return order < 0;
    }
    if (list.rows[left.entry.row].kind != list.rows[right.entry.row].kind)
        return list.rows[left.entry.row].kind < list.rows[right.entry.row].kind;
    return left.entry.row < right.entry.row;
}

std::string_view AddressListBuilder::Key(std::uint32_t name) const {
    return {keys.data() + keyStarts[name], keyStarts[name + 1] - keyStarts[name]};
}

// A name comes with each of a person's numbers, and people share names.
AddressListBuilder::Sortable AddressListBuilder::ToSort(AddressList::Entry entry) {
    const AddressList::StoredRow& row = list.rows[entry.row];
    const TextView text = list.At(entry.byFileAs ? row.fileAs : row.name);
    Sortable sortable{{}, names.NumberOf(HashOf(text)), entry};
    if (sortable.name + 1 == keyStarts.size()) {
        locale.AppendSortKey(text, keys);
        keyStarts.push_back(std::uint32_t(keys.size()));
    }
    const std::string_view key = Key(sortable.name);
    std::size_t at = 0;
    for (std::uint64_t& part : sortable.keyStart) {
        for (const std::size_t stop = at + sizeof part; at < stop; ++at)
            part = part << 8 | (at < key.size() ? std::uint8_t(key[at]) : 0);
    }
    return sortable;
}

bool AddressListBuilder::DoSome(std::size_t most) {
    constexpr std::size_t Quick = 16;  // so much faster than the other steps
    switch (step) {
        case Step::Keys:
            MakeKeys(most);
            return true;
        case Step::Sort:
            SortRun(most);
            return true;
        case Step::Merge:
            Merge(most);
            return true;
        case Step::Index:
            Index(most);
            return true;
        case Step::Starts:
            if (!Scatter(starts, list.starts, list.startBuckets, Quick * most)) step = Step::Ends;
            return true;
        case Step::Ends:
            if (Scatter(ends, list.ends, list.endBuckets, Quick * most)) return true;
            companies.clear();
            step = Step::Trim;
            return true;
        case Step::Trim:
            numbers = {};
            list.rows.shrink_to_fit();
            step = Step::TrimTexts;
            return true;
        case Step::TrimTexts:
            list.texts.shrink_to_fit();
            step = Step::Done;
            return false;
        case Step::Done:
            break;
    }
    return false;
}

void AddressListBuilder::MakeKeys(std::size_t most) {
    if (next == 0) {
        keyStarts.assign(1, 0);
        names.Reserve(2 * list.rows.size());
        sorted.reserve(2 * list.rows.size());
    }
    const std::size_t end = std::min(list.rows.size(), next + most);
    for (; next < end; ++next) {
        const auto row = std::uint32_t(next);
        sorted.push_back(ToSort({row, false}));
        if (list.rows[row].fileAs.length > 0) sorted.push_back(ToSort({row, true}));
    }
    if (next < list.rows.size()) return;
    next = 0;
    step = Step::Sort;
}

void AddressListBuilder::SortRun(std::size_t most) {
    // Sorting is faster than merging, as long as it stays short.
    constexpr std::size_t Longer = 4;
    const std::size_t end = std::min(sorted.size(), next + Longer * most);
    std::sort(sorted.begin() + std::ptrdiff_t(next), sorted.begin() + std::ptrdiff_t(end),
              [&](const auto& one, const auto& other) { return Before(one, other); });
    if (end > next) runs.push_back(end);
    next = end;
    if (next == sorted.size()) step = Step::Merge;
}

// Two runs at a time are merged behind what was merged before.
void AddressListBuilder::Merge(std::size_t most) {
    if (runs.size() <= 1) {
        list.entries.reserve(sorted.size());
        for (const Sortable& each : sorted) list.entries.push_back(each.entry);
        std::vector<Sortable>().swap(sorted);
        std::vector<Sortable>().swap(merged);
        std::string().swap(keys);
        std::vector<std::uint32_t>().swap(keyStarts);
        names = {};
        next = 0;
        step = Step::Index;
        return;
    }
    if (merged.empty()) merged.reserve(sorted.size());
    for (std::size_t taken = 0; taken < most && run < runs.size(); ++taken) {
        const std::size_t leftEnd = runs[run];
        const std::size_t rightEnd = run + 1 < runs.size() ? runs[run + 1] : leftEnd;
        if (left == right) right = leftEnd;  // a new pair
        const bool takeLeft =
            left < leftEnd && (right >= rightEnd || !Before(sorted[right], sorted[left]));
        merged.push_back(sorted[takeLeft ? left++ : right++]);
        if (left >= leftEnd && right >= rightEnd) {
            mergedRuns.push_back(rightEnd);
            left = right = rightEnd;
            run += 2;
        }
    }
    if (run < runs.size()) return;
    sorted.swap(merged);
    merged.clear();
    runs = std::exchange(mergedRuns, {});
    run = left = right = 0;
}

// The buckets of an entry's start and of its word ends.
void AddressListBuilder::Index(std::size_t most) {
    constexpr std::size_t Most = BucketUnits + SignatureUnits;
    if (next == 0) {
        list.startBuckets.assign(BucketCount + 1, 0);
        list.endBuckets.assign(BucketCount + 1, 0);
        starts.reserve(list.entries.size());
        ends.reserve(2 * list.entries.size());
    }
    const std::size_t stop = std::min(list.entries.size(), next + most);
    for (; next < stop; ++next) {
        folded.clear();
        for (const TextView part : {list.EntryName(next), AddressList::Separator,
                                    list.At(list.rows[list.entries[next].row].number)}) {
            for (const char16_t unit : part) folded += LowerCase(unit);
        }
        const auto entry = std::uint32_t(next);
        const std::size_t size = folded.size();
        const auto forward = [&](std::size_t at) { return at < size ? folded[at] : u' '; };
        starts.push_back({{entry, SignatureOf(Most, forward).first},
                          std::uint32_t(BucketRange(BucketUnits, forward).first)});
        ++list.startBuckets[starts.back().bucket];
        for (std::size_t at = 1; at < size; ++at) {
            const bool isEnd = (folded[at] == u' ' || folded[at] == u'(') && folded[at - 1] != u' ';
            if (!isEnd) continue;
            const auto back = [&](std::size_t of) { return of < at ? folded[at - 1 - of] : u' '; };
            ends.push_back({{entry, std::uint32_t(at), SignatureOf(Most, back).first},
                            std::uint32_t(BucketRange(BucketUnits, back).first)});
            ++list.endBuckets[ends.back().bucket];
        }
    }
    if (next < list.entries.size()) return;
    next = 0;
    step = Step::Starts;
}

// Puts some of what was found into its buckets. False when all of it is there.
template <class Type>
bool AddressListBuilder::Scatter(std::vector<Found<Type>>& found, std::vector<Type>& into,
                                 std::vector<std::uint32_t>& buckets, std::size_t most) {
    if (next == 0) {
        std::uint32_t sum = 0;
        for (std::uint32_t& count : buckets) sum += std::exchange(count, sum);
        into.resize(found.size());
    }
    const std::size_t stop = std::min(found.size(), next + most);
    for (; next < stop; ++next) into[buckets[found[next].bucket]++] = found[next].found;
    if (next < found.size()) return true;
    // Each start has moved on to its bucket's end, which is where the next one begins.
    std::rotate(buckets.begin(), buckets.end() - 1, buckets.end());
    buckets.front() = 0;
    buckets.back() = std::uint32_t(into.size());
    std::vector<Found<Type>>().swap(found);
    next = 0;
    return false;
}

}  // namespace tellwick
