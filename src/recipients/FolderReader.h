// Reads the items of one contact folder, some at a time, the fastest way that this Outlook has.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Object.h"

namespace tellwick {

class FolderReader {
public:
    // Its values stay where Outlook gave them, until the next reading.
    struct Row {
        const Value* first;    // of the first column
        std::size_t step;      // from one column to the next
        Text entryId;          // empty where Outlook does not tell
        std::int32_t index;    // in the folder, from 1
        bool complete = true;  // false: Outlook failed, some values are missing

        const Value& operator[](std::size_t column) const { return first[column * step]; }
    };

    // Columns are names of properties.
    FolderReader(PendingError& errors, ObjectPtr folder, std::vector<TextView> columns);

    // The next rows, none when all were read. False when Outlook fails.
    bool ReadSome();
    const std::vector<Row>& Rows() const { return rows; }
    bool AtEnd() const { return atEnd; }

    // The item itself; empty when Outlook does not give it.
    ObjectPtr Open(const ObjectPtr& nameSpace, const Row& row);

private:
    bool OpenTable();
    bool ReadTable();
    bool ReadItem();

    PendingError& errors;
    ObjectPtr folder;
    std::vector<TextView> columns;
    ObjectPtr table;  // from Outlook 2007 on
    ObjectPtr items;  // without a table: told which columns are wanted
    ObjectPtr whole;  // the items as they are
    std::int32_t count = 0;
    std::int32_t next = 1;
    bool atEnd = false;
    std::vector<Row> rows;
    GridPtr grid;               // with the rows' values
    std::vector<Value> values;  // of the only row, without a table
};

}  // namespace tellwick
