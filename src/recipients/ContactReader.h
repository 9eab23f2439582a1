// Reads the items of one contact folder, some at a time, the fastest way that this Outlook has.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Object.h"

namespace tellwick {

class ContactReader {
public:
    struct Row {
        std::vector<Value> values;  // in the order of the columns
        Text entryId;               // empty where Outlook does not tell
        std::int32_t index;         // in the folder, from 1
        bool complete = true;       // false: Outlook failed, some values are missing
    };

    // Columns are names of properties.
    ContactReader(PendingError& errors, ObjectPtr folder, std::vector<TextView> columns);

    // Appends some rows, none when all were read. False when Outlook fails.
    bool ReadSome(std::vector<Row>& rows);
    bool AtEnd() const { return atEnd; }

    // The item itself; empty when Outlook does not give it.
    ObjectPtr Open(const ObjectPtr& nameSpace, const Row& row);

private:
    bool OpenTable();
    bool ReadTable(std::vector<Row>& rows);
    bool ReadItem(std::vector<Row>& rows);

    PendingError& errors;
    ObjectPtr folder;
    std::vector<TextView> columns;
    ObjectPtr table;  // from Outlook 2007 on
    ObjectPtr items;  // without a table: told which columns are wanted
    ObjectPtr whole;  // the items as they are
    std::int32_t count = 0;
    std::int32_t next = 1;
    bool atEnd = false;
};

}  // namespace tellwick
