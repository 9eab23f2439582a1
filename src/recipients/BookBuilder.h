// Builds a new address book of what is kept from the one before and what is read anew. Knows
// nothing of Outlook.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "recipients/AddressBook.h"
#include "recipients/AddressListBuilder.h"
#include "recipients/AddressListMerger.h"
#include "recipients/DistributionLists.h"

namespace tellwick {

class Locale;

class BookBuilder {
public:
    // The book before must outlive this.
    BookBuilder(Locale& locale, const AddressBook& before);

    // About so many items will come.
    void Reserve(std::uint64_t items);

    // A folder of the book before, by Outlook's identifier; none when it is new.
    std::optional<std::size_t> FolderBefore(const Text& id) const;
    // Its items, by their places in the book before.
    std::span<const std::uint32_t> ItemsBefore(std::size_t folder) const;

    // Begins a folder: what follows lies in it. Its number.
    std::size_t BeginFolder(KeptFolder folder);
    // Both take back what lies in the folder begun last; DropFolder takes the folder back, too.
    void EmptyFolder();
    void DropFolder();
    // An item read anew; its number.
    std::uint32_t AddItem(double created, double modified);
    KeptItem& Item(std::uint32_t item) { return book.items[item]; }
    void AddNumber(std::uint32_t item, TextView name, TextView fileAs, TextView company,
                   TextView number, NumberKind kind);
    // For a distribution list: its name, and those of its members.
    void SetMembers(std::uint32_t item, std::vector<Text> names);
    // An item of the book before stays, with its numbers; it may have other dates now.
    void Keep(std::uint32_t itemBefore, double created, double modified);
    void KeepAllOf(std::size_t folderBefore);

    // When all folders are done: puts the list together. Does some of it; false when that is done.
    // `most` is about how many entries a step may look at.
    bool DoSome(std::size_t most);
    AddressBook Take() { return std::move(book); }

private:
    enum class Step { Begin, Keep, Members, Lists, Build, Merge, Done };

    void Begin();
    void KeepRows(std::size_t most);
    void FindMembers(std::size_t most);
    // A row of the book before.
    bool IsKept(const AddressRow& row) const {
        return kept[row.item] != 0 && row.kind != NumberKind::List;
    }
    void AddLists();

    Locale& locale;
    const AddressBook& before;
    std::vector<std::uint32_t> itemsBefore;  // numbers, by folder
    std::vector<std::uint32_t> kept;         // by item before: its new number, from 1; 0 is gone
    AddressBook book;
    AddressListBuilder list;
    bool merging = false;  // little changed
    std::optional<AddressListMerger> merger;
    Step step = Step::Begin;
    std::size_t next = 0;
    std::optional<MemberNumbers> members;
    // Where the folder begins.
    std::size_t firstItem = 0;
    AddressListBuilder::Mark firstRow;
};

}  // namespace tellwick
