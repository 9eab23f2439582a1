// Reading, keeping and finding 100,000 contacts.
#include <malloc.h>

#include <cstdio>
#include <vector>

#include "Composing.h"
#include "Measures.h"
#include "model/ManyContacts.h"
#include "platform/Grid.h"
#include "platform/OutlookEvents.h"
#include "platform/TestProgram.h"
#include "recipients/AddressRows.h"
#include "recipients/Addresses.h"

namespace tellwick::bench {

namespace {

constexpr std::int32_t Contacts = 100000;
constexpr std::int32_t Folders = 50;

class RealClock : public Clock {
public:
    float SecondsSinceMidnight() override { return 0; }
    double Now() override { return 50000; }
    double Milliseconds() override {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration<double, std::milli>(now).count();
    }
};

double Milliseconds(const std::function<void()>& work) {
    RealClock clock;
    const double start = clock.Milliseconds();
    work();
    return clock.Milliseconds() - start;
}

// Bytes, large blocks too.
std::size_t InUse() {
    const struct mallinfo2 all = mallinfo2();
    return all.uordblks + all.hblkhd;
}

// What Outlook's tables give out, taken in arrays and not looked at.
std::size_t ReadArrays(const ObjectPtr& application) {
    std::size_t cells = 0;
    const ObjectPtr nameSpace = AsObject(application->Call(u"GetNamespace", {Text(u"MAPI")}));
    const ObjectPtr contacts =
        AsObject(nameSpace->Call(u"GetDefaultFolder", {outlook::ContactsFolder}));
    const ObjectPtr folders = AsObject(contacts->Get(u"Folders"));
    for (std::int32_t folder = 1; folder <= AsNumber(folders->Get(u"Count")); ++folder) {
        const ObjectPtr table =
            AsObject(AsObject(folders->Get(u"Item", {folder}))->Call(u"GetTable"));
        const ObjectPtr columns = AsObject(table->Get(u"Columns"));
        columns->Call(u"RemoveAll");
        for (const TextView property :
             {u"EntryID", u"CreationTime", u"LastModificationTime", u"MessageClass", u"FullName",
              u"FileAs", u"CompanyName", u"MobileTelephoneNumber", u"HomeTelephoneNumber",
              u"Home2TelephoneNumber", u"BusinessTelephoneNumber", u"Business2TelephoneNumber",
              u"CarTelephoneNumber", u"OtherTelephoneNumber", u"PrimaryTelephoneNumber"}) {
            columns->Call(u"Add", {Text(property)});
        }
        while (!AsBoolean(table->Get(u"EndOfTable"))) {
            const GridPtr grid = AsGrid(table->Call(u"GetArray", {64}));
            if (!grid) break;
            cells += grid->First() * grid->Second();
        }
    }
    return cells;
}

struct Reading {
    double total = 0, longest = 0;
};

AddressBook Harvest(test::TestProgram& test, const ObjectPtr& application, std::int32_t version,
                    const AddressBook& before, Reading& reading) {
    RealClock clock;
    ContactHarvest harvest(
        {test.platform.errors, test.platform.automation, test.program.prefixes,
         test.platform.locale, clock},
        {application, AsObject(application->Call(u"GetNamespace", {Text(u"MAPI")})), version},
        before);
    for (bool more = true; more;) {
        const double slice = Milliseconds([&] { more = harvest.DoSlice(10); });
        reading.total += slice;
        reading.longest = std::max(reading.longest, slice);
    }
    return harvest.TakeBook().value_or(AddressBook());
}

// One contact has another number and another one is gone: what follows the comparison of the dates.
void MeasureMerging(Locale& locale, const AddressBook& book) {
    constexpr std::uint32_t Changed = 7, Deleted = 9;
    BookBuilder builder(locale, book);
    double longest = 0;
    const double all = Milliseconds([&] {
        for (std::size_t folder = 0; folder < book.folders.size(); ++folder) {
            builder.BeginFolder(book.folders[folder]);
            for (const std::uint32_t item : builder.ItemsBefore(folder)) {
                if (item == Changed) {
                    builder.AddNumber(builder.AddItem(1, 1), u"Zo\u00EB Neumann", {}, {}, u"+491",
                                      NumberKind::Mobile);
                } else if (item != Deleted) {
                    builder.Keep(item, book.items[item].created, book.items[item].modified);
                }
            }
        }
        for (bool more = true; more;)
            longest = std::max(longest, Milliseconds([&] { more = builder.DoSome(1000); }));
    });
    Report("a changed and a deleted contact merged", all, "ms", 20);
    Report("its longest step", longest, "ms", 15);
    if (builder.Take().list.Matches(u"Zo\u00EB").size() != 1) std::puts("merged wrongly");
}

void MeasureFinding(const AddressList& list) {
    std::size_t found = 0;
    struct Case {
        const char* what;
        TextView search;
        double target;
    };
    for (const Case& c : {Case{"matching, 100,000 contacts, \"a\"", u"a", 0.7},
                          Case{"matching, the first key \"b\"", u"b", 0.7},
                          Case{"matching, a longer text \"an\"", u"an", 0.1},
                          Case{"matching, \"berg\"", u"berg", 0.1},
                          Case{"matching, \"hoferber\"", u"hoferber", 0.1}}) {
        const double taken = Nanoseconds(3, [&] { found += list.Matches(c.search).size(); });
        Report(c.what, taken / 1e6, "ms", c.target);
    }
    // Mails that name nobody, and one in which many words begin as names do.
    struct Mail {
        const char* what;
        TextView word;
        std::size_t length;
        double target;
    };
    constexpr TextView Plain = u"morgen um zehn im Haus am Markt, ";
    for (const Mail& mail :
         {Mail{"nobody named in 64 KB", Plain, 0x10000, 5},
          Mail{"nobody named, but nearly", u"Anna geht, Berger kommt, Hofer bleibt; ", 0x10000, 5},
          Mail{"nobody named in 1 MB", Plain, 0x100000, 15}}) {
        Text body;
        for (int line = 0; body.size() < mail.length; ++line)
            body.append(mail.word).append(NumberText(line)).append(u" ");
        Report(mail.what, Milliseconds([&] { found += list.RowNamedFirstIn(body) ? 1 : 0; }), "ms",
               mail.target);
    }
    const AddressSearch search(u"an be", {u"Kontakte"});
    Report("the selection's search \"an be\", all rows", Milliseconds([&] {
               for (std::size_t row = 0; row < list.Rows(); ++row)
                   found += search.Matches(list.Row(row));
           }),
           "ms", 0);
    if (found == 0) std::puts("nothing was found");
}

// In the recipient selection: a column that is clicked, and a name typed while the list has the
// focus.
void MeasureRows(test::TestProgram& test, const ObjectPtr& application) {
    Addresses& addresses = test.program.addresses;
    addresses.SetApplication(application);
    addresses.RefreshOnce();
    while (test.platform.timers.Tick() != 0) {
    }
    AddressRows rows(addresses);
    Reading sorting;
    for (const auto order :
         {AddressRows::Order::Number, AddressRows::Order::Kind, AddressRows::Order::Folder}) {
        rows.Sort(order, false);
        rows.Narrow({}, {});
        for (bool more = true; more;) {
            const double step = Milliseconds([&] { more = rows.DoSome(500); });
            sorting.total += step;
            sorting.longest = std::max(sorting.longest, step);
        }
    }
    Report("the selection, sorted by a column, on average", sorting.total / 3, "ms", 50);
    Report("its longest step", sorting.longest, "ms", 5);
    std::optional<std::size_t> found;
    Report("a name looked for in all its rows", Milliseconds([&] { found = rows.Find(0, u"@"); }),
           "ms", 16);
    if (found || rows.Shown().size() < Contacts) std::puts("wrong rows");
    addresses.Release();
}

}  // namespace

void MeasurePeople() {
    test::TestProgram test;
    for (const std::int32_t version : {16, 11}) {
        standin::OutlookModel outlook(test.platform.errors, version);
        standin::AddManyContacts(outlook, Contacts, Folders);
        const ObjectPtr application = outlook.Application();
        std::printf("%d contacts in %d folders, Outlook %d, in the model without COM\n", Contacts,
                    Folders, version);
        double arrays = 0;
        if (version == 16) {
            std::size_t cells = 0;
            arrays = Milliseconds([&] { cells = ReadArrays(application); });
            Report("their arrays alone", arrays, "ms", 0);
            if (cells == 0) std::puts("no arrays");
        }
        const AddressBook nothing;
        Reading first, again;
        const std::size_t before = InUse();
        const AddressBook book = Harvest(test, application, version, nothing, first);
        const std::size_t after = InUse();
        Report("first reading", first.total, "ms", 2.5 * arrays);
        Report("its longest slice", first.longest, "ms", 15);
        Harvest(test, application, version, book, again);
        Report("reading again, nothing changed", again.total, "ms", 0);
        if (version != 16) continue;
        MeasureMerging(test.platform.locale, book);
        Report("memory of the list", double(after - before) / (1 << 20), "MB", 25);
        MeasureFinding(book.list);
        test::MemoryFileSystem& files = test.platform.fileSystem;
        const Text folder = u"C:\\Data\\";
        Reading writing, reading;
        NumberCacheWriter writer(files, test.platform.locale, folder, book);
        for (bool more = true; more;) {
            const double slice = Milliseconds([&] { more = writer.DoSome(); });
            writing.total += slice;
            writing.longest = std::max(writing.longest, slice);
        }
        Report("writing the files", writing.total, "ms", 0);
        Report("its longest step", writing.longest, "ms", 15);
        std::optional<AddressBook> known;
        reading.total = Milliseconds([&] {
            NumberCacheReader reader(files, test.platform.locale, folder);
            for (bool more = true; more;) {
                const double slice = Milliseconds([&] { more = reader.DoSome(); });
                reading.longest = std::max(reading.longest, slice);
            }
            known = reader.Take();
        });
        Report("start with the files", reading.total, "ms", 150);
        Report("its longest step", reading.longest, "ms", 15);
        if (!known || known->list.Size() != book.list.Size()) std::puts("the files are wrong");
        MeasureRows(test, application);
    }
}

}  // namespace tellwick::bench
