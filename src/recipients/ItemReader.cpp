#include "recipients/ItemReader.h"

#include <array>

#include "platform/OutlookEvents.h"
#include "recipients/DistributionLists.h"
#include "recipients/Prefixes.h"

namespace tellwick {

namespace {

// The columns: dates first, since comparing needs no others.
enum Column : std::size_t { Created, Modified, MessageClass, FullName, FileAs, Company, Numbers };
constexpr std::size_t DateColumns = MessageClass;
constexpr std::array<TextView, Numbers + std::size_t(NumberKind::List)> ColumnNames{
    u"CreationTime",
    u"LastModificationTime",
    u"MessageClass",
    u"FullName",
    u"FileAs",
    u"CompanyName",
    u"MobileTelephoneNumber",
    u"HomeTelephoneNumber",
    u"Home2TelephoneNumber",
    u"BusinessTelephoneNumber",
    u"Business2TelephoneNumber",
    u"CarTelephoneNumber",
    u"OtherTelephoneNumber",
    u"PrimaryTelephoneNumber"};

}  // namespace

// From Outlook 2003 on nobody is asked about what an add-in reads through its own application.
ItemReader::ItemReader(TimedCalls& calls, Automation& automation, Prefixes& prefixes,
                       std::int32_t version)
    : calls(calls), automation(automation), prefixes(prefixes), outlookAsks(version < 11) {}

std::vector<TextView> ItemReader::Columns(bool datesOnly) {
    return {ColumnNames.begin(), datesOnly ? ColumnNames.begin() + DateColumns : ColumnNames.end()};
}

double ItemReader::CreatedOf(const FolderReader::Row& row) {
    return AsReal(row[Created]);
}

double ItemReader::ModifiedOf(const FolderReader::Row& row) {
    return AsReal(row[Modified]);
}

bool ItemReader::Read(FolderReader& folder, const FolderReader::Row& row, std::uint32_t item,
                      BookBuilder& book) {
    const TextView messageClass = row.TextIn(MessageClass);
    if (StartsWithFolded(messageClass, u"IPM.DistList"))
        return Open(folder, row.EntryId(), row.index, item, book);
    ReadContact(row, item, book);
    // What is no contact has not all that contacts have.
    return row.complete ||
           (!messageClass.empty() && !StartsWithFolded(messageClass, u"IPM.Contact"));
}

bool ItemReader::Open(FolderReader& folder, const Text& entryId, std::int32_t index,
                      std::uint32_t item, BookBuilder& book) {
    calls.errors.Clear();
    const ObjectPtr opened = folder.Open(entryId, index);
    if (!opened) return false;
    const std::int32_t itemClass = AsNumber(calls.Get(opened, u"Class"));
    if (itemClass == outlook::DistributionListClass) {
        book.SetMembers(item, ReadDistributionList(calls, automation, opened, outlookAsks));
    } else if (itemClass == outlook::ContactClass) {
        Grid values(1, ColumnNames.size());
        for (std::size_t column = 0; column < ColumnNames.size(); ++column)
            values.Add(column < FullName ? Value() : calls.Get(opened, ColumnNames[column]));
        const bool read = !calls.errors;
        ReadContact({values, 0, 1, ColumnNames.size(), index, false}, item, book);
        return read;
    }
    return !calls.errors;
}

void ItemReader::ReadContact(const FolderReader::Row& row, std::uint32_t item, BookBuilder& book) {
    OneLine(row.TextIn(Company), company);
    OneLine(row.TextIn(FileAs), fileAs);
    OneLine(row.TextIn(FullName), name);
    if (name.empty()) name = fileAs.empty() ? company : fileAs;
    if (EqualFolded(name, fileAs)) fileAs.clear();
    numbers = u";";
    for (std::size_t kind = 0; kind < std::size_t(NumberKind::List); ++kind) {
        const std::size_t column = Numbers + kind;
        if (row.grid.IsNothing(row.Cell(column))) continue;
        Text number = prefixes.ConvertPhoneNumber(
            row.grid.IsText(row.Cell(column)) ? row.TextIn(column) : TextView(AsText(row[column])));
        if (number.empty()) continue;
        const std::size_t known = numbers.size() - 1;
        numbers.append(number).append(u";");
        if (numbers.find(TextView(numbers).substr(known)) < known) continue;
        book.AddNumber(item, name, fileAs, company, number, NumberKind(kind));
    }
}

}  // namespace tellwick
