// Reads one item of a contact folder into the book that is built: the numbers of a contact, or the
// members of a distribution list.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Object.h"
#include "recipients/BookBuilder.h"
#include "recipients/FolderReader.h"

namespace tellwick {

class Prefixes;

class ItemReader {
public:
    // The version is Outlook's major one.
    ItemReader(TimedCalls& calls, Automation& automation, Prefixes& prefixes, std::int32_t version);

    // The columns that a folder's rows must have: the dates alone, or all that a contact has.
    static std::vector<TextView> Columns(bool datesOnly);
    static double CreatedOf(const FolderReader::Row& row);
    static double ModifiedOf(const FolderReader::Row& row);

    // Reads a row with all columns; what is no contact is opened. `item` is its number in the book.
    // False when Outlook failed: then some of its numbers may be missing.
    bool Read(FolderReader& folder, const FolderReader::Row& row, std::uint32_t item,
              BookBuilder& book);
    // The same of an item that is opened: of a row that has dates only.
    bool Open(FolderReader& folder, const Text& entryId, std::int32_t index, std::uint32_t item,
              BookBuilder& book);

private:
    void ReadContact(const FolderReader::Row& row, std::uint32_t item, BookBuilder& book);

    TimedCalls& calls;
    Automation& automation;
    Prefixes& prefixes;
    const bool outlookAsks;
    // Of the contact at hand.
    Text name, fileAs, company;
    Text numbers;  // between semicolons
};

}  // namespace tellwick
