#include "recipients/NumberCache.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <utility>

namespace tellwick {

namespace {

constexpr TextView NumbersFile = u"numbers.txt";
constexpr TextView DetailsFile = u"numbers2.txt";
constexpr TextView NewEnding = u".new";
constexpr std::string_view Title = "Tellwick numbers 3";
constexpr std::string_view EndOfLine = "\r\n";
constexpr std::string_view Separator = "  (";
constexpr std::size_t LinesAStep = 1000;
constexpr std::size_t BytesAStep = 1 << 18;
constexpr std::uint32_t None = 0xFFFFFFFF;

// Of bytes in two pieces.
std::uint64_t HashOf(std::string_view bytes, std::string_view more = {}) {
    RunningHash hash;
    hash.Add(bytes);
    hash.Add(more);
    return hash.Value();
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
        step = Step::Damaged;
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

// Title, hash of the lines behind the head and of the head's own rest, which is the hash of the
// other file and the counts. A count that no file of this size can have would take memory for
// nothing.
bool NumberCacheReader::ReadHead() {
    fields = NextLine(detailsLeft);
    const std::size_t most = detailsLeft.size() / EndOfLine.size();
    std::uint64_t hash = 0, numbersHash = 0;
    return Field() == Title && ReadField(hash, 16) && hash == HashOf(detailsLeft, fields) &&
           ReadField(numbersHash, 16) && numbersHash == HashOf(numbers) && ReadField(folders) &&
           ReadField(items) && ReadField(entries) && folders <= most && items <= most &&
           entries <= most;
}

bool NumberCacheReader::ReadFolder() {
    fields = NextLine(detailsLeft);
    KeptFolder folder;
    folder.id = escaped.Read(Field());
    folder.storeId = escaped.Read(Field());
    folder.name = escaped.Read(Field());
    book.folders.push_back(std::move(folder));
    return true;
}

bool NumberCacheReader::ReadItem() {
    fields = NextLine(detailsLeft);
    KeptItem item;
    std::uint64_t created = 0, modified = 0;
    if (!ReadField(item.folder) || item.folder >= folders || !ReadField(created, 16) ||
        !ReadField(modified, 16)) {
        return false;
    }
    item.created = std::bit_cast<double>(created);
    item.modified = std::bit_cast<double>(modified);
    companies.push_back(Field());
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
            return each(entries,
                        numbersLeft.empty() && detailsLeft.empty() ? Step::Pending : Step::Damaged,
                        [&](std::size_t) { return ReadEntry(); });
        case Step::Pending:
            return each(lines.size(), Step::Rows,
                        [&](std::size_t index) { return ReadPending(index); });
        case Step::Rows:
            return each(rows.size(), Step::Lines, [&](std::size_t index) {
                const Row& row = rows[index];
                escaped.Read(row.name, name);
                escaped.Read(row.fileAs, fileAs);
                escaped.Read(row.number, number);
                escaped.Read(companies[row.item], company);
                builder.Add({name, fileAs, company, number, row.kind, book.items[row.item].folder,
                             row.item});
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
      rowOfItem(book.items.size(), None) {
    constexpr std::size_t LineOfItem = 64;  // bytes, about
    constexpr std::size_t LineOfEntry = 32;
    numbers.reserve(book.list.Size() * LineOfEntry);
    details.reserve(book.items.size() * LineOfItem + book.list.Size() * LineOfEntry / 2);
}

NumberCacheWriter::~NumberCacheWriter() {
    if (step == Step::Done) return;
    // Half a file is of no use.
    for (const TextView name : {NumbersFile, DetailsFile}) {
        const Text path = Text(folder).append(name).append(NewEnding);
        if (fileSystem.Exists(path)) fileSystem.Delete(path);
    }
}

bool NumberCacheWriter::DoSome() {
    const std::size_t numbersBefore = numbers.size();
    const std::size_t detailsBefore = details.size();
    switch (step) {
        case Step::Folders:
            for (std::size_t row = 0; row < book.list.Rows(); ++row)
                rowOfItem[book.list.Row(row).item] = std::uint32_t(row);
            for (const KeptFolder& known : book.folders) AppendFolder(known);
            step = Step::Items;
            break;
        case Step::Items: {
            const std::size_t end = std::min(book.items.size(), next + LinesAStep);
            for (; next < end; ++next) AppendItem(next);
            if (next < book.items.size()) break;
            next = 0;
            step = Step::Entries;
            break;
        }
        case Step::Entries: {
            const std::size_t end = std::min(book.list.Size(), next + LinesAStep);
            for (; next < end; ++next) AppendEntry(next);
            if (next < book.list.Size()) break;
            next = 0;
            step = Step::WriteNumbers;
            break;
        }
        case Step::WriteNumbers:
            return WritePart(NumbersFile, numbers, Step::WriteHead);
        case Step::WriteHead:
            step = Step::WriteDetails;
            return Write(DetailsFile, Head(), WriteMode::Replace);
        case Step::WriteDetails:
            if (!WritePart(DetailsFile, details, Step::Done)) return false;
            if (step != Step::Done) return true;
            // In between the two do not fit together, which the next reader sees.
            for (const TextView name : {NumbersFile, DetailsFile}) {
                const Text path = Text(folder).append(name);
                fileSystem.Rename(Text(path).append(NewEnding), path);
            }
            return false;
        case Step::Done:
            return false;
    }
    numbersHash.Add(std::string_view(numbers).substr(numbersBefore));
    detailsHash.Add(std::string_view(details).substr(detailsBefore));
    return true;
}

void NumberCacheWriter::AppendFolder(const KeptFolder& known) {
    escaped.Append(details, known.id);
    details += '\t';
    escaped.Append(details, known.storeId);
    details += '\t';
    escaped.Append(details, known.name);
    details.append(EndOfLine);
}

void NumberCacheWriter::AppendItem(std::size_t index) {
    const KeptItem& item = book.items[index];
    AppendNumber(details, item.folder);
    for (const double date : {item.created, item.modified}) {
        details += '\t';
        AppendNumber(details, std::bit_cast<std::uint64_t>(date), 16);
    }
    details += '\t';
    if (rowOfItem[index] != None) escaped.Append(details, book.list.Row(rowOfItem[index]).company);
    if (const auto members = book.members.find(std::uint32_t(index));
        members != book.members.end()) {
        for (const Text& member : members->second) {
            details += '\t';
            escaped.Append(details, member);
        }
    }
    details.append(EndOfLine);
}

void NumberCacheWriter::AppendEntry(std::size_t index) {
    book.list.FetchAhead(index);
    const AddressList::Entry entry = book.list.EntryAt(index);
    const AddressRow row = book.list.Row(entry.row);
    escaped.Append(numbers, book.list.EntryName(index));
    numbers.append(Separator);
    escaped.Append(numbers, row.number);
    numbers.append(")").append(EndOfLine);
    AppendNumber(details, row.item);
    details += '\t';
    AppendNumber(details, std::uint64_t(row.kind));
    details.append(entry.byFileAs ? "\t1" : "\t0").append(EndOfLine);
}

std::string NumberCacheWriter::Head() const {
    std::string rest;
    AppendNumber(rest, numbersHash.Value(), 16);
    for (const std::size_t count : {book.folders.size(), book.items.size(), book.list.Size()}) {
        rest += '\t';
        AppendNumber(rest, count);
    }
    RunningHash hash = detailsHash;
    hash.Add(rest);
    std::string head(Title);
    head += '\t';
    AppendNumber(head, hash.Value(), 16);
    head += '\t';
    head.append(rest);
    return head.append(EndOfLine);
}

// The next part of a file.
bool NumberCacheWriter::WritePart(TextView name, const std::string& contents, Step then) {
    const std::string_view part = std::string_view(contents).substr(next, BytesAStep);
    const bool begins = next == 0 && name == NumbersFile;
    if (!Write(name, part, begins ? WriteMode::Replace : WriteMode::Append)) return false;
    next += part.size();
    if (next == contents.size()) {
        next = 0;
        step = then;
    }
    return true;
}

// Beside the file that it is to replace. False when that fails.
bool NumberCacheWriter::Write(TextView name, std::string_view part, WriteMode mode) {
    return fileSystem.Write(Text(folder).append(name).append(NewEnding), part, mode);
}

void DeleteNumberCache(FileSystem& fileSystem, const Text& folder) {
    for (const TextView name : {NumbersFile, DetailsFile}) {
        const Text path = Text(folder).append(name);
        if (fileSystem.Exists(path)) fileSystem.Delete(path);
    }
}

}  // namespace tellwick
