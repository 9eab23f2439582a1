// Numbers what differs by its hash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "recipients/RunningHash.h"

namespace tellwick {

// From 0. In one piece, so that it is quick to fill and to free.
class HashNumbers {
public:
    void Reserve(std::size_t count);
    std::uint32_t NumberOf(std::uint64_t hash);
    std::uint32_t Count() const { return count; }

private:
    struct Place {
        std::uint64_t hash = 0;
        std::uint32_t number = 0;  // from 1; 0 is free
    };

    std::vector<Place> places;  // a power of two, at most half of them taken
    std::uint32_t count = 0;
};

// As HashNumbers wants it: its lower bits choose the place.
inline std::uint64_t HashOf(TextView text) {
    const std::uint64_t hash = HashOfUnits(text);
    return hash ^ hash >> 32;
}

}  // namespace tellwick
