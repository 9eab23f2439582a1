#include "recipients/NumberCache.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <utility>

namespace tellwick {

namespace {

constexpr TextView NumbersFile = u"numbers.txt";
constexpr TextView DetailsFile = u"numbers2.txt";
constexpr TextView NewEnding = u".new";
constexpr std::string_view Title = "Tellwick numbers 1";
constexpr std::string_view EndOfLine = "\r\n";
constexpr std::string_view Separator = "  (";
constexpr std::size_t LinesAStep = 1000;
constexpr std::size_t BytesAStep = 1 << 18;
constexpr std::uint32_t None = 0xFFFFFFFF;

// Of the bytes and their number.
std::uint64_t HashOf(std::string_view bytes) {
    constexpr std::uint64_t Prime = 0x100000001B3;
    std::uint64_t hash = 0xCBF29CE484222325 ^ bytes.size();
    while (bytes.size() >= sizeof hash) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data(), sizeof word);
        hash = (hash ^ word) * Prime;
        hash ^= hash >> 29;
        bytes.remove_prefix(sizeof word);
    }
    for (const char byte : bytes) hash = (hash ^ std::uint8_t(byte)) * Prime;
    return hash;
}

void AppendNumber(std::string& line, std::uint64_t number, int base = 10) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number, base).ptr;
    line.append(digits, end);
}

}  // namespace

// Reading -------------------------------------------------------------------------------------

NumberCacheReader::NumberCacheReader(FileSystem& fileSystem, Locale& locale, const Text& folder)
    : escaped(locale), builder(locale) {
    numbers = fileSystem.Read(folder + Text(NumbersFile)).value_or("");
    details = fileSystem.Read(folder + Text(DetailsFile)).value_or("");
    numbersLeft = numbers;
    detailsLeft = details;
    if (!ReadHead()) {
        step = Step::Damaged;
        return;
    }
    // Counted by the hash, so they can be relied on.
    builder.Reserve(entries);
    rows.reserve(entries);
    pending.reserve(entries);
    lines.reserve(entries);
    companies.reserve(items);
    firstOfItem.reserve(items);
    book.items.reserve(items);
}

std::string_view NumberCacheReader::NextLine(std::string_view& left) {
    const std::size_t end = left.find(EndOfLine);
    if (end == std::string_view::npos) {
        left = {};
        return {};
    }
    const std::string_view line = left.substr(0, end);
    left.remove_prefix(end + EndOfLine.size());
    return line;
}

std::string_view NumberCacheReader::Field() {
    const std::size_t end = std::min(fields.find('\t'), fields.size());
    const std::string_view field = fields.substr(0, end);
    fields.remove_prefix(std::min(end + 1, fields.size()));
    return field;
}

template <class Number>
bool NumberCacheReader::ReadField(Number& number, int base) {
    const std::string_view field = Field();
    const auto [end, error] =
        std::from_chars(field.data(), field.data() + field.size(), number, base);
    return error == std::errc() && end == field.data() + field.size();
}

bool NumberCacheReader::ReadHead() {
    fields = NextLine(detailsLeft);
    std::uint64_t numbersHash = 0, detailsHash = 0;
    return Field() == Title && ReadField(numbersHash, 16) && numbersHash == HashOf(numbers) &&
           ReadField(detailsHash, 16) && detailsHash == HashOf(detailsLeft) && ReadField(folders) &&
           ReadField(items) && ReadField(entries);
}

bool NumberCacheReader::ReadFolder() {
    fields = NextLine(detailsLeft);
    ContactFolder folder;
    folder.id = escaped.Read(Field());
    folder.name = escaped.Read(Field());
    std::uint64_t newest = 0;
    int settled = 0;
    if (!ReadField(folder.count) || !ReadField(newest, 16) || !ReadField(settled)) return false;
    folder.newest = std::bit_cast<double>(newest);
    folder.settled = settled != 0;
    book.folders.push_back(std::move(folder));
    return true;
}

bool NumberCacheReader::ReadItem() {
    fields = NextLine(detailsLeft);
    ContactItem item;
    std::uint64_t created = 0, modified = 0;
    if (!ReadField(item.folder) || item.folder >= folders || !ReadField(created, 16) ||
        !ReadField(modified, 16)) {
        return false;
    }
    item.created = std::bit_cast<double>(created);
    item.modified = std::bit_cast<double>(modified);
    companies.push_back(escaped.Read(Field()));
    const auto number = std::uint32_t(book.items.size());
    while (!fields.empty()) book.members[number].push_back(escaped.Read(Field()));
    book.items.push_back(item);
    firstOfItem.push_back(None);
    return true;
}

bool NumberCacheReader::ReadEntry() {
    fields = NextLine(detailsLeft);
    const std::string_view entry = NextLine(numbersLeft);
    const std::size_t separator = entry.rfind(Separator);
    Row row{};
    int kind = 0, byFileAs = 0;
    if (!ReadField(row.item) || row.item >= items || !ReadField(kind) || kind < 0 ||
        kind > int(NumberKind::List) || !ReadField(byFileAs) ||
        separator == std::string_view::npos || !entry.ends_with(')')) {
        return false;
    }
    row.kind = NumberKind(kind);
    row.name = entry.substr(0, separator);
    const std::size_t number = separator + Separator.size();
    row.number = entry.substr(number, entry.size() - 1 - number);
    if (byFileAs != 0) {
        lines.push_back({std::uint32_t(pending.size()), true});
        pending.push_back(row);
    } else {
        lines.push_back({std::uint32_t(rows.size()), false});
        row.nextOfItem = std::exchange(firstOfItem[row.item], std::uint32_t(rows.size()));
        rows.push_back(row);
    }
    return true;
}

// Finds the row of a line by FileAs.
bool NumberCacheReader::ReadPending(std::size_t index) {
    Line& line = lines[index];
    if (!line.byFileAs) return true;
    Row& found = pending[line.row];
    for (std::uint32_t row = firstOfItem[found.item]; row != None; row = rows[row].nextOfItem) {
        if (rows[row].kind != found.kind || rows[row].number != found.number) continue;
        rows[row].fileAs = found.name;
        line.row = row;
        return true;
    }
    return false;
}

// A line, or row, of the step; the next step when there is none left. False when all is done.
bool NumberCacheReader::DoStep() {
    const auto each = [&](std::size_t count, Step then, const auto& read) {
        if (next == count) {
            next = 0;
            step = then;
        } else if (!read(next++)) {
            step = Step::Damaged;
        }
        return true;
    };
    switch (step) {
        case Step::Folders:
            return each(folders, Step::Items, [&](std::size_t) { return ReadFolder(); });
        case Step::Items:
            return each(items, Step::Entries, [&](std::size_t) { return ReadItem(); });
        case Step::Entries:
            return each(entries, Step::Pending, [&](std::size_t) { return ReadEntry(); });
        case Step::Pending:
            return each(lines.size(), Step::Rows,
                        [&](std::size_t index) { return ReadPending(index); });
        case Step::Rows:
            return each(rows.size(), Step::Lines, [&](std::size_t index) {
                const Row& row = rows[index];
                const Text name = escaped.Read(row.name);
                const Text fileAs = escaped.Read(row.fileAs);
                const Text number = escaped.Read(row.number);
                builder.Add({name, fileAs, companies[row.item], number, row.kind,
                             book.items[row.item].folder, row.item});
                return true;
            });
        case Step::Lines:
            return each(lines.size(), Step::Build, [&](std::size_t index) {
                builder.AddEntry(lines[index].row, lines[index].byFileAs);
                return true;
            });
        case Step::Build:
            if (builder.DoSome(LinesAStep)) return true;
            book.list = builder.Take();
            step = Step::Done;
            return false;
        case Step::Done:
        case Step::Damaged:
            return false;
    }
    return false;
}

bool NumberCacheReader::DoSome() {
    for (std::size_t count = 0; count < LinesAStep; ++count) {
        if (!DoStep()) return false;
        if (step == Step::Build) break;
    }
    return true;
}

std::optional<AddressBook> NumberCacheReader::Take() {
    if (step != Step::Done) return {};
    return std::move(book);
}

// Writing -------------------------------------------------------------------------------------

NumberCacheWriter::NumberCacheWriter(FileSystem& fileSystem, Locale& locale, Text settingsFolder,
                                     const AddressBook& book)
    : fileSystem(fileSystem),
      escaped(locale),
      folder(std::move(settingsFolder)),
      book(book),
      rowOfItem(book.items.size(), None) {}

NumberCacheWriter::~NumberCacheWriter() {
    if (step == Step::Done) return;
    // Half a file is of no use.
    for (const TextView name : {NumbersFile, DetailsFile}) {
        const Text path = Text(folder).append(name).append(NewEnding);
        if (fileSystem.Exists(path)) fileSystem.Delete(path);
    }
}

bool NumberCacheWriter::DoSome() {
    switch (step) {
        case Step::Entries: {
            const std::size_t end = std::min(book.list.Size(), next + LinesAStep);
            for (; next < end; ++next) {
                const AddressList::Entry entry = book.list.EntryAt(next);
                const AddressRow row = book.list.Row(entry.row);
                rowOfItem[row.item] = entry.row;
                escaped.Append(numbers, book.list.EntryName(next));
                numbers.append(Separator);
                escaped.Append(numbers, row.number);
                numbers.append(")").append(EndOfLine);
                AppendNumber(entryDetails, row.item);
                entryDetails += '\t';
                AppendNumber(entryDetails, std::uint64_t(row.kind));
                entryDetails.append(entry.byFileAs ? "\t1" : "\t0").append(EndOfLine);
            }
            if (next < book.list.Size()) return true;
            next = 0;
            step = Step::Items;
            return true;
        }
        case Step::Items: {
            const std::size_t end = std::min(book.items.size(), next + LinesAStep);
            for (; next < end; ++next) {
                const ContactItem& item = book.items[next];
                AppendNumber(itemDetails, item.folder);
                for (const double date : {item.created, item.modified}) {
                    itemDetails += '\t';
                    AppendNumber(itemDetails, std::bit_cast<std::uint64_t>(date), 16);
                }
                itemDetails += '\t';
                if (rowOfItem[next] != None)
                    escaped.Append(itemDetails, book.list.Row(rowOfItem[next]).company);
                if (const auto members = book.members.find(std::uint32_t(next));
                    members != book.members.end()) {
                    for (const Text& member : members->second) {
                        itemDetails += '\t';
                        escaped.Append(itemDetails, member);
                    }
                }
                itemDetails.append(EndOfLine);
            }
            if (next < book.items.size()) return true;
            next = 0;
            details = Details();
            step = Step::WriteNumbers;
            return true;
        }
        case Step::WriteNumbers:
            return WritePart(Text(folder).append(NumbersFile), numbers, Step::WriteDetails);
        case Step::WriteDetails:
            if (WritePart(Text(folder).append(DetailsFile), details, Step::Done) &&
                step != Step::Done) {
                return true;
            }
            if (step != Step::Done) return false;
            // In between the two do not fit together, which the next reader sees.
            for (const TextView name : {NumbersFile, DetailsFile}) {
                const Text path = Text(folder).append(name);
                fileSystem.Rename(Text(path).append(NewEnding), path);
            }
            return false;
        case Step::Done:
            break;
    }
    return false;
}

std::string NumberCacheWriter::Details() {
    std::string rest;
    for (const ContactFolder& known : book.folders) {
        escaped.Append(rest, known.id);
        rest += '\t';
        escaped.Append(rest, known.name);
        rest += '\t';
        AppendNumber(rest, known.count);
        rest += '\t';
        AppendNumber(rest, std::bit_cast<std::uint64_t>(known.newest), 16);
        rest.append(known.settled ? "\t1" : "\t0").append(EndOfLine);
    }
    rest.append(itemDetails).append(entryDetails);
    std::string all(Title);
    for (const std::uint64_t hash : {HashOf(numbers), HashOf(rest)}) {
        all += '\t';
        AppendNumber(all, hash, 16);
    }
    for (const std::size_t count : {book.folders.size(), book.items.size(), book.list.Size()}) {
        all += '\t';
        AppendNumber(all, count);
    }
    return all.append(EndOfLine).append(rest);
}

// The next part of a file beside the one that it is to replace. False when that fails.
bool NumberCacheWriter::WritePart(const Text& name, const std::string& contents, Step then) {
    const std::string_view part = std::string_view(contents).substr(next, BytesAStep);
    if (!fileSystem.Write(Text(name).append(NewEnding), part,
                          next == 0 ? WriteMode::Replace : WriteMode::Append)) {
        return false;
    }
    next += part.size();
    if (next == contents.size()) {
        next = 0;
        step = then;
    }
    return true;
}

void DeleteNumberCache(FileSystem& fileSystem, const Text& folder) {
    for (const TextView name : {NumbersFile, DetailsFile}) {
        const Text path = Text(folder).append(name);
        if (fileSystem.Exists(path)) fileSystem.Delete(path);
    }
}

}  // namespace tellwick
