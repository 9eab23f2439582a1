// Hashes: of bytes that come in pieces, which tells damaged files from whole ones, and of texts.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/Text.h"

namespace tellwick {

inline constexpr std::uint64_t HashBasis = 0xCBF29CE484222325;
inline constexpr std::uint64_t HashPrime = 0x100000001B3;

// Of a short text, unit by unit; its lower bits are the less mixed the shorter it is.
inline std::uint64_t HashOfUnits(TextView text) {
    std::uint64_t hash = HashBasis;
    for (const char16_t unit : text) hash = (hash ^ unit) * HashPrime;
    return hash;
}

class RunningHash {
public:
    void Add(std::string_view bytes) {
        size += bytes.size();
        while (filled == 0 && bytes.size() >= word.size()) {
            std::memcpy(word.data(), bytes.data(), word.size());
            bytes.remove_prefix(word.size());
            Mix();
        }
        while (!bytes.empty()) {
            const std::size_t part = std::min(word.size() - filled, bytes.size());
            std::memcpy(word.data() + filled, bytes.data(), part);
            bytes.remove_prefix(part);
            filled += part;
            if (filled == word.size()) Mix();
        }
    }

    // Of the bytes so far and their number.
    std::uint64_t Value() const {
        RunningHash whole = *this;
        std::fill(whole.word.begin() + std::ptrdiff_t(filled), whole.word.end(), '\0');
        whole.Mix();
        return whole.hash ^ size;
    }

private:
    void Mix() {
        std::uint64_t bits = 0;
        std::memcpy(&bits, word.data(), sizeof bits);
        hash = (hash ^ bits) * HashPrime;
        hash ^= hash >> 29;
        filled = 0;
    }

    std::array<char, sizeof(std::uint64_t)> word{};
    std::size_t filled = 0;
    std::uint64_t hash = HashBasis;
    std::uint64_t size = 0;
};

}  // namespace tellwick
