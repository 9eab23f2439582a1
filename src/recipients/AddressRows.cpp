#include "recipients/AddressRows.h"

#include <algorithm>
#include <string>
#include <utility>

#include "recipients/Addresses.h"

namespace tellwick {

namespace {

// The first units of a number, in four bits each. They mostly decide.
std::uint64_t KeyOfNumber(TextView number) {
    constexpr std::size_t KeyUnits = 16;
    constexpr TextView Units = u"#*+0123456789;";  // in their order; all others come behind
    std::uint64_t key = 0;
    for (std::size_t at = 0; at < KeyUnits; ++at) {
        std::uint64_t place = 0;
        if (at < number.size()) place = std::min(Units.find(number[at]), Units.size()) + 1;
        key = key << 4 | place;
    }
    return key;
}

}  // namespace

void AddressRows::Sort(Order newOrder, bool newDescending) {
    order = newOrder;
    descending = newDescending;
    isSorted = false;
    next = 0;
    keyed.clear();
    runs.clear();
    sorted.clear();
    shown.clear();
}

void AddressRows::Narrow(TextView text, std::optional<std::uint16_t> newFolder) {
    std::vector<Text> folders;
    for (std::size_t each = 0; each < addresses.Folders(); ++each)
        folders.push_back(addresses.FolderName(std::uint16_t(each)));
    search = AddressSearch(text, folders);
    folder = newFolder;
    shown.clear();
    next = 0;
}

void AddressRows::Clear() {
    isSorted = true;
    next = 0;
    keyed = {};
    runs.clear();
    sorted = {};
    shown = {};
}

bool AddressRows::DoSome(std::size_t most) {
    if (!isSorted) {
        if (runs.empty()) {
            Begin();
        } else if (nextEntry < addresses.List().Size()) {
            Collect(most);
        } else if (runs.size() > 2) {
            Merge();
        } else {
            EndSorting();
        }
        return true;
    }
    if (next == 0 && search.IsEmpty() && !folder) {
        shown = sorted;
        next = sorted.size();
    }
    const AddressList& list = addresses.List();
    const std::size_t end = std::min(sorted.size(), next + most);
    for (; next < end; ++next) {
        const AddressRow row = list.Row(sorted[next]);
        if ((!folder || row.folder == *folder) && search.Matches(row))
            shown.push_back(sorted[next]);
    }
    return next < sorted.size();
}

void AddressRows::Begin() {
    runs = {0};
    nextRun = nextEntry = 0;
    keyed.reserve(addresses.List().Rows());
    if (order != Order::Folder) return;
    std::vector<std::pair<std::string, std::size_t>> keys;
    for (std::size_t each = 0; each < addresses.Folders(); ++each)
        keys.emplace_back(addresses.SortKey(addresses.FolderTitle(std::uint16_t(each))), each);
    std::ranges::sort(keys);
    folderPlaces.resize(keys.size());
    for (std::size_t place = 0; place < keys.size(); ++place)
        folderPlaces[keys[place].second] = place;
}

// The list's own order is the alphabetical one, by the user's language.
void AddressRows::Collect(std::size_t most) {
    const AddressList& list = addresses.List();
    const std::size_t end = std::min(nextEntry + most, list.Size());
    for (; nextEntry < end; ++nextEntry) {
        list.FetchAhead(nextEntry);
        const AddressList::Entry entry = list.EntryAt(nextEntry);
        if (entry.byFileAs) continue;
        keyed.push_back({KeyOf(entry.row), entry.row, std::uint32_t(keyed.size())});
    }
    if (order == Order::Name) {
        // All of it is one run.
        runs.resize(1);
    } else {
        std::sort(keyed.begin() + std::ptrdiff_t(runs.back()), keyed.end(),
                  [this](const Keyed& one, const Keyed& other) { return Before(one, other); });
    }
    runs.push_back(keyed.size());
}

// Two neighbours become one run.
void AddressRows::Merge() {
    if (nextRun + 2 >= runs.size()) nextRun = 0;
    const auto at = [&](std::size_t run) { return keyed.begin() + std::ptrdiff_t(runs[run]); };
    std::inplace_merge(at(nextRun), at(nextRun + 1), at(nextRun + 2),
                       [this](const Keyed& one, const Keyed& other) { return Before(one, other); });
    runs.erase(runs.begin() + std::ptrdiff_t(nextRun) + 1);
    ++nextRun;
}

void AddressRows::EndSorting() {
    sorted.resize(keyed.size());
    std::ranges::transform(keyed, sorted.begin(), &Keyed::row);
    if (descending) std::ranges::reverse(sorted);
    isSorted = true;
    keyed = {};
    runs.clear();
}

std::uint64_t AddressRows::KeyOf(std::uint32_t index) const {
    if (order == Order::Name) return 0;
    const AddressRow row = addresses.List().Row(index);
    if (order == Order::Number) return KeyOfNumber(row.number);
    return order == Order::Folder ? folderPlaces[row.folder] : std::uint64_t(row.kind);
}

bool AddressRows::Before(const Keyed& one, const Keyed& other) const {
    if (one.key != other.key) return one.key < other.key;
    if (order == Order::Number) {
        const AddressList& list = addresses.List();
        const int numbers = list.Row(one.row).number.compare(list.Row(other.row).number);
        if (numbers != 0) return numbers < 0;
    }
    return one.place < other.place;
}

std::optional<std::size_t> AddressRows::Find(std::size_t first, TextView start) const {
    for (std::size_t count = 0; count < shown.size(); ++count) {
        const std::size_t place = (first + count) % shown.size();
        if (StartsWithFolded(addresses.List().Row(shown[place]).name, start)) return place;
    }
    return {};
}

}  // namespace tellwick
