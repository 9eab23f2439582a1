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
    ItemReader(PendingError& errors, Automation& automation, Prefixes& prefixes,
               ObjectPtr nameSpace);

    // The columns that a folder's rows must have: the dates alone, or all that a contact has.
    static std::vector<TextView> Columns(bool datesOnly);
    static double CreatedOf(const FolderReader::Row& row);
    static double ModifiedOf(const FolderReader::Row& row);

    // Reads the row, or opens its item where the row has no more than dates or is no contact.
    // `item` is its number in the book. False when Outlook failed: then some of its numbers may be
    // missing.
    bool Read(FolderReader& folder, const FolderReader::Row& row, bool datesOnly,
              std::uint32_t item, BookBuilder& book);

private:
    void ReadContact(const FolderReader::Row& row, std::uint32_t item, BookBuilder& book);

    PendingError& errors;
    Automation& automation;
    Prefixes& prefixes;
    ObjectPtr nameSpace;
};

}  // namespace tellwick
