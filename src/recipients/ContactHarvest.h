// Reads the numbers of all contact folders in small steps, of each folder only what changed since
// the last reading. It may be dropped between any two steps. Here is the order of the steps; what
// each of them does stands in a class of its own.
#pragma once

#include <optional>
#include <vector>

#include "recipients/BookBuilder.h"
#include "recipients/ContactFolders.h"
#include "recipients/FolderChanges.h"
#include "recipients/FolderReader.h"
#include "recipients/ItemReader.h"
#include "recipients/TimedCalls.h"

namespace tellwick {

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
    // Outlook.
    struct Source {
        ObjectPtr application;
        ObjectPtr nameSpace;
        std::int32_t version;  // the major one
    };

    // Compares with a book that must outlive this.
    ContactHarvest(const Surroundings& surroundings, Source source, const AddressBook& before);

    // Goes on for about so many milliseconds; false when all is done. At least one step is done.
    bool DoSlice(double milliseconds);

    // Percent, and the folder that is being read.
    std::int32_t Progress() const;
    const Text& FolderName() const { return folderName; }
    // Names of the folders and stores that could not be read, or not without making the user wait;
    // of a store it may be "". What was known of them stays.
    const std::vector<Text>& Failed() const { return folders.failed; }

    // When all is done: the new book; none when nothing changed.
    std::optional<AddressBook> TakeBook();

private:
    enum class Step { Walk, Folder, Newest, Items, Opened, Book, Done };
    // An item that changed, of which no more than its dates was read.
    struct ToOpen {
        Text entryId;
        std::int32_t index;
    };

    void DoStep();
    void PutOff();
    void BeginReading();
    void BeginFolder();
    void StartRows();
    void ReadFolder(bool compare);
    void ReadNewest();
    void ReadItems();
    void Look(const FolderReader::Row& row);
    void EndRows();
    void OpenItems();
    void KeepFolder();
    void EndFolder();
    void GiveUpFolder();
    void EndFolders();

    TimedCalls calls;
    Clock& clock;
    Source source;
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
    bool changedHere = false;              // in the folder
    bool incomplete = false;               // an item of this folder failed
    std::size_t next = 0;                  // of what is to be opened
    // What changed in a folder that is compared; one behind the other.
    std::vector<KeptItem> changedDates;
    std::vector<ToOpen> toOpen;
    bool changed = false;
    std::uint64_t total = 0;  // items
    std::uint64_t done = 0;   // in the folders before the one at hand
    std::uint64_t doneHere = 0;
    Text folderName;
};

}  // namespace tellwick
