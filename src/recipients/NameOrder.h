// The alphabetical order of many names, each looked at once however often it comes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"
#include "recipients/HashNumbers.h"

namespace tellwick {

class Locale;

class NameOrder {
public:
    explicit NameOrder(Locale& locale) : locale(locale) {}

    // About so many names will come.
    void Reserve(std::size_t names);
    // Of a name, from 0; the same for the same name.
    std::uint32_t NumberOf(TextView name);
    std::size_t Count() const { return keyStarts.size() - 1; }

    // Once all names have their numbers: sorts them. Does some of it; false when all is done.
    // `most` is about how many names a step may look at.
    bool DoSome(std::size_t most);
    // By number, when all is done: the place of a name among all, from 0 and below Count(). Names
    // that stand together for the user's language share one.
    const std::vector<std::uint32_t>& Ranks() const { return ranks; }
    // The memory is needed no more.
    void Clear();

private:
    enum class Step { Sort, Merge, Rank, Done };

    // A name with the first bytes of its sort key, which mostly decide.
    struct Sortable {
        std::array<std::uint64_t, 2> keyStart;
        std::uint32_t name;
    };

    std::string_view Key(std::uint32_t name) const;
    bool Before(const Sortable& left, const Sortable& right) const;
    void SortRun(std::size_t most);
    void Merge(std::size_t most);
    void Rank(std::size_t most);

    Locale& locale;
    HashNumbers numbers;
    // Sort keys by name, in one piece.
    std::string keys;
    std::vector<std::uint32_t> keyStarts = {0};
    std::vector<Sortable> sorted, merged;
    std::vector<std::uint32_t> ranks;
    Step step = Step::Sort;
    std::size_t next = 0;
    // Where each sorted run ends; neighbours are merged until one is left.
    std::vector<std::size_t> runs, mergedRuns;
    std::size_t run = 0, left = 0, right = 0;
};

}  // namespace tellwick
