#include "recipients/ContactHarvest.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

constexpr std::size_t EntriesAStep = 1000;  // that a step looks at
constexpr std::size_t MostOpened = 50;      // of a folder, unless that is less than half of it
constexpr std::int32_t WithTables = 12;     // the first version that gives many dates at once
// Where it does not, only the items that were modified last are looked at. A change that was made
// elsewhere so many days before the newest one known is still found.
constexpr double LatestArrival = 31;

}  // namespace

ContactHarvest::ContactHarvest(const Surroundings& surroundings, Source outlook,
                               const AddressBook& before)
    : calls(surroundings.errors, surroundings.clock),
      clock(surroundings.clock),
      source(std::move(outlook)),
      before(before),
      folders(calls, source.application, source.nameSpace, source.version),
      items(calls, surroundings.automation, surroundings.prefixes, source.version),
      book(surroundings.locale, before) {}

bool ContactHarvest::DoSlice(double milliseconds) {
    const double end = clock.Milliseconds() + milliseconds;
    do {
        if (step == Step::Done) return false;
        calls.Begin();
        DoStep();
        if (calls.Slow()) PutOff();
    } while (clock.Milliseconds() < end);
    return step != Step::Done;
}

void ContactHarvest::DoStep() {
    switch (step) {
        case Step::Walk:
            if (!folders.LookAtOne()) BeginReading();
            return;
        case Step::Folder:
            return BeginFolder();
        case Step::Newest:
            return ReadNewest();
        case Step::Items:
            return ReadItems();
        case Step::Opened:
            return OpenItems();
        case Step::Book:
            if (!book.DoSome(EntriesAStep)) step = Step::Done;
            return;
        case Step::Done:
            return;
    }
}

std::int32_t ContactHarvest::Progress() const {
    return total == 0 ? 0
                      : std::int32_t(std::min<std::uint64_t>(100, 100 * (done + doneHere) / total));
}

std::optional<AddressBook> ContactHarvest::TakeBook() {
    if (step != Step::Done || !changed) return {};
    return book.Take();
}

// The folders ---------------------------------------------------------------------------------

// The last step made Outlook wait.
void ContactHarvest::PutOff() {
    if (step == Step::Walk) {
        folders.PutOff();
    } else if (reader) {
        book.DropFolder();
        reader.reset();
        folders.PutOff(current);
        step = Step::Folder;
    }
}

void ContactHarvest::BeginReading() {
    for (const ContactFolders::Found& contacts : folders.found) total += contacts.count;
    if (before.items.empty()) book.Reserve(total);
    step = Step::Folder;
}

void ContactHarvest::BeginFolder() {
    if (current == folders.found.size()) {
        EndFolders();
        return;
    }
    const ContactFolders::Found& contacts = folders.found[current];
    folderBefore = book.FolderBefore(contacts.toKeep.id);
    folderName = contacts.toKeep.name;
    changedHere = book.BeginFolder(contacts.toKeep) != folderBefore ||
                  before.folders[*folderBefore].name != folderName;
    StartRows();
    const bool mayBeSame = folderBefore && changes->Count() == contacts.count;
    if (mayBeSame && contacts.count == 0) {
        KeepFolder();
    } else if (mayBeSame && source.version < WithTables && !changes->Incomplete()) {
        reader.emplace(calls, source.nameSpace, contacts.toKeep, contacts.count,
                       ItemReader::Columns(true), FolderReader::Order::NewestFirst);
        step = Step::Newest;
    } else {
        // Where most is known, the dates tell what is not.
        ReadFolder(changes->Count() * 2 >= contacts.count && changes->Count() != 0);
    }
}

// From its beginning.
void ContactHarvest::StartRows() {
    changes.emplace(before.items, folderBefore ? book.ItemsBefore(*folderBefore)
                                               : std::span<const std::uint32_t>());
    book.EmptyFolder();
    incomplete = false;
    doneHere = 0;
    changedDates.clear();
    toOpen.clear();
}

void ContactHarvest::ReadFolder(bool compare) {
    const ContactFolders::Found& contacts = folders.found[current];
    StartRows();
    comparing = compare;
    reader.emplace(calls, source.nameSpace, contacts.toKeep, contacts.count,
                   ItemReader::Columns(comparing), FolderReader::Order::Any);
    step = Step::Items;
}

// Nothing was added, removed or modified since; no more than a few items are looked at.
void ContactHarvest::ReadNewest() {
    const double since = changes->Newest() - LatestArrival;
    bool known = reader->ReadSome();
    bool inTime = known && !reader->AtEnd();
    for (const FolderReader::Row& row : reader->Rows()) {
        const double modified = ItemReader::ModifiedOf(row);
        inTime = modified >= since;
        known = known && row.complete &&
                (!inTime || changes->Take(ItemReader::CreatedOf(row), modified));
    }
    if (known && inTime) return;
    if (known && !changes->LeftSince(since)) {
        reader.reset();
        KeepFolder();
        return;
    }
    ReadFolder(true);
}

// The items of a folder -----------------------------------------------------------------------

// Those of one reading.
void ContactHarvest::ReadItems() {
    calls.errors.Clear();
    if (!reader->ReadSome()) {
        if (calls.Slow()) return;
        if (!reader->TryNextWay()) {
            GiveUpFolder();
            return;
        }
        StartRows();
    } else if (reader->AtEnd()) {
        EndRows();
    } else {
        for (const FolderReader::Row& row : reader->Rows()) Look(row);
    }
}

void ContactHarvest::Look(const FolderReader::Row& row) {
    ++doneHere;
    const double created = ItemReader::CreatedOf(row);
    const double modified = ItemReader::ModifiedOf(row);
    const bool dated = created > 0 && modified > 0;
    if (comparing) {
        const auto same = changes->Take(created, modified);
        if (same) {
            book.Keep(*same, created, modified);
        } else {
            changedDates.push_back({created, dated ? modified : KeptItem::ReadAgain, 0});
            toOpen.push_back({row.EntryId(), row.index});
        }
        return;
    }
    changedHere = true;
    const std::uint32_t item = book.AddItem(created, modified);
    if (items.Read(*reader, row, item, book) && dated) return;
    // Its date must not tell the next time that nothing has changed.
    book.Item(item).modified = KeptItem::ReadAgain;
    incomplete = true;
}

// All dates are known.
void ContactHarvest::EndRows() {
    std::size_t moved = 0;
    for (const FolderChanges::Moved& each : changes->TakeMoved(changedDates)) {
        const KeptItem& dates = changedDates[each.index];
        book.Keep(each.item, dates.created, dates.modified);
        toOpen[each.index].index = 0;
        ++moved;
    }
    if (changes->CountLeft() != 0 || !toOpen.empty()) changedHere = true;
    // Opening most of many items would take longer than reading all of them.
    if (toOpen.size() - moved > std::max<std::uint64_t>(MostOpened, doneHere / 2)) {
        ReadFolder(false);
        return;
    }
    next = 0;
    step = Step::Opened;
}

// One after the other, since opening an item takes long.
void ContactHarvest::OpenItems() {
    while (next < toOpen.size() && toOpen[next].index == 0) ++next;
    if (next == toOpen.size()) {
        EndFolder();
        return;
    }
    const KeptItem& dates = changedDates[next];
    const std::uint32_t item = book.AddItem(dates.created, dates.modified);
    if (!items.Open(*reader, toOpen[next].entryId, toOpen[next].index, item, book))
        book.Item(item).modified = KeptItem::ReadAgain;
    incomplete = incomplete || book.Item(item).modified == KeptItem::ReadAgain;
    ++next;
}

void ContactHarvest::KeepFolder() {
    book.KeepAllOf(*folderBefore);
    changed = changed || changedHere;
    doneHere = folders.found[current].count;
    incomplete = false;
    EndFolder();
}

void ContactHarvest::EndFolder() {
    changed = changed || changedHere;
    if (incomplete) folders.failed.push_back(folderName);
    reader.reset();
    done += std::exchange(doneHere, 0);
    ++current;
    step = Step::Folder;
}

// What was known of it stays.
void ContactHarvest::GiveUpFolder() {
    folders.failed.push_back(folderName);
    book.EmptyFolder();
    reader.reset();
    if (folderBefore) {
        KeepFolder();
    } else {
        book.DropFolder();
        ++current;
        step = Step::Folder;
    }
}

// The folders before that are gone, unless they may come back.
void ContactHarvest::EndFolders() {
    for (std::size_t old = 0; old < before.folders.size(); ++old) {
        const KeptFolder& folder = before.folders[old];
        const bool seen = std::ranges::any_of(
            folders.found, [&](const auto& contacts) { return contacts.toKeep.id == folder.id; });
        if (seen) continue;
        if (folders.MayReturn(folder)) {
            if (book.BeginFolder(folder) != old) changed = true;
            book.KeepAllOf(old);
        } else {
            changed = true;
        }
    }
    step = changed ? Step::Book : Step::Done;
}

}  // namespace tellwick
