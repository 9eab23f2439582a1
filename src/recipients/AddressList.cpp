#include "recipients/AddressList.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

#include "platform/Locale.h"

namespace tellwick {

namespace {

constexpr TextView Separator = u"  (";  // between the name and the number of an entry
constexpr std::size_t Depth = 3;        // units by which entries are put into buckets
constexpr unsigned ClassBits = 5;
constexpr std::size_t SignatureUnits = 6;  // as 32 bits hold
constexpr std::size_t Buckets = std::size_t(1) << (ClassBits * Depth);
constexpr std::uint32_t Digits = 10000000;  // numbers with the same last seven are the same

// A unit in lower case as one of 32 classes; letters have one each.
std::size_t ClassOf(char16_t folded) {
    if (folded >= u'a' && folded <= u'z') return std::size_t(folded - u'a');
    return 26 + folded % 6;
}

bool ClassIsOneLetter(char16_t folded) {
    return folded >= u'a' && folded <= u'z';
}

// The buckets of all texts whose first (or last, going back) units are those given by unit(0) to
// unit(count - 1).
template <class Unit>
std::pair<std::size_t, std::size_t> BucketRange(std::size_t count, const Unit& unit) {
    std::size_t first = 0;
    for (std::size_t index = 0; index < Depth; ++index)
        first = first << ClassBits | (index < count ? ClassOf(unit(index)) : 0);
    const std::size_t missing = Depth - std::min(count, Depth);
    return {first, first + (std::size_t(1) << (ClassBits * missing))};
}

// The classes of the units behind the first ones, and which bits of it the units given decide.
template <class Unit>
std::pair<std::uint32_t, std::uint32_t> SignatureOf(std::size_t count, const Unit& unit) {
    std::uint32_t signature = 0;
    std::uint32_t mask = 0;
    for (std::size_t index = Depth; index < Depth + SignatureUnits; ++index) {
        const bool given = index < count;
        signature = signature << ClassBits | std::uint32_t(given ? ClassOf(unit(index)) : 0);
        mask = mask << ClassBits | (given ? (1U << ClassBits) - 1 : 0);
    }
    return {signature, mask};
}

std::uint64_t HashOf(TextView text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char16_t unit : text) hash = (hash ^ unit) * 0x100000001B3;
    return hash ^ hash >> 32;
}

// The last digits as a number, which no zero in front changes.
std::uint32_t LastDigits(TextView number) {
    std::uint32_t digits = 0;
    std::uint32_t place = 1;
    for (std::size_t at = number.size(); at-- > 0 && place < Digits;) {
        if (number[at] < u'0' || number[at] > u'9') continue;
        digits += place * std::uint32_t(number[at] - u'0');
        place *= 10;
    }
    return digits;
}

}  // namespace

// A set of entries.
class AddressList::Marks {
public:
    explicit Marks(std::size_t size) : words((size + 63) / 64) {}
    void Set(std::size_t index) { words[index / 64] |= std::uint64_t(1) << index % 64; }
    bool Has(std::size_t index) const { return (words[index / 64] >> index % 64 & 1) != 0; }
    // Sets the mark; false when it was set.
    bool Take(std::size_t index) {
        if (Has(index)) return false;
        Set(index);
        return true;
    }
    template <class Visit>
    void ForEach(const Visit& visit) const {
        for (std::size_t word = 0; word < words.size(); ++word) {
            for (std::uint64_t bits = words[word]; bits != 0; bits &= bits - 1)
                visit(64 * word + std::size_t(std::countr_zero(bits)));
        }
    }

private:
    std::vector<std::uint64_t> words;
};

AddressRow AddressList::Row(std::size_t row) const {
    const StoredRow& stored = rows[row];
    return {At(stored.name), At(stored.fileAs), At(stored.company), At(stored.number),
            stored.kind,     stored.folder,     stored.item};
}

TextView AddressList::EntryName(std::size_t index) const {
    const Entry entry = entries[index];
    const StoredRow& row = rows[entry.row];
    return At(entry.byFileAs ? row.fileAs : row.name);
}

Text AddressList::EntryText(std::size_t index) const {
    return Text(EntryName(index))
        .append(Separator)
        .append(At(rows[entries[index].row].number))
        .append(u")");
}

std::optional<std::size_t> AddressList::RowOfNumber(TextView number) const {
    const std::uint32_t digits = LastDigits(number);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (LastDigits(At(rows[row].number)) == digits) return row;
    }
    return {};
}

void AddressList::SetRecent(const std::vector<Text>& numbers) {
    std::vector<std::uint32_t> wanted;
    wanted.reserve(numbers.size());
    for (const Text& number : numbers) wanted.push_back(LastDigits(number));
    std::sort(wanted.begin(), wanted.end());
    recent.clear();
    if (wanted.empty()) return;
    std::vector<bool> isRecent(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        isRecent[row] =
            std::binary_search(wanted.begin(), wanted.end(), LastDigits(At(rows[row].number)));
    }
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (isRecent[entries[index].row]) recent.push_back(std::uint32_t(index));
    }
}

// Whether the entry's text goes on, from there, with the folded text.
bool AddressList::Continues(std::size_t entry, std::size_t from, TextView folded) const {
    const TextView name = EntryName(entry);
    // Nearly always inside the name: the entry's text need not be put together.
    if (from + folded.size() <= name.size()) {
        for (std::size_t index = 0; index < folded.size(); ++index) {
            if (LowerCase(name[from + index]) != folded[index]) return false;
        }
        return true;
    }
    return LowerCase(EntryText(entry)).compare(from, folded.size(), folded) == 0;
}

void AddressList::MatchAll(TextView folded, Marks& begins, Marks& others) const {
    if (startBuckets.empty()) return;
    const std::size_t length = folded.size();
    // Bucket and signature say all that there is to say: the texts need not be looked at.
    const bool decided = length <= Depth + SignatureUnits &&
                         std::all_of(folded.begin(), folded.end(), ClassIsOneLetter);
    {
        const auto unit = [&](std::size_t at) { return folded[at]; };
        const auto [first, last] = BucketRange(length, unit);
        const auto [signature, mask] = SignatureOf(length, unit);
        for (std::uint32_t at = startBuckets[first]; at < startBuckets[last]; ++at) {
            const Start& start = starts[at];
            if (((start.signature ^ signature) & mask) == 0 &&
                (decided || Continues(start.entry, 0, folded))) {
                begins.Set(start.entry);
            }
        }
    }
    const auto unit = [&](std::size_t at) { return folded[length - 1 - at]; };
    const auto [first, last] = BucketRange(length, unit);
    const auto [signature, mask] = SignatureOf(length, unit);
    for (std::uint32_t at = endBuckets[first]; at < endBuckets[last]; ++at) {
        const WordEnd& word = ends[at];
        if (((word.signature ^ signature) & mask) == 0 && word.end >= length &&
            (decided || Continues(word.entry, word.end - length, folded))) {
            others.Set(word.entry);
        }
    }
}

std::vector<std::uint32_t> AddressList::Matches(TextView search) const {
    std::vector<std::uint32_t> matches;
    const Text folded = LowerCase(search);
    if (folded.empty() || entries.empty()) return matches;
    Marks begins(entries.size()), others(entries.size()), taken(numberIds);
    MatchAll(folded, begins, others);
    const auto offer = [&](std::size_t entry) {
        if (taken.Take(rows[entries[entry].row].numberId)) {
            matches.push_back(std::uint32_t(entry));
        }
    };
    for (const std::uint32_t entry : recent) {
        if (begins.Has(entry) || others.Has(entry)) offer(entry);
    }
    begins.ForEach(offer);
    others.ForEach(offer);
    return matches;
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
    constexpr std::size_t Most = Depth + SignatureUnits;
    folded.clear();
    for (const TextView part :
         {list.EntryName(entry), Separator, list.At(list.rows[list.entries[entry].row].number)}) {
        for (const char16_t unit : part) folded += LowerCase(unit);
    }
    const std::size_t size = folded.size();
    const auto forward = [&](std::size_t at) { return at < size ? folded[at] : u' '; };
    const std::size_t startBucket = BucketRange(Depth, forward).first;
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
        const std::size_t bucket = BucketRange(Depth, back).first;
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
                list.startBuckets.assign(Buckets + 1, 0);
                list.endBuckets.assign(Buckets + 1, 0);
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
