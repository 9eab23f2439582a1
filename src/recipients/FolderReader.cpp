#include "recipients/FolderReader.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

// What an array has, about, so that one takes as long as another.
constexpr std::size_t CellsAtOnce = 1000;

// By its own name a date in a table is local: then all would change with the user's time zone.
TextView NameInTable(TextView column) {
    if (column == u"CreationTime") return u"http://schemas.microsoft.com/mapi/proptag/0x30070040";
    if (column == u"LastModificationTime")
        return u"http://schemas.microsoft.com/mapi/proptag/0x30080040";
    return column;
}

}  // namespace

FolderReader::FolderReader(TimedCalls& calls, ObjectPtr mapi, const KeptFolder& contacts,
                           std::uint32_t itemCount, std::vector<TextView> wantedColumns,
                           Order wantedOrder)
    : calls(calls),
      nameSpace(std::move(mapi)),
      id(contacts.id),
      storeId(contacts.storeId),
      columns(std::move(wantedColumns)),
      order(wantedOrder),
      way(order == Order::Any ? Way::Arrays : Way::Items),
      count(std::int32_t(itemCount)) {}

bool FolderReader::OpenFolder() {
    if (!folder) folder = AsObject(calls.Call(nameSpace, u"GetFolderFromID", {id, storeId}));
    return folder != nullptr;
}

bool FolderReader::OpenTable() {
    table = AsObject(calls.Call(folder, u"GetTable"));
    if (!table) return false;
    calls.errors.Clear();
    const ObjectPtr tableColumns = AsObject(calls.Get(table, u"Columns"));
    calls.Call(tableColumns, u"RemoveAll");
    for (const TextView column : columns)
        calls.Call(tableColumns, u"Add", {Text(NameInTable(column))});
    calls.Call(tableColumns, u"Add", {Text(u"EntryID")});
    if (calls.errors) table.reset();
    return table != nullptr;
}

bool FolderReader::OpenItems() {
    calls.errors.Clear();
    items = AsObject(calls.Get(folder, u"Items"));
    count = AsNumber(calls.Get(items, u"Count"));
    if (order == Order::NewestFirst)
        calls.Call(items, u"Sort", {Text(u"[LastModificationTime]"), true});
    if (calls.errors) items.reset();
    if (!items) return false;
    Text list;
    for (const TextView column : columns) list.append(list.empty() ? u"" : u", ").append(column);
    // Without it reading works as well, but slowly.
    calls.Call(items, u"SetColumns", {list});
    return true;
}

bool FolderReader::TryNextWay() {
    if (way == Way::Items) return false;
    way = way == Way::Arrays && table ? Way::Rows : Way::Items;
    table.reset();
    next = 1;
    atEnd = false;
    return true;
}

bool FolderReader::ReadSome() {
    calls.errors.Clear();
    rows.clear();
    if (!OpenFolder()) return false;
    if (way != Way::Items && !table && !OpenTable()) way = Way::Items;
    calls.errors.Clear();
    if (way == Way::Items && !items && !OpenItems()) return false;
    calls.errors.Clear();
    switch (way) {
        case Way::Arrays:
            return ReadArray();
        case Way::Rows:
            return ReadRow();
        case Way::Items:
            break;
    }
    return ReadItem();
}

bool FolderReader::ReadArray() {
    atEnd = AsBoolean(calls.Get(table, u"EndOfTable"));
    if (calls.errors || atEnd) return !calls.errors;
    // Outlook 2007 gives nothing to whoever asks for more than there is.
    const std::size_t width = columns.size() + 1;
    const std::int32_t most = std::clamp(count - next + 1, 1, std::int32_t(CellsAtOnce / width));
    grid = AsGrid(calls.Call(table, u"GetArray", {most}));
    if (!grid || (grid->First() != width && grid->Second() != width)) return false;
    // Which of the two indexes counts the rows depends on the version. Where the sizes do not tell,
    // the identifiers do: they are the only column that holds nothing but texts.
    bool rowsFirst = grid->Second() == width;
    if (rowsFirst && grid->First() == width) {
        for (std::size_t row = 0; row < width; ++row)
            rowsFirst = rowsFirst && grid->IsText(grid->CellAt(row, width - 1));
    }
    const std::size_t height = rowsFirst ? grid->First() : grid->Second();
    const std::size_t step = rowsFirst ? 1 : grid->Second();
    for (std::size_t row = 0; row < height; ++row) {
        const std::size_t first = rowsFirst ? grid->CellAt(row, 0) : grid->CellAt(0, row);
        rows.push_back({*grid, first, step, columns.size(), next++, true});
    }
    return height > 0;
}

bool FolderReader::ReadRow() {
    const ObjectPtr row = AsObject(calls.Call(table, u"GetNextRow"));
    atEnd = !row;
    if (calls.errors || atEnd) return !calls.errors;
    std::vector<Value> values(columns.size() + 1);
    for (std::size_t column = 0; column < values.size(); ++column)
        values[column] = calls.Get(row, u"Item", {std::int32_t(column) + 1});
    OnlyRow(values, true);
    return !calls.errors;
}

bool FolderReader::ReadItem() {
    atEnd = next > count;
    if (atEnd) return true;
    const ObjectPtr item = AsObject(calls.Get(items, u"Item", {next}));
    std::vector<Value> values(columns.size());
    for (std::size_t column = 0; item && column < columns.size(); ++column)
        values[column] = calls.Get(item, columns[column]);
    OnlyRow(values, !calls.errors);
    return true;
}

// One value more than there are columns is the identifier.
void FolderReader::OnlyRow(const std::vector<Value>& values, bool complete) {
    auto row = std::make_shared<Grid>(1, values.size());
    for (const Value& value : values) row->Add(value);
    rows.push_back({*row, 0, 1, columns.size(), next++, values.size() > columns.size(), complete});
    grid = std::move(row);
}

ObjectPtr FolderReader::Open(const Text& entryId, std::int32_t index) {
    if (!entryId.empty())
        return AsObject(calls.Call(nameSpace, u"GetItemFromID", {entryId, storeId}));
    if (!whole) whole = AsObject(calls.Get(folder, u"Items"));
    return AsObject(calls.Get(whole, u"Item", {index}));
}

}  // namespace tellwick
