#include "recipients/HashNumbers.h"

#include <algorithm>
#include <bit>

namespace tellwick {

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
    for (auto at = std::size_t(hash);; ++at) {
        Place& place = places[at & (places.size() - 1)];
        if (place.number == 0) place = {hash, ++count};
        if (place.hash == hash) return place.number - 1;
    }
}

}  // namespace tellwick
