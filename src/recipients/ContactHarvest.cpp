#include "recipients/ContactHarvest.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/Clock.h"
#include "platform/Locale.h"

namespace tellwick {

namespace {

constexpr std::size_t EntriesAStep = 1000;  // that a step looks at
constexpr double Minute = 1.0 / 1440;

double WholeMinute(double date) {
    return std::floor(date / Minute + 1e-6) * Minute;
}

}  // namespace

ContactHarvest::ContactHarvest(const Surroundings& surroundings, const ObjectPtr& nameSpace,
                               const AddressBook& before)
    : surroundings(surroundings),
      errors(surroundings.errors),
      before(before),
      folders(errors, nameSpace),
      items(errors, surroundings.automation, surroundings.prefixes, nameSpace),
      book(surroundings.locale, before) {}

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
            if (!folders.LookAtOne()) BeginReading();
            return;
        case Step::Folder:
            return BeginFolder();
        case Step::Items:
            return ReadItems();
        case Step::Book:
            if (!book.DoSome(EntriesAStep)) step = Step::Done;
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
    return book.Take();
}

void ContactHarvest::BeginReading() {
    for (const ContactFolders::Found& contacts : folders.found) total += contacts.toKeep.count;
    book.Reserve(total);
    step = Step::Folder;
}

// Nothing was added, removed or modified since. Outlook counts that; no item is read.
bool ContactHarvest::IsUnchanged(const ContactFolders::Found& contacts) {
    if (!folderBefore) return false;
    const KeptFolder& old = before.folders[*folderBefore];
    if (old.count != contacts.toKeep.count) return false;
    if (old.count == 0) return true;
    if (!old.settled) return false;
    errors.Clear();
    const Text since = surroundings.locale.DateText(WholeMinute(old.newest) + Minute);
    const ObjectPtr later =
        AsObject(Call(errors, AsObject(Get(errors, contacts.folder, u"Items")), u"Restrict",
                      {Text(u"[LastModificationTime] >= '").append(since).append(u"'")}));
    return AsNumber(Get(errors, later, u"Count")) == 0 && !errors;
}

void ContactHarvest::BeginFolder() {
    if (current == folders.found.size()) {
        EndFolders();
        return;
    }
    const ContactFolders::Found& contacts = folders.found[current];
    folderBefore = book.FolderBefore(contacts.toKeep.id);
    folderName = contacts.toKeep.name;
    book.BeginFolder(contacts.toKeep);
    if (folderBefore != current || before.folders[current].name != folderName) changed = true;
    if (IsUnchanged(contacts)) {
        book.Folder().newest = before.folders[*folderBefore].newest;
        book.Folder().settled = before.folders[*folderBefore].settled;
        book.KeepAllOf(*folderBefore);
        done += contacts.toKeep.count;
        ++current;
        return;
    }
    changes.emplace(before.items, folderBefore ? book.ItemsBefore(*folderBefore)
                                               : std::span<const std::uint32_t>());
    // Where most is known, the dates tell what is not.
    comparing = changes->CountLeft() * 2 >= contacts.toKeep.count && changes->CountLeft() != 0;
    incomplete = false;
    if (!comparing) changed = true;
    reader.emplace(errors, contacts.folder, ItemReader::Columns(comparing));
    next = 0;
    step = Step::Items;
}

// Those of one reading, one by one.
void ContactHarvest::ReadItems() {
    const std::vector<FolderReader::Row>& rows = reader->Rows();
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

void ContactHarvest::Look(const FolderReader::Row& row) {
    constexpr double ReadAgain = -1;
    ++done;
    const double created = ItemReader::CreatedOf(row);
    const double modified = ItemReader::ModifiedOf(row);
    book.Folder().newest = std::max(book.Folder().newest, modified);
    if (comparing) {
        if (const auto same = changes->Take(created, modified)) {
            book.Keep(*same);
            return;
        }
    }
    changed = true;
    const std::uint32_t item = book.AddItem(created, modified);
    const bool dated = created > 0 && modified > 0;
    if (items.Read(*reader, row, comparing, item, book) && dated) return;
    // Its date must not tell the next time that nothing has changed.
    book.Item(item).modified = ReadAgain;
    incomplete = true;
}

void ContactHarvest::EndFolder() {
    if (changes->CountLeft() != 0) changed = true;
    if (incomplete) folders.failed.push_back(folderName);
    // What is modified in the minute of the newest may come later than this reading.
    KeptFolder& folder = book.Folder();
    folder.settled = !incomplete && folder.newest > 0 &&
                     WholeMinute(folder.newest) + Minute <= WholeMinute(surroundings.clock.Now());
    if (folderBefore && before.folders[*folderBefore].settled != folder.settled)
        settledOthers = true;
    reader.reset();
    ++current;
    step = Step::Folder;
}

// What was known stays; what was read of it meanwhile does too, and is offered once all the same.
void ContactHarvest::GiveUpFolder() {
    folders.failed.push_back(folderName);
    for (const std::uint32_t item : changes->Left()) book.Keep(item);
    EndFolder();
    book.Folder().settled = false;
}

// The folders before that are gone. Those of a store that cannot be reached now may come back.
void ContactHarvest::EndFolders() {
    for (std::size_t old = 0; old < before.folders.size(); ++old) {
        const KeptFolder& folder = before.folders[old];
        const bool seen = std::ranges::any_of(
            folders.found, [&](const auto& contacts) { return contacts.toKeep.id == folder.id; });
        if (seen) continue;
        if (Failed().empty()) {
            changed = true;
        } else {
            book.BeginFolder(folder);
            book.KeepAllOf(old);
        }
    }
    step = changed ? Step::Book : Step::Done;
}

}  // namespace tellwick
