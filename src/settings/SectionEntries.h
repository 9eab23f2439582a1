// The entries of one section of a text: lines "key=value" between two positions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tellwick {

// A line begins behind a line break. `Fold` maps a character to the one it is compared as. The
// text is handed over at each call, and has to be the same one each time.
template <class Char, class Fold>
class SectionEntries {
public:
    using View = std::basic_string_view<Char>;
    static constexpr std::size_t NotFound = View::npos;

    // The section begins at `begin`; its entries' line breaks lie before `end`.
    SectionEntries(std::size_t begin, std::size_t end) : begin(begin), end(end) {}

    std::size_t Begin() const { return begin; }
    std::size_t End() const { return end; }

    // Position of the line break in front of the first line that begins with key and "=". The
    // first search reads through the section; from the second on an index answers.
    std::size_t Find(View text, View lineBreak, View key, const Fold& fold) {
        // A key with "=" or a line break in it cannot be told from the line alone.
        if (searches++ == 0 || key.find(Char('=')) != View::npos ||
            key.find(lineBreak) != View::npos) {
            return Search(text, lineBreak, key, fold);
        }
        if (slots.empty()) BuildIndex(text, lineBreak, fold);
        std::uint32_t hash = HashStart;
        for (const Char c : key) hash = Hashed(hash, fold(c));
        const Slot& slot = slots[SlotOf(text, lineBreak, key, hash, fold)];
        return slot.used ? slot.position : NotFound;
    }

private:
    struct Slot {
        std::size_t position = 0;
        std::uint32_t hash = 0;
        bool used = false;
    };
    static constexpr std::uint32_t HashStart = 2166136261u;

    static std::uint32_t Hashed(std::uint32_t hash, Char c) {
        return (hash ^ std::uint32_t(std::make_unsigned_t<Char>(c))) * 16777619u;
    }

    // Whether the line behind the line break at `position` begins with key and "=".
    static bool Matches(View text, std::size_t keyStart, View key, const Fold& fold) {
        if (text.size() - keyStart <= key.size() || text[keyStart + key.size()] != Char('=')) {
            return false;
        }
        for (std::size_t i = 0; i < key.size(); ++i) {
            if (fold(text[keyStart + i]) != fold(key[i])) return false;
        }
        return true;
    }

    template <class Visit>
    void ForEachLine(View text, View lineBreak, const Visit& visit) const {
        const View lines = text.substr(0, end + lineBreak.size() - 1);
        for (std::size_t at = lines.find(lineBreak, begin); at != NotFound && at < end;
             at = lines.find(lineBreak, at + 1)) {
            if (!visit(at)) return;
        }
    }

    std::size_t Search(View text, View lineBreak, View key, const Fold& fold) const {
        std::size_t found = NotFound;
        ForEachLine(text, lineBreak, [&](std::size_t at) {
            if (Matches(text, at + lineBreak.size(), key, fold)) found = at;
            return found == NotFound;
        });
        return found;
    }

    void BuildIndex(View text, View lineBreak, const Fold& fold) {
        std::vector<Slot> entries;
        std::vector<std::size_t> keyLengths;
        ForEachLine(text, lineBreak, [&](std::size_t at) {
            std::uint32_t hash = HashStart;
            for (std::size_t i = at + lineBreak.size(); i < text.size(); ++i) {
                if (text[i] == Char('=')) {
                    entries.push_back({at, hash, true});
                    keyLengths.push_back(i - at - lineBreak.size());
                    break;
                }
                if (text[i] == lineBreak[0] && text.substr(i, lineBreak.size()) == lineBreak) break;
                hash = Hashed(hash, fold(text[i]));
            }
            return true;
        });
        std::size_t size = 16;
        while (size < 2 * entries.size()) size *= 2;
        slots.resize(size);
        // In the order of the text, so that the first of several equal keys is the one kept.
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const View key = text.substr(entries[i].position + lineBreak.size(), keyLengths[i]);
            Slot& slot = slots[SlotOf(text, lineBreak, key, entries[i].hash, fold)];
            if (!slot.used) slot = entries[i];
        }
    }

    // The slot that holds the key, or the free one in which it belongs.
    std::size_t SlotOf(View text, View lineBreak, View key, std::uint32_t hash,
                       const Fold& fold) const {
        std::size_t i = hash & (slots.size() - 1);
        while (slots[i].used && (slots[i].hash != hash ||
                                 !Matches(text, slots[i].position + lineBreak.size(), key, fold))) {
            i = (i + 1) & (slots.size() - 1);
        }
        return i;
    }

    std::size_t begin;
    std::size_t end;
    std::uint32_t searches = 0;
    std::vector<Slot> slots;  // a power of two of them, at most half used; empty until built
};

}  // namespace tellwick
