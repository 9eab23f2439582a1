#include "recipients/NameOrder.h"

#include <algorithm>
#include <utility>

#include "platform/Locale.h"

namespace tellwick {

void NameOrder::Reserve(std::size_t names) {
    numbers.Reserve(names);
    sorted.reserve(names);
}

std::string_view NameOrder::Key(std::uint32_t name) const {
    return {keys.data() + keyStarts[name], keyStarts[name + 1] - keyStarts[name]};
}

std::uint32_t NameOrder::NumberOf(TextView name) {
    const std::uint32_t number = numbers.NumberOf(HashOf(name));
    if (number < Count()) return number;
    locale.AppendSortKey(name, keys);
    keyStarts.push_back(std::uint32_t(keys.size()));
    Sortable& sortable = sorted.emplace_back(Sortable{{}, number});
    const std::string_view key = Key(number);
    std::size_t at = 0;
    for (std::uint64_t& part : sortable.keyStart) {
        for (const std::size_t stop = at + sizeof part; at < stop; ++at)
            part = part << 8 | (at < key.size() ? std::uint8_t(key[at]) : 0);
    }
    return number;
}

bool NameOrder::Before(const Sortable& left, const Sortable& right) const {
    if (left.keyStart != right.keyStart) return left.keyStart < right.keyStart;
    return Key(left.name) < Key(right.name);
}

bool NameOrder::DoSome(std::size_t most) {
    switch (step) {
        case Step::Sort:
            SortRun(most);
            return true;
        case Step::Merge:
            Merge(most);
            return true;
        case Step::Rank:
            Rank(most);
            return step != Step::Done;
        case Step::Done:
            break;
    }
    return false;
}

void NameOrder::SortRun(std::size_t most) {
    // Sorting is faster than merging, as long as it stays short.
    constexpr std::size_t Longer = 4;
    const std::size_t end = std::min(sorted.size(), next + Longer * most);
    std::sort(sorted.begin() + std::ptrdiff_t(next), sorted.begin() + std::ptrdiff_t(end),
              [&](const auto& one, const auto& other) { return Before(one, other); });
    if (end > next) runs.push_back(end);
    next = end;
    if (next < sorted.size()) return;
    next = 0;
    step = Step::Merge;
}

// Two runs at a time are merged behind what was merged before.
void NameOrder::Merge(std::size_t most) {
    if (runs.size() <= 1) {
        std::vector<Sortable>().swap(merged);
        numbers = {};
        ranks.resize(sorted.size());
        step = Step::Rank;
        return;
    }
    if (merged.empty()) merged.reserve(sorted.size());
    for (std::size_t taken = 0; taken < most && run < runs.size(); ++taken) {
        const std::size_t leftEnd = runs[run];
        const std::size_t rightEnd = run + 1 < runs.size() ? runs[run + 1] : leftEnd;
        if (left == right) right = leftEnd;  // a new pair
        const bool takeLeft =
            left < leftEnd && (right >= rightEnd || !Before(sorted[right], sorted[left]));
        merged.push_back(sorted[takeLeft ? left++ : right++]);
        if (left >= leftEnd && right >= rightEnd) {
            mergedRuns.push_back(rightEnd);
            left = right = rightEnd;
            run += 2;
        }
    }
    if (run < runs.size()) return;
    sorted.swap(merged);
    merged.clear();
    runs = std::exchange(mergedRuns, {});
    run = left = right = 0;
}

void NameOrder::Rank(std::size_t most) {
    const std::size_t stop = std::min(sorted.size(), next + most);
    for (; next < stop; ++next) {
        std::uint32_t rank = 0;
        if (next > 0) {
            const Sortable& before = sorted[next - 1];
            rank = ranks[before.name] + (Before(before, sorted[next]) ? 1 : 0);
        }
        ranks[sorted[next].name] = rank;
    }
    if (next < sorted.size()) return;
    std::vector<Sortable>().swap(sorted);
    std::string().swap(keys);
    step = Step::Done;
}

void NameOrder::Clear() {
    std::vector<std::uint32_t>().swap(ranks);
    std::vector<std::uint32_t>().swap(keyStarts);
}

}  // namespace tellwick
