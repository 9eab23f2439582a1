#include "recipients/FolderChanges.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace tellwick {

namespace {

std::uint64_t KeyOf(double created, double modified) {
    return std::bit_cast<std::uint64_t>(created) * 31 + std::bit_cast<std::uint64_t>(modified);
}

// Seconds by which time zones differ, and the most by which any two do.
constexpr std::int64_t ZoneStep = 900;
constexpr std::int64_t FarthestZones = ZoneStep * 4 * 26;

std::int64_t Seconds(double date) {
    return std::llround(date * 86400);
}

// Equal for dates that lie whole steps apart.
std::uint64_t ZonelessKey(const KeptItem& dates) {
    return std::uint64_t(Seconds(dates.created) % ZoneStep * ZoneStep +
                         Seconds(dates.modified) % ZoneStep);
}

bool MayHaveMoved(const KeptItem& from, const KeptItem& to) {
    return std::abs(Seconds(from.created) - Seconds(to.created)) <= FarthestZones &&
           std::abs(Seconds(from.modified) - Seconds(to.modified)) <= FarthestZones;
}

}  // namespace

FolderChanges::FolderChanges(const std::vector<KeptItem>& allItems,
                             std::span<const std::uint32_t> ofFolder)
    : items(allItems), count(ofFolder.size()) {
    left.reserve(count);
    for (const std::uint32_t item : ofFolder) {
        const KeptItem& dates = items[item];
        newest = std::max(newest, dates.modified);
        incomplete = incomplete || dates.modified == KeptItem::ReadAgain;
        left.emplace(KeyOf(dates.created, dates.modified), item);
    }
}

std::optional<std::uint32_t> FolderChanges::Take(double created, double modified) {
    const auto same = left.find(KeyOf(created, modified));
    if (same == left.end()) return {};
    const std::uint32_t item = same->second;
    left.erase(same);
    return item;
}

bool FolderChanges::LeftSince(double modified) const {
    return std::ranges::any_of(
        left, [&](const auto& kept) { return items[kept.second].modified >= modified; });
}

std::vector<FolderChanges::Moved> FolderChanges::TakeMoved(std::span<const KeptItem> dates) {
    std::vector<Moved> moved;
    if (left.empty() || dates.empty()) return moved;
    std::unordered_multimap<std::uint64_t, std::uint32_t> byKey;
    byKey.reserve(left.size());
    for (const auto& [key, item] : left) byKey.emplace(ZonelessKey(items[item]), item);
    // An item that was modified a whole number of quarter hours later looks moved as well, but it
    // was not created at another time.
    bool createdMoved = false;
    for (std::size_t index = 0; index < dates.size(); ++index) {
        const auto [first, last] = byKey.equal_range(ZonelessKey(dates[index]));
        const auto found = std::find_if(first, last, [&](const auto& kept) {
            return MayHaveMoved(items[kept.second], dates[index]);
        });
        if (found == last) continue;
        moved.push_back({index, found->second});
        createdMoved =
            createdMoved || Seconds(items[found->second].created) != Seconds(dates[index].created);
        byKey.erase(found);
    }
    if (!createdMoved || moved.size() * 2 < left.size()) return {};
    for (const Moved& each : moved) {
        const auto [first, last] =
            left.equal_range(KeyOf(items[each.item].created, items[each.item].modified));
        left.erase(
            std::find_if(first, last, [&](const auto& kept) { return kept.second == each.item; }));
    }
    return moved;
}

}  // namespace tellwick
