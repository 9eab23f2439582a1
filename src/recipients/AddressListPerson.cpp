// Whom of the address list a text names first.
#include <algorithm>
#include <array>

#include "recipients/AddressBuckets.h"
#include "recipients/AddressList.h"
#include "recipients/NumberInText.h"
#include "recipients/RunningHash.h"

namespace tellwick {

namespace {

constexpr std::size_t Decided = BucketUnits + SignatureUnits;  // units that buckets tell apart

bool EndsWord(TextView text, std::size_t at) {
    return at >= text.size() || !IsWordUnit(text[at]);
}

// What the entries of names can look like that stand at the beginning of a text and have their
// first so many units in common with it. The entry of a shorter name goes on with the separator.
class Looks {
public:
    Looks(TextView text, std::size_t common) : text(text) {
        bucket = BucketRange(BucketUnits, [&](std::size_t at) { return UnitOf(common, at); }).first;
        const std::size_t longest = common < BucketUnits ? common : Decided;
        for (std::size_t length = common; length <= std::min(longest, text.size()); ++length) {
            if (length == Decided || EndsWord(text, length)) Add(length);
        }
    }

    std::size_t Bucket() const { return bucket; }
    bool Include(std::uint32_t signature) const {
        return std::any_of(all.begin(), all.begin() + std::ptrdiff_t(count), [&](const auto& look) {
            return ((signature ^ look.first) & look.second) == 0;
        });
    }

private:
    char16_t UnitOf(std::size_t length, std::size_t at) const {
        return at < length ? text[at] : AddressList::Separator[at - length];
    }
    void Add(std::size_t length) {
        const std::size_t known = std::min(length + AddressList::Separator.size(), Decided);
        all[count++] = SignatureOf(known, [&](std::size_t at) { return UnitOf(length, at); });
    }

    TextView text;
    std::size_t bucket = 0;
    std::array<std::pair<std::uint32_t, std::uint32_t>, SignatureUnits + 1> all;
    std::size_t count = 0;
};

// Beginnings of texts that no entry looks like. Words come again and again.
class Barren {
public:
    static std::uint64_t KeyOf(TextView text) { return HashOfUnits(text.substr(0, Decided + 1)); }
    bool Has(std::uint64_t key) const { return keys[PlaceOf(key)] == key; }
    void Add(std::uint64_t key) { keys[PlaceOf(key)] = key; }

private:
    static constexpr std::size_t Places = 4093;  // a prime
    static std::size_t PlaceOf(std::uint64_t key) { return std::size_t(key % Places); }

    std::array<std::uint64_t, Places> keys{};
};

}  // namespace

// `promising` says whether some entry looks like the beginning.
std::optional<std::size_t> AddressList::RowNamedAtStart(TextView folded, bool& promising) const {
    std::optional<std::size_t> found;
    std::size_t longest = 0;
    std::uint32_t earliest = 0;
    for (std::size_t common = 1; common <= std::min(BucketUnits, folded.size()); ++common) {
        if (common < BucketUnits && !EndsWord(folded, common)) continue;
        const Looks looks(folded, common);
        for (std::uint32_t at = startBuckets[looks.Bucket()],
                           end = startBuckets[looks.Bucket() + 1];
             at < end; ++at) {
            if (!looks.Include(starts[at].signature)) continue;
            promising = true;
            const std::uint32_t index = starts[at].entry;
            const Entry entry = entries[index];
            const StoredRow& row = rows[entry.row];
            const std::size_t length = row.name.length;
            const bool better = length > longest || (length == longest && index < earliest);
            if (!better || entry.byFileAs || row.kind == NumberKind::List ||
                length > folded.size() || !EndsWord(folded, length) ||
                !Continues(index, 0, folded.substr(0, length))) {
                continue;
            }
            longest = length;
            earliest = index;
            found = entry.row;
        }
    }
    return found;
}

std::optional<std::size_t> AddressList::RowNamedFirstIn(TextView text) const {
    if (startBuckets.empty()) return {};
    const Text folded = LowerCase(text);
    Barren barren;
    for (std::size_t at = 0; at < folded.size(); ++at) {
        if (at > 0 && IsWordUnit(folded[at - 1])) continue;
        const TextView rest = TextView(folded).substr(at);
        const std::uint64_t key = Barren::KeyOf(rest);
        if (barren.Has(key)) continue;
        bool promising = false;
        if (const auto row = RowNamedAtStart(rest, promising)) return row;
        if (!promising) barren.Add(key);
    }
    return {};
}

}  // namespace tellwick
