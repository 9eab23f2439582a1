#include "recipients/FolderReader.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

constexpr std::int32_t RowsAtOnce = 64;

}  // namespace

FolderReader::FolderReader(PendingError& pendingErrors, ObjectPtr contactFolder,
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

bool FolderReader::OpenTable() {
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

bool FolderReader::ReadSome() {
    errors.Clear();
    rows.clear();
    return table ? ReadTable() : ReadItem();
}

bool FolderReader::ReadTable() {
    atEnd = AsBoolean(Get(errors, table, u"EndOfTable"));
    if (errors || atEnd) return !errors;
    grid = AsGrid(Call(errors, table, u"GetArray", {RowsAtOnce}));
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
    const std::size_t step = rowsFirst ? 1 : grid->second;
    for (std::size_t row = 0; row < height; ++row) {
        const Value& first = rowsFirst ? grid->At(row, 0) : grid->At(0, row);
        rows.push_back({&first, step, {}, next++});
        rows.back().entryId = AsText(rows.back()[columns.size()]);
    }
    return height > 0;
}

bool FolderReader::ReadItem() {
    atEnd = next > count;
    if (!items || atEnd) return items != nullptr;
    const ObjectPtr item = AsObject(Get(errors, items, u"Item", {next}));
    values.assign(columns.size(), {});
    for (std::size_t column = 0; item && column < columns.size(); ++column)
        values[column] = item->Get(columns[column]);
    rows.push_back({values.data(), 1, {}, next++, !errors});
    return true;
}

ObjectPtr FolderReader::Open(const ObjectPtr& nameSpace, const Row& row) {
    if (!row.entryId.empty()) {
        return AsObject(Call(errors, nameSpace, u"GetItemFromID",
                             {row.entryId, AsText(Get(errors, folder, u"StoreID"))}));
    }
    if (!whole) whole = AsObject(Get(errors, folder, u"Items"));
    return AsObject(Get(errors, whole, u"Item", {row.index}));
}

}  // namespace tellwick
