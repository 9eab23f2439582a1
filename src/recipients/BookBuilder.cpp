#include "recipients/BookBuilder.h"

#include <algorithm>
#include <utility>

namespace tellwick {

BookBuilder::BookBuilder(Locale& locale, const AddressBook& bookBefore)
    : locale(locale),
      before(bookBefore),
      itemsBefore(before.items.size()),
      kept(before.items.size()),
      list(locale) {
    for (std::uint32_t item = 0; item < itemsBefore.size(); ++item) itemsBefore[item] = item;
    std::ranges::stable_sort(itemsBefore, {},
                             [&](std::uint32_t item) { return before.items[item].folder; });
}

void BookBuilder::Reserve(std::uint64_t items) {
    // A store may say anything of how many it holds.
    constexpr std::uint64_t Most = 500'000;
    list.Reserve(std::size_t(std::min(items + items / 8, Most)));
}

std::optional<std::size_t> BookBuilder::FolderBefore(const Text& id) const {
    const auto found = std::ranges::find(before.folders, id, &KeptFolder::id);
    if (found == before.folders.end()) return {};
    return std::size_t(found - before.folders.begin());
}

std::span<const std::uint32_t> BookBuilder::ItemsBefore(std::size_t folder) const {
    const auto isBefore = [this](std::uint32_t item, std::size_t other) {
        return before.items[item].folder < other;
    };
    const auto first = std::lower_bound(itemsBefore.begin(), itemsBefore.end(), folder, isBefore);
    const auto last = std::lower_bound(first, itemsBefore.end(), folder + 1, isBefore);
    return {first, last};
}

std::size_t BookBuilder::BeginFolder(KeptFolder folder) {
    book.folders.push_back(std::move(folder));
    firstItem = book.items.size();
    firstRow = list.Here();
    return book.folders.size() - 1;
}

void BookBuilder::EmptyFolder() {
    if (book.items.size() == firstItem) return;
    for (std::uint32_t& item : kept) {
        if (item > firstItem) item = 0;
    }
    book.members.erase(book.members.lower_bound(std::uint32_t(firstItem)), book.members.end());
    book.items.resize(firstItem);
    list.BackTo(firstRow);
}

void BookBuilder::DropFolder() {
    EmptyFolder();
    book.folders.pop_back();
}

std::uint32_t BookBuilder::AddItem(double created, double modified) {
    book.items.push_back({created, modified, std::uint16_t(book.folders.size() - 1)});
    return std::uint32_t(book.items.size() - 1);
}

void BookBuilder::AddNumber(std::uint32_t item, TextView name, TextView fileAs, TextView company,
                            TextView number, NumberKind kind) {
    list.Add({name, fileAs, company, number, kind, book.items[item].folder, item});
}

void BookBuilder::SetMembers(std::uint32_t item, std::vector<Text> names) {
    book.members[item] = std::move(names);
}

void BookBuilder::Keep(std::uint32_t itemBefore, double created, double modified) {
    kept[itemBefore] = AddItem(created, modified) + 1;
}

void BookBuilder::KeepAllOf(std::size_t folderBefore) {
    for (const std::uint32_t item : ItemsBefore(folderBefore))
        Keep(item, before.items[item].created, before.items[item].modified);
}

bool BookBuilder::DoSome(std::size_t most) {
    switch (step) {
        case Step::Begin:
            Begin();
            break;
        case Step::Keep:
            KeepRows(most);
            break;
        case Step::Members:
            FindMembers(most);
            break;
        case Step::Lists:
            AddLists();
            break;
        case Step::Build:
            if (list.DoSome(most)) break;
            if (merging) {
                merger.emplace(locale, before.list, list.List(), kept, book.items);
                step = Step::Merge;
                break;
            }
            book.list = list.Take();
            step = Step::Done;
            break;
        case Step::Merge:
            if (merger->DoSome(most)) break;
            book.list = merger->Take();
            step = Step::Done;
            break;
        case Step::Done:
            break;
    }
    return step != Step::Done;
}

void BookBuilder::Begin() {
    // A list of all rows is made where merging a few of them in would not be quicker.
    constexpr std::size_t Few = 32;
    const auto gone = std::size_t(std::ranges::count(kept, 0U));
    merging = before.list.Size() != 0 && (gone + list.Rows()) * Few <= kept.size();
    for (const auto& [item, names] : before.members) {
        if (kept[item] != 0) book.members[kept[item] - 1] = names;
    }
    members.emplace(book.members);
    step = merging ? Step::Members : Step::Keep;
}

void BookBuilder::KeepRows(std::size_t most) {
    const std::size_t end = std::min(before.list.Rows(), next + most);
    for (; next < end; ++next) {
        AddressRow row = before.list.Row(next);
        if (!IsKept(row)) continue;
        row.item = kept[row.item] - 1;
        row.folder = book.items[row.item].folder;
        list.Add(row);
    }
    if (next < before.list.Rows()) return;
    next = 0;
    step = Step::Members;
}

// Those read anew come first, as in the list.
void BookBuilder::FindMembers(std::size_t most) {
    const std::size_t rows = list.Rows() + (merging ? before.list.Rows() : 0);
    const std::size_t end = *members ? std::min(rows, next + most) : next;
    for (; next < end; ++next) {
        if (next < list.Rows()) {
            members->LookAt(list.List().Row(next));
        } else if (const AddressRow row = before.list.Row(next - list.Rows()); IsKept(row)) {
            members->LookAt(row);
        }
    }
    if (!*members || next == rows) step = Step::Lists;
}

void BookBuilder::AddLists() {
    for (const auto& [item, names] : book.members) {
        const Text numbers = members->NumbersOf(names);
        if (!numbers.empty()) AddNumber(item, names[0], {}, {}, numbers, NumberKind::List);
    }
    step = Step::Build;
}

}  // namespace tellwick
