#include "recipients/AddressList.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

// Position of the next unit at or after `from`; the end when there is none. Looks at four units at
// a time, which the compiler turns into few instructions.
const char16_t* FindUnit(const char16_t* from, const char16_t* end, char16_t unit) {
    for (; end - from >= 4; from += 4) {
        if (from[0] == unit || from[1] == unit || from[2] == unit || from[3] == unit) break;
    }
    while (from != end && *from != unit) ++from;
    return from;
}

}  // namespace

void AddressList::Assign(std::vector<Text> newEntries) {
    entries = std::move(newEntries);
    std::erase_if(entries, [](const Text& entry) { return entry.empty(); });
    starts.clear();
    starts.reserve(entries.size());
    std::size_t length = 0;
    for (const Text& entry : entries) length += entry.size() + 1;
    folded.clear();
    folded.reserve(length);
    for (const Text& entry : entries) {
        folded += LineFeed;
        starts.push_back(folded.size());
        for (const char16_t unit : entry) folded += LowerCase(unit);
    }
}

std::vector<std::size_t> AddressList::Matches(TextView search) const {
    std::vector<std::size_t> matches;
    const Text wanted = LowerCase(search);
    if (wanted.empty() || folded.empty()) return matches;
    const char16_t* const begin = folded.data();
    const char16_t* const end = begin + folded.size();
    const char16_t* at = begin;
    std::size_t entry = 0;
    while (entry < entries.size() && std::size_t(end - at) >= wanted.size()) {
        at = FindUnit(at, end - (wanted.size() - 1), wanted[0]);
        if (at == end - (wanted.size() - 1)) break;
        if (!std::equal(wanted.begin() + 1, wanted.end(), at + 1)) {
            ++at;
            continue;
        }
        const auto position = std::size_t(at - begin);
        const char16_t* const behind = at + wanted.size();
        const bool atStart = position > 0 && at[-1] == LineFeed;
        const bool closed = behind != end && (*behind == u' ' || *behind == u'(');
        if (!atStart && !closed) {
            ++at;
            continue;
        }
        const auto next =
            std::upper_bound(starts.begin() + std::ptrdiff_t(entry), starts.end(), position);
        entry = std::size_t(next - starts.begin());
        matches.push_back(entry - 1);
        // On with the next entry.
        if (next == starts.end()) break;
        at = begin + *next;
    }
    return matches;
}

}  // namespace tellwick
