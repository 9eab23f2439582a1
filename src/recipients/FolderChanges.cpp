#include "recipients/FolderChanges.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <unordered_map>

namespace tellwick {

namespace {

std::size_t HashOf(double created, double modified) {
    std::uint64_t hash =
        std::bit_cast<std::uint64_t>(created) * 31 + std::bit_cast<std::uint64_t>(modified);
    hash = (hash ^ hash >> 32) * 0x9E3779B97F4A7C15;
    return std::size_t(hash >> 32);
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
    : items(allItems),
      kept(ofFolder),
      taken(kept.size()),
      places(std::bit_ceil(2 * kept.size() + 1)),
      left(kept.size()) {
    for (std::size_t index = 0; index < kept.size(); ++index) {
        const KeptItem& dates = items[kept[index]];
        newest = std::max(newest, dates.modified);
        incomplete = incomplete || dates.modified == KeptItem::ReadAgain;
        std::size_t at = HashOf(dates.created, dates.modified);
        while (places[at & (places.size() - 1)] != 0) ++at;
        places[at & (places.size() - 1)] = std::uint32_t(index + 1);
    }
}

void FolderChanges::Take(std::size_t index) {
    taken[index] = true;
    --left;
}

std::optional<std::uint32_t> FolderChanges::Take(double created, double modified) {
    for (std::size_t at = HashOf(created, modified);; ++at) {
        const std::uint32_t place = places[at & (places.size() - 1)];
        if (place == 0) return {};
        const KeptItem& dates = items[kept[place - 1]];
        if (taken[place - 1] || dates.created != created || dates.modified != modified) continue;
        Take(place - 1);
        return kept[place - 1];
    }
}

bool FolderChanges::LeftSince(double modified) const {
    for (std::size_t index = 0; left > 0 && index < kept.size(); ++index) {
        if (!taken[index] && items[kept[index]].modified >= modified) return true;
    }
    return false;
}

std::vector<FolderChanges::Moved> FolderChanges::TakeMoved(std::span<const KeptItem> dates) {
    std::vector<Moved> moved;
    if (left == 0 || dates.empty()) return moved;
    std::unordered_multimap<std::uint64_t, std::size_t> byKey;
    byKey.reserve(left);
    for (std::size_t index = 0; index < kept.size(); ++index) {
        if (!taken[index]) byKey.emplace(ZonelessKey(items[kept[index]]), index);
    }
    // An item that was modified a whole number of quarter hours later looks moved as well, but it
    // was not created at another time.
    bool createdMoved = false;
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < dates.size(); ++index) {
        const auto [first, last] = byKey.equal_range(ZonelessKey(dates[index]));
        const auto same = std::find_if(first, last, [&](const auto& each) {
            return MayHaveMoved(items[kept[each.second]], dates[index]);
        });
        if (same == last) continue;
        const std::uint32_t item = kept[same->second];
        moved.push_back({index, item});
        found.push_back(same->second);
        createdMoved =
            createdMoved || Seconds(items[item].created) != Seconds(dates[index].created);
        byKey.erase(same);
    }
    if (!createdMoved || moved.size() * 2 < left) return {};
    for (const std::size_t index : found) Take(index);
    return moved;
}

}  // namespace tellwick
