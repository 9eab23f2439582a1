#include "recipients/AddressListBuilder.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/Locale.h"
#include "recipients/AddressBuckets.h"

namespace tellwick {

namespace {

std::uint64_t HashOf(TextView text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char16_t unit : text) hash = (hash ^ unit) * 0x100000001B3;
    return hash ^ hash >> 32;
}

}  // namespace

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
    numbers.reserve(rows);
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
    const auto [number, isNew] = numbers.try_emplace(HashOf(row.number), list.numberIds);
    if (isNew) ++list.numberIds;
    stored.numberId = number->second;
    stored.number = Store(row.number);
    stored.item = row.item;
    stored.folder = row.folder;
    stored.kind = row.kind;
    list.rows.push_back(stored);
}

void AddressListBuilder::AddEntry(std::uint32_t row, bool byFileAs) {
    list.entries.push_back({row, byFileAs});
    step = Step::Count;
}

TextView AddressListBuilder::Name(AddressList::Entry entry) const {
    const AddressList::StoredRow& row = list.rows[entry.row];
    return list.At(entry.byFileAs ? row.fileAs : row.name);
}

bool AddressListBuilder::Before(AddressList::Entry left, AddressList::Entry right) const {
    const auto key = [&](AddressList::Entry entry) {
        const std::size_t index = 2 * entry.row + entry.byFileAs;
        return std::string_view(keys).substr(keyStarts[index],
                                             keyStarts[index + 1] - keyStarts[index]);
    };
    if (const int order = key(left).compare(key(right))) return order < 0;
    if (list.rows[left.row].kind != list.rows[right.row].kind)
        return list.rows[left.row].kind < list.rows[right.row].kind;
    return left.row < right.row;
}

// Counts the entry, or puts it there, in the bucket of its start and those of its word ends.
void AddressListBuilder::ForEachBucket(std::size_t entry, bool scatter) {
    constexpr std::size_t Most = BucketUnits + SignatureUnits;
    folded.clear();
    for (const TextView part : {list.EntryName(entry), AddressList::Separator,
                                list.At(list.rows[list.entries[entry].row].number)}) {
        for (const char16_t unit : part) folded += LowerCase(unit);
    }
    const std::size_t size = folded.size();
    const auto forward = [&](std::size_t at) { return at < size ? folded[at] : u' '; };
    const std::size_t startBucket = BucketRange(BucketUnits, forward).first;
    if (scatter) {
        list.starts[list.startBuckets[startBucket]++] = {std::uint32_t(entry),
                                                         SignatureOf(Most, forward).first};
    } else {
        ++list.startBuckets[startBucket];
    }
    for (std::size_t at = 1; at < size; ++at) {
        const bool isEnd = (folded[at] == u' ' || folded[at] == u'(') && folded[at - 1] != u' ';
        if (!isEnd) continue;
        const auto back = [&](std::size_t of) { return of < at ? folded[at - 1 - of] : u' '; };
        const std::size_t bucket = BucketRange(BucketUnits, back).first;
        if (scatter) {
            list.ends[list.endBuckets[bucket]++] = {std::uint32_t(entry), std::uint32_t(at),
                                                    SignatureOf(Most, back).first};
        } else {
            ++list.endBuckets[bucket];
        }
    }
}

bool AddressListBuilder::DoSome(std::size_t most) {
    const auto finished = [&](Step then) {
        next = 0;
        step = then;
    };
    switch (step) {
        case Step::Keys: {
            const std::size_t end = std::min(list.rows.size(), next + most);
            for (; next < end; ++next) {
                const auto row = std::uint32_t(next);
                for (const bool byFileAs : {false, true}) {
                    keyStarts.push_back(std::uint32_t(keys.size()));
                    const TextView name = Name({row, byFileAs});
                    if (byFileAs && name.empty()) continue;
                    keys += locale.SortKey(name);
                    sorted.push_back({row, byFileAs});
                }
            }
            if (next < list.rows.size()) return true;
            keyStarts.push_back(std::uint32_t(keys.size()));
            finished(Step::Sort);
            return true;
        }
        case Step::Sort: {
            const std::size_t end = std::min(sorted.size(), next + most);
            std::sort(sorted.begin() + std::ptrdiff_t(next), sorted.begin() + std::ptrdiff_t(end),
                      [&](auto one, auto other) { return Before(one, other); });
            if (end > next) runs.push_back(end);
            next = end;
            if (next < sorted.size()) return true;
            finished(Step::Merge);
            run = left = right = 0;
            return true;
        }
        case Step::Merge: {
            if (runs.size() <= 1 && list.entries.empty()) {
                list.entries = std::move(sorted);
                finished(Step::Count);
                return true;
            }
            // Two runs at a time are merged behind what was merged before.
            if (list.entries.empty()) list.entries.reserve(sorted.size());
            for (std::size_t taken = 0; taken < most && run < runs.size(); ++taken) {
                const std::size_t leftEnd = runs[run];
                const std::size_t rightEnd = run + 1 < runs.size() ? runs[run + 1] : leftEnd;
                if (left == right) right = leftEnd;  // a new pair
                const bool takeLeft =
                    left < leftEnd && (right >= rightEnd || !Before(sorted[right], sorted[left]));
                list.entries.push_back(sorted[takeLeft ? left++ : right++]);
                if (left >= leftEnd && right >= rightEnd) {
                    mergedRuns.push_back(rightEnd);
                    left = right = rightEnd;
                    run += 2;
                }
            }
            if (run < runs.size()) return true;
            sorted = std::exchange(list.entries, {});
            runs = std::exchange(mergedRuns, {});
            run = left = right = 0;
            return true;
        }
        case Step::Count: {
            if (next == 0) {
                std::string().swap(keys);
                std::vector<std::uint32_t>().swap(keyStarts);
                std::vector<AddressList::Entry>().swap(sorted);
                list.startBuckets.assign(BucketCount + 1, 0);
                list.endBuckets.assign(BucketCount + 1, 0);
            }
            const std::size_t end = std::min(list.entries.size(), next + most);
            for (; next < end; ++next) ForEachBucket(next, false);
            if (next < list.entries.size()) return true;
            for (auto* buckets : {&list.startBuckets, &list.endBuckets}) {
                std::uint32_t sum = 0;
                for (std::uint32_t& count : *buckets) sum += std::exchange(count, sum);
            }
            list.starts.resize(list.entries.size());
            list.ends.resize(list.endBuckets.back());
            finished(Step::Scatter);
            return true;
        }
        case Step::Scatter: {
            const std::size_t end = std::min(list.entries.size(), next + most);
            for (; next < end; ++next) ForEachBucket(next, true);
            if (next < list.entries.size()) return true;
            // Each start has moved on to its bucket's end, which is where the next one begins.
            for (auto* buckets : {&list.startBuckets, &list.endBuckets}) {
                std::rotate(buckets->begin(), buckets->end() - 1, buckets->end());
                buckets->front() = 0;
                buckets->back() = std::uint32_t(buckets == &list.startBuckets ? list.starts.size()
                                                                              : list.ends.size());
            }
            list.texts.shrink_to_fit();
            list.rows.shrink_to_fit();
            companies.clear();
            numbers.clear();
            finished(Step::Done);
            return false;
        }
        case Step::Done:
            break;
    }
    return false;
}

}  // namespace tellwick
