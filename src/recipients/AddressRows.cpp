#include "recipients/AddressRows.h"

#include <algorithm>
#include <string>
#include <utility>

#include "recipients/Addresses.h"

namespace tellwick {

namespace {

// The first units of a number, which is all digits but for a few; they mostly decide.
constexpr std::size_t KeyUnits = 12;

std::uint64_t KeyOf(TextView number) {
    constexpr TextView Units = u"#*+0123456789;Pp";  // in their order
    std::uint64_t key = 0;
    for (std::size_t at = 0; at < KeyUnits; ++at)
        key = key << 5 | (at < number.size() ? Units.find(number[at]) + 1 : 0);
    return key;
}

}  // namespace

void AddressRows::Sort(Order newOrder, bool newDescending) {
    order = newOrder;
    descending = newDescending;
    isSorted = false;
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
    sorted = {};
    shown = {};
}

bool AddressRows::DoSome(std::size_t most) {
    if (!isSorted) {
        Collect();
        isSorted = true;
        next = 0;
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

void AddressRows::Collect() {
    const AddressList& list = addresses.List();
    // The list's own order is the alphabetical one, by the user's language.
    sorted.clear();
    sorted.reserve(list.Rows());
    for (std::size_t index = 0; index < list.Size(); ++index) {
        if (!list.EntryAt(index).byFileAs) sorted.push_back(list.EntryAt(index).row);
    }
    if (order == Order::Number) {
        SortByNumber();
    } else if (order != Order::Name) {
        SortByClass();
    }
    if (descending) std::reverse(sorted.begin(), sorted.end());
}

// There are few kinds and few folders.
void AddressRows::SortByClass() {
    const AddressList& list = addresses.List();
    std::vector<std::size_t> classes(KindCount);  // where they stand
    if (order == Order::Folder) {
        std::vector<std::pair<std::string, std::size_t>> keys;
        for (std::size_t each = 0; each < addresses.Folders(); ++each)
            keys.emplace_back(addresses.SortKey(addresses.FolderTitle(std::uint16_t(each))), each);
        std::ranges::sort(keys);
        classes.resize(keys.size());
        for (std::size_t place = 0; place < keys.size(); ++place)
            classes[keys[place].second] = place;
    } else {
        for (std::size_t kind = 0; kind < classes.size(); ++kind) classes[kind] = kind;
    }
    std::vector<std::vector<std::uint32_t>> rows(classes.size());
    for (const std::uint32_t index : sorted) {
        const AddressRow row = list.Row(index);
        rows[classes[order == Order::Folder ? row.folder : std::size_t(row.kind)]].push_back(index);
    }
    sorted.clear();
    for (const std::vector<std::uint32_t>& each : rows)
        sorted.insert(sorted.end(), each.begin(), each.end());
}

void AddressRows::SortByNumber() {
    struct Keyed {
        std::uint64_t key;
        std::uint32_t row, place;
    };
    const AddressList& list = addresses.List();
    std::vector<Keyed> keyed;
    keyed.reserve(sorted.size());
    for (const std::uint32_t row : sorted)
        keyed.push_back({KeyOf(list.Row(row).number), row, std::uint32_t(keyed.size())});
    std::sort(keyed.begin(), keyed.end(), [&](const Keyed& one, const Keyed& other) {
        if (one.key != other.key) return one.key < other.key;
        const int numbers = list.Row(one.row).number.compare(list.Row(other.row).number);
        return numbers != 0 ? numbers < 0 : one.place < other.place;
    });
    std::ranges::transform(keyed, sorted.begin(), &Keyed::row);
}

}  // namespace tellwick
