#include "recipients/ContactReader.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

constexpr std::int32_t RowsAtOnce = 64;

}  // namespace

ContactReader::ContactReader(PendingError& pendingErrors, ObjectPtr contactFolder,
                             std::vector<TextView> wantedColumns)
    : errors(pendingErrors), folder(std::move(contactFolder)), columns(std::move(wantedColumns)) {
    if (OpenTable()) return;
    items = AsObject(Get(errors, folder, u"Items"));
    count = AsNumber(Get(errors, items, u"Count"));
    Text list;
    for (const TextView column : columns) list.append(list.empty() ? u"" : u", ").append(column);
    // Without it reading works as well, but slowly.
    Call(errors, items, u"SetColumns", {list});
}

bool ContactReader::OpenTable() {
    table = AsObject(Call(errors, folder, u"GetTable"));
    if (!table) return false;
    errors.Clear();
    const ObjectPtr tableColumns = AsObject(Get(errors, table, u"Columns"));
    Call(errors, tableColumns, u"RemoveAll");
    for (const TextView column : columns) Call(errors, tableColumns, u"Add", {Text(column)});
    Call(errors, tableColumns, u"Add", {Text(u"EntryID")});
    if (errors) table.reset();
    return table != nullptr;
}

bool ContactReader::ReadSome(std::vector<Row>& rows) {
    errors.Clear();
    return table ? ReadTable(rows) : ReadItem(rows);
}

bool ContactReader::ReadTable(std::vector<Row>& rows) {
    atEnd = AsBoolean(Get(errors, table, u"EndOfTable"));
    if (errors || atEnd) return !errors;
    const GridPtr grid = AsGrid(Call(errors, table, u"GetArray", {RowsAtOnce}));
    const std::size_t width = columns.size() + 1;
    if (!grid || (grid->first != width && grid->second != width)) return false;
    // Which of the two indexes counts the rows depends on the version. Where the sizes do not tell,
    // the identifiers do: they are the only column that holds nothing but texts.
    bool rowsFirst = grid->second == width;
    if (rowsFirst && grid->first == width) {
        for (std::size_t row = 0; row < width; ++row)
            rowsFirst = rowsFirst && std::holds_alternative<Text>(grid->At(row, width - 1));
    }
    const std::size_t height = rowsFirst ? grid->first : grid->second;
    for (std::size_t row = 0; row < height; ++row) {
        Row read{{}, {}, next++};
        read.values.reserve(columns.size());
        for (std::size_t column = 0; column < columns.size(); ++column)
            read.values.push_back(rowsFirst ? grid->At(row, column) : grid->At(column, row));
        read.entryId = AsText(rowsFirst ? grid->At(row, width - 1) : grid->At(width - 1, row));
        rows.push_back(std::move(read));
    }
    return height > 0;
}

bool ContactReader::ReadItem(std::vector<Row>& rows) {
    atEnd = next > count;
    if (!items || atEnd) return items != nullptr;
    const ObjectPtr item = AsObject(Get(errors, items, u"Item", {next}));
    Row read{{}, {}, next++};
    read.values.resize(columns.size());
    for (std::size_t column = 0; item && column < columns.size(); ++column)
        read.values[column] = item->Get(columns[column]);
    read.complete = !errors;
    rows.push_back(std::move(read));
    return true;
}

ObjectPtr ContactReader::Open(const ObjectPtr& nameSpace, const Row& row) {
    if (!row.entryId.empty()) {
        return AsObject(Call(errors, nameSpace, u"GetItemFromID",
                             {row.entryId, AsText(Get(errors, folder, u"StoreID"))}));
    }
    if (!whole) whole = AsObject(Get(errors, folder, u"Items"));
    return AsObject(Get(errors, whole, u"Item", {row.index}));
}

}  // namespace tellwick
