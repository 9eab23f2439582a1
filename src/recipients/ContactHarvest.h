// Reads all numbers of all contact folders, of which only those that changed since they were last
// read, in small steps. It may be dropped between any two. This keeps the order of the steps; what
// each of them does stands in a class of its own.
#pragma once

#include <optional>
#include <vector>

#include "recipients/BookBuilder.h"
#include "recipients/ContactFolders.h"
#include "recipients/FolderChanges.h"
#include "recipients/FolderReader.h"
#include "recipients/ItemReader.h"

namespace tellwick {

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
    ContactHarvest(const Surroundings& surroundings, const ObjectPtr& nameSpace,
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
    const std::vector<KeptFolder>& Folders() const { return book.Folders(); }

private:
    enum class Step { Walk, Folder, Items, Book, Done };

    void DoStep();
    void BeginReading();
    void BeginFolder();
    bool IsUnchanged(const ContactFolders::Found& found);
    void ReadItems();
    void Look(const FolderReader::Row& row);
    void EndFolder();
    void GiveUpFolder();
    void EndFolders();

    Surroundings surroundings;
    PendingError& errors;
    const AddressBook& before;
    ContactFolders folders;
    ItemReader items;
    BookBuilder book;

    Step step = Step::Walk;
    std::size_t current = 0;                  // of the folders
    std::optional<std::size_t> folderBefore;  // the same among those before
    std::optional<FolderReader> reader;
    std::optional<FolderChanges> changes;  // of the folder
    bool comparing = false;                // the reader gives dates only
    bool incomplete = false;               // an item of this folder failed
    std::size_t next = 0;                  // of the reader's rows
    bool changed = false;
    bool settledOthers = false;
    std::uint64_t total = 0;  // items
    std::uint64_t done = 0;
    Text folderName;
};

}  // namespace tellwick
