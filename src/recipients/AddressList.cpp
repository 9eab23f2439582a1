#include "recipients/AddressList.h"

#include <algorithm>
#include <bit>

#include "recipients/AddressBuckets.h"

namespace tellwick {

namespace {

constexpr std::uint32_t Digits = 10000000;  // numbers with the same last seven are the same

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

// Whether two numbers with the same last digits are the same to dial: one goes on before the other
// with its prefix, or with a zero.
bool SameToDial(TextView left, TextView right) {
    const auto significant = [](TextView number) {
        Text digits;
        for (const char16_t unit : number) {
            if (IsDigit(unit) && (unit != u'0' || !digits.empty())) digits += unit;
        }
        return digits;
    };
    const Text one = significant(left), other = significant(right);
    constexpr std::size_t Least = 7;
    return one == other || (std::min(one.size(), other.size()) >= Least &&
                            (one.ends_with(other) || other.ends_with(one)));
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

void AddressList::FetchAhead(std::size_t index) const {
    constexpr std::size_t RowAhead = 16;
    constexpr std::size_t TextAhead = 8;
    if (index + RowAhead >= entries.size()) return;
    __builtin_prefetch(&rows[entries[index + RowAhead].row]);
    const StoredRow& row = rows[entries[index + TextAhead].row];
    __builtin_prefetch(&texts[row.name.at]);
    __builtin_prefetch(&texts[row.number.at]);
}

Text AddressList::EntryText(std::size_t index) const {
    return Text(EntryName(index))
        .append(Separator)
        .append(At(rows[entries[index].row].number))
        .append(u")");
}

RowsOfNumbers AddressList::RowsOf(const std::vector<Text>& numbers) const {
    RowsOfNumbers found(numbers.size());
    std::vector<std::pair<std::uint32_t, std::size_t>> wanted;  // by the last digits
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        if (const std::uint32_t digits = LastDigits(numbers[at])) wanted.emplace_back(digits, at);
    }
    std::sort(wanted.begin(), wanted.end());
    for (std::size_t row = 0; row < rows.size() && !wanted.empty(); ++row) {
        if (rows[row].kind == NumberKind::List) continue;
        const TextView number = At(rows[row].number);
        const std::uint32_t digits = LastDigits(number);
        for (auto same =
                 std::lower_bound(wanted.begin(), wanted.end(), std::pair(digits, std::size_t(0)));
             same != wanted.end() && same->first == digits; ++same) {
            if (SameToDial(numbers[same->second], number))
                found[same->second].push_back(std::uint32_t(row));
        }
    }
    return found;
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

// Of a person's number, when it is there.
std::optional<std::uint32_t> AddressList::NumberIdOf(TextView name, TextView number) const {
    const Text folded = LowerCase(Text(name).append(Separator).append(number).append(u")"));
    const auto unit = [&](std::size_t at) { return folded[at]; };
    const std::size_t bucket = BucketRange(BucketUnits, unit).first;
    const auto [signature, mask] = SignatureOf(folded.size(), unit);
    for (std::uint32_t at = startBuckets[bucket]; at < startBuckets[bucket + 1]; ++at) {
        const Start& start = starts[at];
        if (((start.signature ^ signature) & mask) != 0 || entries[start.entry].byFileAs) continue;
        const StoredRow& row = rows[entries[start.entry].row];
        if (At(row.number) == number && EqualFolded(At(row.name), name)) return row.numberId;
    }
    return {};
}

void AddressList::MatchAll(TextView folded, Marks& begins, Marks& others) const {
    if (startBuckets.empty()) return;
    const std::size_t length = folded.size();
    // Bucket and signature say all that there is to say: the texts need not be looked at.
    const bool decided = length <= BucketUnits + SignatureUnits &&
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
    const auto offer = [&](std::size_t entry) { matches.push_back(std::uint32_t(entry)); };
    for (const std::uint32_t entry : recent) {
        if (begins.Has(entry) || others.Has(entry)) offer(entry);
    }
    begins.ForEach(offer);
    others.ForEach(offer);
    // Whose number each is lies scattered in memory.
    constexpr std::size_t Ahead = 16;
    std::size_t kept = 0;
    for (std::size_t at = 0; at < matches.size(); ++at) {
        if (at + Ahead < matches.size())
            __builtin_prefetch(&rows[entries[matches[at + Ahead]].row].numberId);
        if (taken.Take(rows[entries[matches[at]].row].numberId)) matches[kept++] = matches[at];
    }
    matches.resize(kept);
    return matches;
}

}  // namespace tellwick
