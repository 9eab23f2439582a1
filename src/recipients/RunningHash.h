// A hash of bytes that come in pieces; tells damaged files from whole ones.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tellwick {

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
        hash = (hash ^ bits) * 0x100000001B3;
        hash ^= hash >> 29;
        filled = 0;
    }

    std::array<char, sizeof(std::uint64_t)> word{};
    std::size_t filled = 0;
    std::uint64_t hash = 0xCBF29CE484222325;
    std::uint64_t size = 0;
};

}  // namespace tellwick
