// Reads the items of one contact folder, some at a time, the fastest way that this Outlook has.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Grid.h"
#include "recipients/AddressBook.h"
#include "recipients/TimedCalls.h"

namespace tellwick {

class FolderReader {
public:
    // Valid until the next reading.
    struct Row {
        const Grid& grid;      // where its values lie
        std::size_t first;     // cell: that of the first column
        std::size_t step;      // from one column to the next
        std::size_t columns;   // without that of the identifier
        std::int32_t index;    // in the folder, from 1
        bool hasEntryId;       // Outlook tells it, behind the columns
        bool complete = true;  // false: Outlook failed, some values are missing

        std::size_t Cell(std::size_t column) const { return first + column * step; }
        Value operator[](std::size_t column) const { return grid.At(Cell(column)); }
        TextView TextIn(std::size_t column) const { return grid.TextAt(Cell(column)); }
        // Empty where it is not told.
        Text EntryId() const { return hasEntryId ? AsText((*this)[columns]) : Text(); }
    };
    enum class Order { Any, NewestFirst };

    // Columns are names of properties, and `count` is how many items there are. A table gives dates
    // in universal time, items give local ones. Only items can be read newest first, tables cannot.
    // The folder is opened at the first reading.
    FolderReader(TimedCalls& calls, ObjectPtr nameSpace, const KeptFolder& folder,
                 std::uint32_t count, std::vector<TextView> columns, Order order);

    // The next rows, none when all were read. False when Outlook fails.
    bool ReadSome();
    const std::vector<Row>& Rows() const { return rows; }
    bool AtEnd() const { return atEnd; }
    // After a failure: begins anew, in the next way. False when there is none.
    bool TryNextWay();

    // The item itself; empty when Outlook does not give it.
    ObjectPtr Open(const Text& entryId, std::int32_t index);

private:
    enum class Way { Arrays, Rows, Items };

    bool OpenFolder();
    bool OpenTable();
    bool OpenItems();
    bool ReadArray();
    bool ReadRow();
    bool ReadItem();
    void OnlyRow(const std::vector<Value>& values, bool complete);

    TimedCalls& calls;
    ObjectPtr nameSpace;
    Text id, storeId;
    std::vector<TextView> columns;
    Order order;
    Way way;
    ObjectPtr folder;
    ObjectPtr table;  // from Outlook 2007 on
    ObjectPtr items;  // without a table: told which columns are wanted
    ObjectPtr whole;  // the items as they are
    std::int32_t count;
    std::int32_t next = 1;
    bool atEnd = false;
    std::vector<Row> rows;
    GridPtr grid;  // with the rows' values
};

}  // namespace tellwick
