// The address book between two starts, in two text files of the settings folder: "numbers.txt" has
// the entries as the match list shows them, one a line; "numbers2.txt" says for each of these lines
// whose number of which kind it is, and which folders and items were read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "recipients/AddressBook.h"
#include "recipients/AddressListBuilder.h"
#include "recipients/EscapedText.h"
#include "recipients/RunningHash.h"

namespace tellwick {

// Both read and write in small steps, and may be dropped between any two.
class NumberCacheReader {
public:
    NumberCacheReader(FileSystem& fileSystem, Locale& locale, const Text& folder);

    // Does some of it; false when all is done.
    bool DoSome();
    // When all is done; none when there are no files that fit together.
    std::optional<AddressBook> Take();

private:
    enum class Step { Folders, Items, Entries, Pending, Rows, Lines, Build, Done, Damaged };
    // A row as its lines tell it.
    struct Row {
        std::string_view name, fileAs, number;  // as the file has them
        std::uint32_t item;
        NumberKind kind;
        std::uint32_t nextOfItem;
    };
    struct Line {
        std::uint32_t row;
        bool byFileAs;
    };

    bool ReadHead();
    bool ReadFolder();
    bool ReadItem();
    bool ReadEntry();
    bool ReadPending(std::size_t index);
    bool DoStep();
    std::string_view NextLine(std::string_view& left);
    // The next field, up to TAB, of the line of numbers2.txt that is being read.
    std::string_view Field();
    template <class Number>
    bool ReadField(Number& number, int base = 10);

    EscapedText escaped;
    AddressListBuilder builder;
    AddressBook book;
    std::string numbers, details;
    std::string_view numbersLeft, detailsLeft, fields;
    std::size_t folders = 0, items = 0, entries = 0;  // that there should be
    std::vector<Row> rows;
    std::vector<std::uint32_t> firstOfItem;   // rows
    std::vector<std::string_view> companies;  // by item
    std::vector<Line> lines;
    std::vector<Row> pending;  // lines by FileAs, whose rows may come later
    Step step = Step::Folders;
    std::size_t next = 0;
    Text name, fileAs, company, number;  // of the row at hand
};

class NumberCacheWriter {
public:
    // The book must outlive this.
    NumberCacheWriter(FileSystem& fileSystem, Locale& locale, Text settingsFolder,
                      const AddressBook& book);
    ~NumberCacheWriter();
    NumberCacheWriter(const NumberCacheWriter&) = delete;
    NumberCacheWriter& operator=(const NumberCacheWriter&) = delete;

    bool DoSome();

private:
    enum class Step { Folders, Items, Entries, WriteNumbers, WriteHead, WriteDetails, Done };

    void AppendFolder(const KeptFolder& known);
    void AppendItem(std::size_t index);
    void AppendEntry(std::size_t index);
    std::string Head() const;
    bool WritePart(TextView name, const std::string& contents, Step then);
    bool Write(TextView name, std::string_view part, WriteMode mode);

    FileSystem& fileSystem;
    EscapedText escaped;
    const Text folder;
    const AddressBook& book;
    std::string numbers, details;  // the details without their first line
    RunningHash numbersHash, detailsHash;
    std::vector<std::uint32_t> rowOfItem;
    Step step = Step::Folders;
    std::size_t next = 0;
};

void DeleteNumberCache(FileSystem& fileSystem, const Text& folder);

}  // namespace tellwick
