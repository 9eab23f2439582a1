#include "recipients/FolderChanges.h"

#include <bit>

namespace tellwick {

namespace {

std::uint64_t KeyOf(double created, double modified) {
    return std::bit_cast<std::uint64_t>(created) * 31 + std::bit_cast<std::uint64_t>(modified);
}

}  // namespace

FolderChanges::FolderChanges(const std::vector<KeptItem>& items,
                             std::span<const std::uint32_t> ofFolder) {
    for (const std::uint32_t item : ofFolder)
        left.emplace(KeyOf(items[item].created, items[item].modified), item);
}

std::optional<std::uint32_t> FolderChanges::Take(double created, double modified) {
    const auto same = left.find(KeyOf(created, modified));
    if (same == left.end()) return {};
    const std::uint32_t item = same->second;
    left.erase(same);
    return item;
}

std::vector<std::uint32_t> FolderChanges::Left() const {
    std::vector<std::uint32_t> items;
    items.reserve(left.size());
    for (const auto& [key, item] : left) items.push_back(item);
    return items;
}

}  // namespace tellwick
