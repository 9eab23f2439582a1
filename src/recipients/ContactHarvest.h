// Reads all numbers of all contact folders, of which only those that changed since they were last
// read, in small steps. It may be dropped between any two.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "platform/Object.h"
#include "recipients/AddressBook.h"
#include "recipients/AddressListBuilder.h"
#include "recipients/ContactFolders.h"
#include "recipients/ContactReader.h"

namespace tellwick {

class Automation;
class Clock;
class Locale;
class Prefixes;

class ContactHarvest {
public:
    // What the harvest works with.
    struct Surroundings {
        PendingError& errors;
        Automation& automation;
        Prefixes& prefixes;
        Locale& locale;
        Clock& clock;
    };

    // Compares with a book that must outlive this.
    ContactHarvest(const Surroundings& surroundings, ObjectPtr nameSpace,
                   const AddressBook& before);

    // Goes on for about so many milliseconds; false when all is done. At least one step is done.
    bool DoSlice(double milliseconds);

    // Percent, and the folder that is being read.
    std::int32_t Progress() const;
    const Text& FolderName() const { return folderName; }
    // Names of the folders that could not be read; "" is a store. What was known of them stays.
    const std::vector<Text>& Failed() const { return folders.failed; }

    // When all is done: the new book; none when nothing changed.
    std::optional<AddressBook> TakeBook();
    // When nothing changed: whether other folders are settled than before, which the next start
    // should know; and all folders, in the order that they had.
    bool SettledOthers() const { return settledOthers; }
    const std::vector<ContactFolder>& Folders() const { return book.folders; }

private:
    static constexpr std::size_t EntriesAStep = 1000;  // that a step looks at
    enum class Step { Walk, Folder, Items, Keep, Members, Lists, Build, Done };

    void DoStep();
    void EndWalk();
    void EndFolders();
    void BeginFolder();
    // Of the old folders, by Outlook's identifier; -1 when it is new.
    std::int32_t OldFolder(const Text& id) const;
    bool IsUnchanged(const ContactFolders::Found& found, std::int32_t oldFolder);
    void ReadItems();
    void Look(const ContactReader::Row& row);
    // False when Outlook failed: then some of the item's numbers may be missing.
    bool ReadItem(const ContactReader::Row& row, std::uint16_t folder, std::uint32_t item);
    void ReadContact(const ContactReader::Row& row, std::uint16_t folder, std::uint32_t item);
    void ReadList(const ObjectPtr& opened, std::uint32_t item);
    void EndFolder();
    void GiveUpFolder();
    std::span<const std::uint32_t> OldItemsOf(std::int32_t oldFolder) const;
    void KeepAllOf(std::int32_t oldFolder, std::uint16_t folder);
    std::uint32_t AddItem(const ContactItem& item);
    void KeepRows();
    void FindMembers();
    void AddLists();

    Surroundings surroundings;
    PendingError& errors;
    ObjectPtr nameSpace;
    const AddressBook& before;

    Step step = Step::Walk;
    ContactFolders folders;
    std::size_t current = 0;       // of the folders
    std::int32_t currentOld = -1;  // the same among the old ones
    std::optional<ContactReader> reader;
    bool comparing = false;           // the reader gives dates only
    bool incomplete = false;          // an item of this folder failed
    std::vector<std::uint32_t> kept;  // by old item: its new number, from 1; 0 is gone
    // Of the folder being compared: the old items by their dates.
    std::unordered_multimap<std::uint64_t, std::uint32_t> known;
    std::vector<std::uint32_t> oldItems;  // numbers, by folder
    bool changed = false;
    bool settledOthers = false;
    std::size_t next = 0;
    std::unordered_map<std::u16string, Text> numberOfMember;  // by folded name
    AddressBook book;
    AddressListBuilder builder;
    std::uint64_t total = 0;  // items
    std::uint64_t done = 0;
    Text folderName;
};

}  // namespace tellwick
