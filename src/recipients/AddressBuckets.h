// How the address list finds texts by their first units, or their last ones going back: by a bucket
// that the first few choose, and a signature of the next few.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace tellwick {

inline constexpr std::size_t BucketUnits = 3;  // units by which entries are put into buckets
inline constexpr unsigned ClassBits = 5;
inline constexpr std::size_t SignatureUnits = 6;  // as 32 bits hold
inline constexpr std::size_t BucketCount = std::size_t(1) << (ClassBits * BucketUnits);

// A unit in lower case as one of 32 classes; letters have one each.
inline std::size_t ClassOf(char16_t folded) {
    if (folded >= u'a' && folded <= u'z') return std::size_t(folded - u'a');
    return 26 + folded % 6;
}

inline bool ClassIsOneLetter(char16_t folded) {
    return folded >= u'a' && folded <= u'z';
}

// The buckets of all texts whose first (or last, going back) units are those given by unit(0) to
// unit(count - 1).
template <class Unit>
std::pair<std::size_t, std::size_t> BucketRange(std::size_t count, const Unit& unit) {
    std::size_t first = 0;
    for (std::size_t index = 0; index < BucketUnits; ++index)
        first = first << ClassBits | (index < count ? ClassOf(unit(index)) : 0);
    const std::size_t missing = BucketUnits - std::min(count, BucketUnits);
    return {first, first + (std::size_t(1) << (ClassBits * missing))};
}

// The classes of the units behind the first ones, and which bits of it the units given decide.
template <class Unit>
std::pair<std::uint32_t, std::uint32_t> SignatureOf(std::size_t count, const Unit& unit) {
    std::uint32_t signature = 0;
    std::uint32_t mask = 0;
    for (std::size_t index = BucketUnits; index < BucketUnits + SignatureUnits; ++index) {
        const bool given = index < count;
        signature = signature << ClassBits | std::uint32_t(given ? ClassOf(unit(index)) : 0);
        mask = mask << ClassBits | (given ? (1U << ClassBits) - 1 : 0);
    }
    return {signature, mask};
}

}  // namespace tellwick
