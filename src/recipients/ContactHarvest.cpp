#include "recipients/ContactHarvest.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Outlook.h"
#include "platform/OutlookEvents.h"
#include "recipients/Prefixes.h"

namespace tellwick {

namespace {

constexpr double Minute = 1.0 / 1440;

// The columns: dates first, since comparing needs no others.
enum Column : std::size_t { Created, Modified, MessageClass, FullName, FileAs, Company, Numbers };
constexpr std::size_t DateColumns = MessageClass;
constexpr std::array<TextView, Numbers + std::size_t(NumberKind::List)> Columns{
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

std::uint64_t KeyOf(const ContactItem& item) {
    return std::bit_cast<std::uint64_t>(item.created) * 31 +
           std::bit_cast<std::uint64_t>(item.modified);
}

double WholeMinute(double date) {
    return std::floor(date / Minute + 1e-6) * Minute;
}

}  // namespace

ContactHarvest::ContactHarvest(const Surroundings& surroundings, ObjectPtr mapi,
                               const AddressBook& before)
    : surroundings(surroundings),
      errors(surroundings.errors),
      nameSpace(std::move(mapi)),
      before(before),
      folders(errors, nameSpace),
      kept(before.items.size()),
      oldItems(before.items.size()),
      builder(surroundings.locale) {
    for (std::uint32_t item = 0; item < oldItems.size(); ++item) oldItems[item] = item;
    std::stable_sort(oldItems.begin(), oldItems.end(), [&](std::uint32_t one, std::uint32_t other) {
        return before.items[one].folder < before.items[other].folder;
    });
}

bool ContactHarvest::DoSlice(double milliseconds) {
    const double end = surroundings.clock.Milliseconds() + milliseconds;
    do {
        if (step == Step::Done) return false;
        DoStep();
    } while (surroundings.clock.Milliseconds() < end);
    return step != Step::Done;
}

void ContactHarvest::DoStep() {
    switch (step) {
        case Step::Walk:
            if (!folders.LookAtOne()) EndWalk();
            return;
        case Step::Folder:
            return BeginFolder();
        case Step::Items:
            return ReadItems();
        case Step::Keep:
            return KeepRows();
        case Step::Members:
            return FindMembers();
        case Step::Lists:
            return AddLists();
        case Step::Build:
            if (builder.DoSome(EntriesAStep)) return;
            book.list = builder.Take();
            step = Step::Done;
            return;
        case Step::Done:
            return;
    }
}

std::int32_t ContactHarvest::Progress() const {
    return total == 0 ? 0 : std::int32_t(std::min<std::uint64_t>(100, 100 * done / total));
}

std::optional<AddressBook> ContactHarvest::TakeBook() {
    if (step != Step::Done || !changed) return {};
    return std::move(book);
}

// The folders ---------------------------------------------------------------------------------

void ContactHarvest::EndWalk() {
    for (const ContactFolders::Found& contacts : folders.found) total += contacts.known.count;
    builder.Reserve(total + total / 8);
    step = Step::Folder;
}

std::int32_t ContactHarvest::OldFolder(const Text& id) const {
    const auto old = std::ranges::find(before.folders, id, &ContactFolder::id);
    return old == before.folders.end() ? -1 : std::int32_t(old - before.folders.begin());
}

// Nothing was added, removed or modified since. Outlook counts that; no item is read.
bool ContactHarvest::IsUnchanged(const ContactFolders::Found& contacts, std::int32_t oldFolder) {
    if (oldFolder < 0) return false;
    const ContactFolder& old = before.folders[std::size_t(oldFolder)];
    if (old.count != contacts.known.count) return false;
    if (old.count == 0) return true;
    if (!old.settled) return false;
    errors.Clear();
    const Text since = surroundings.locale.DateText(WholeMinute(old.newest) + Minute);
    const ObjectPtr later =
        AsObject(Call(errors, AsObject(Get(errors, contacts.folder, u"Items")), u"Restrict",
                      {Text(u"[LastModificationTime] >= '").append(since).append(u"'")}));
    return AsNumber(Get(errors, later, u"Count")) == 0 && !errors;
}

// The old folders that are gone. Those of a store that cannot be reached now may come back.
void ContactHarvest::EndFolders() {
    for (std::size_t old = 0; old < before.folders.size(); ++old) {
        const ContactFolder& folder = before.folders[old];
        const bool seen = std::ranges::any_of(
            folders.found, [&](const auto& contacts) { return contacts.known.id == folder.id; });
        if (seen) continue;
        if (Failed().empty()) {
            changed = true;
        } else {
            book.folders.push_back(folder);
            KeepAllOf(std::int32_t(old), std::uint16_t(book.folders.size() - 1));
        }
    }
    next = 0;
    step = changed ? Step::Keep : Step::Done;
}

void ContactHarvest::BeginFolder() {
    if (current == folders.found.size()) {
        EndFolders();
        return;
    }
    const ContactFolders::Found& contacts = folders.found[current];
    currentOld = OldFolder(contacts.known.id);
    folderName = contacts.known.name;
    const auto folder = std::uint16_t(book.folders.size());
    book.folders.push_back(contacts.known);
    if (currentOld != folder || before.folders[folder].name != folderName) changed = true;
    if (IsUnchanged(contacts, currentOld)) {
        const ContactFolder& old = before.folders[std::size_t(currentOld)];
        book.folders.back().newest = old.newest;
        book.folders.back().settled = old.settled;
        KeepAllOf(currentOld, folder);
        done += contacts.known.count;
        ++current;
        return;
    }
    known.clear();
    comparing = incomplete = false;
    if (currentOld >= 0) {
        for (const std::uint32_t item : OldItemsOf(currentOld))
            known.emplace(KeyOf(before.items[item]), item);
        // Where most is known, the dates tell what is not.
        comparing = known.size() * 2 >= contacts.known.count && !known.empty();
    }
    if (!comparing) changed = true;
    reader.emplace(errors, contacts.folder,
                   std::vector<TextView>(
                       Columns.begin(), comparing ? Columns.begin() + DateColumns : Columns.end()));
    next = 0;
    step = Step::Items;
}

std::span<const std::uint32_t> ContactHarvest::OldItemsOf(std::int32_t oldFolder) const {
    const auto isBefore = [this](std::uint32_t item, std::int32_t folder) {
        return before.items[item].folder < folder;
    };
    const auto first = std::lower_bound(oldItems.begin(), oldItems.end(), oldFolder, isBefore);
    const auto last = std::lower_bound(first, oldItems.end(), oldFolder + 1, isBefore);
    return {first, last};
}

void ContactHarvest::KeepAllOf(std::int32_t oldFolder, std::uint16_t folder) {
    for (const std::uint32_t old : OldItemsOf(oldFolder)) {
        ContactItem item = before.items[old];
        item.folder = folder;
        kept[old] = AddItem(item) + 1;
    }
}

std::uint32_t ContactHarvest::AddItem(const ContactItem& item) {
    book.items.push_back(item);
    return std::uint32_t(book.items.size() - 1);
}

// The items of a folder -----------------------------------------------------------------------

// Those of one reading, one by one.
void ContactHarvest::ReadItems() {
    const std::vector<ContactReader::Row>& rows = reader->Rows();
    if (next < rows.size()) {
        // Opening an item takes long; what is at hand already does not.
        const std::size_t end = comparing ? next + 1 : rows.size();
        for (; next < end; ++next) Look(rows[next]);
        return;
    }
    next = 0;
    if (!reader->ReadSome()) {
        GiveUpFolder();
    } else if (reader->AtEnd()) {
        EndFolder();
    }
}

void ContactHarvest::Look(const ContactReader::Row& row) {
    constexpr double ReadAgain = -1;
    ++done;
    ContactItem item;
    item.created = AsReal(row[Created]);
    item.modified = AsReal(row[Modified]);
    item.folder = std::uint16_t(book.folders.size() - 1);
    ContactFolder& folder = book.folders.back();
    folder.newest = std::max(folder.newest, item.modified);
    const std::uint32_t number = AddItem(item);
    const auto same = known.find(KeyOf(item));
    if (comparing && same != known.end()) {
        kept[same->second] = number + 1;
        known.erase(same);
        return;
    }
    changed = true;
    const bool dated = item.created > 0 && item.modified > 0;
    if (ReadItem(row, item.folder, number) && dated) return;
    // Its date must not tell the next time that nothing has changed.
    book.items[number].modified = ReadAgain;
    incomplete = true;
}

bool ContactHarvest::ReadItem(const ContactReader::Row& row, std::uint16_t folder,
                              std::uint32_t item) {
    errors.Clear();
    const Text messageClass = comparing ? Text() : AsText(row[MessageClass]);
    if (!comparing && !StartsWithFolded(messageClass, u"IPM.DistList")) {
        ReadContact(row, folder, item);
        // What is no contact has not all that contacts have.
        return row.complete ||
               (!messageClass.empty() && !StartsWithFolded(messageClass, u"IPM.Contact"));
    }
    const ObjectPtr opened = reader->Open(nameSpace, row);
    if (!opened) return false;
    const std::int32_t itemClass = outlook::Item(errors, opened).Class();
    if (itemClass == outlook::DistributionListClass) {
        ReadList(opened, item);
    } else if (itemClass == outlook::ContactClass) {
        std::vector<Value> values(Columns.size());
        for (std::size_t column = FullName; column < Columns.size(); ++column)
            values[column] = opened->Get(Columns[column]);
        const bool read = !errors;
        ReadContact({values.data(), 1, {}, row.index}, folder, item);
        return read;
    }
    return !errors;
}

void ContactHarvest::ReadContact(const ContactReader::Row& row, std::uint16_t folder,
                                 std::uint32_t item) {
    const auto lineOf = [&](Column column) {
        const auto* text = std::get_if<Text>(&row[column]);
        return text ? OneLine(*text) : Text();
    };
    const Text company = lineOf(Company);
    Text fileAs = lineOf(FileAs);
    Text name = lineOf(FullName);
    if (name.empty()) name = fileAs.empty() ? company : fileAs;
    if (EqualFolded(name, fileAs)) fileAs.clear();
    std::vector<Text> numbers;
    for (std::size_t kind = 0; kind < std::size_t(NumberKind::List); ++kind) {
        Text number = AsText(row[Numbers + kind]);
        if (number.empty()) continue;
        number = surroundings.prefixes.ConvertPhoneNumber(number);
        if (number.empty() || std::find(numbers.begin(), numbers.end(), number) != numbers.end())
            continue;
        builder.Add({name, fileAs, company, number, NumberKind(kind), folder, item});
        numbers.push_back(std::move(number));
    }
}

void ContactHarvest::EndFolder() {
    ContactFolder& folder = book.folders.back();
    if (!known.empty()) changed = true;
    if (incomplete) folders.failed.push_back(folderName);
    // What is modified in the minute of the newest may come later than this reading.
    folder.settled = !incomplete && folder.newest > 0 &&
                     WholeMinute(folder.newest) + Minute <= WholeMinute(surroundings.clock.Now());
    if (currentOld >= 0 && before.folders[std::size_t(currentOld)].settled != folder.settled)
        settledOthers = true;
    reader.reset();
    ++current;
    step = Step::Folder;
}

// What was known stays; what was read of it meanwhile does too, and is offered once all the same.
void ContactHarvest::GiveUpFolder() {
    folders.failed.push_back(folderName);
    for (const auto& [key, old] : known) {
        ContactItem item = before.items[old];
        item.folder = std::uint16_t(book.folders.size() - 1);
        kept[old] = AddItem(item) + 1;
    }
    EndFolder();
    book.folders.back().settled = false;
}

// The new book --------------------------------------------------------------------------------

void ContactHarvest::KeepRows() {
    const std::size_t end = std::min(before.list.Rows(), next + EntriesAStep);
    for (; next < end; ++next) {
        AddressRow row = before.list.Row(next);
        if (kept[row.item] == 0 || row.kind == NumberKind::List) continue;
        row.item = kept[row.item] - 1;
        row.folder = book.items[row.item].folder;
        builder.Add(row);
    }
    if (next < before.list.Rows()) return;
    for (const auto& [old, members] : before.members) {
        if (kept[old] != 0) book.members[kept[old] - 1] = members;
    }
    for (const auto& [item, members] : book.members) {
        for (const Text& member : members) numberOfMember.try_emplace(LowerCase(member));
    }
    next = 0;
    step = Step::Members;
}

}  // namespace tellwick
