// Reading Outlook's contacts, keeping them, and finding them.
#include <doctest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>
#include <set>
#include <utility>

#include "model/ManyContacts.h"
#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"
#include "platform/TestProgram.h"
#include "recipients/AddressListMerger.h"
#include "recipients/Addresses.h"
#include "recipients/NumberInText.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

// An Outlook with contacts in nested folders of two stores, and the program that reads them.
struct People : TestProgram {
    explicit People(std::int32_t version = 16) : outlook(platform.errors, version) {
        outlook.AddStore(u"Archive");
        club = outlook.DefaultFolder(outlook::ContactsFolder)->Add(u"Club", standin::ContactItem);
        board = club->Add(u"Board", standin::ContactItem);
        archive = outlook.stores[1]->Add(u"Old", standin::ContactItem);
        Add(u"Anna Berger", u"Berger, Anna", u"0049 171 1000001", nullptr);
        Add(u"J\u00F6rg Zeman", u"J\u00F6rg Zeman", u"+49 172 2000002", club);
        Add(u"Carla Ost", u"Ost, Carla", u"+49 173 3000003", board);
        Add(u"Old Friend", u"", u"+49 174 4000004", archive);
        anna = outlook.DefaultFolder(outlook::ContactsFolder)->items->all[0];
        anna->SetField(u"HomeTelephoneNumber", u"+49 30 5000005");
        anna->SetField(u"CarTelephoneNumber", u"+49 30-5000005");
        list = outlook.AddItem(outlook::DistributionListClass, {{u"DLName", u"Skat"}});
        list->people = {{u"J\u00D6RG ZEMAN", u"j@x"}, {u"Nobody", u"n@x"}, {u"Ost, Carla", u"c@x"}};
        platform.clock.now = outlook.now + 1;
        outlook.pass = [this](double milliseconds) { platform.clock.milliseconds += milliseconds; };
        // Where Outlook would ask the user before it names a list's members.
        if (version < 11) {
            platform.automation.factories[u"Redemption.SafeDistList"] = [this] {
                return outlook.CreateSafeItem(outlook::DistributionListClass);
            };
        }
    }
    std::shared_ptr<standin::Item> Add(TextView name, TextView fileAs, TextView mobile,
                                       const std::shared_ptr<standin::Folder>& folder) {
        const auto item = outlook.AddItem(
            outlook::ContactClass,
            {{u"FullName", name}, {u"FileAs", fileAs}, {u"MobileTelephoneNumber", mobile}});
        if (folder) outlook.MoveItem(item, folder);
        return item;
    }
    // As a new start of Outlook: another program over the same machine.
    std::vector<Text> Read() {
        Program fresh(platform.Ports(), view, selectAddressView, optionsView, previewView);
        return ReadWith(fresh.addresses);
    }
    std::vector<Text> ReadWith(Addresses& addresses) {
        outlook.now += 1;
        platform.clock.now = outlook.now;
        itemsRead = 0;
        outlook.failUse = [this](TextView className, TextView member) {
            itemsRead += className == u"ContactItem" && EqualFolded(member, u"FullName");
            columnsRead += className == u"Columns" && member == u"Add";
            return failing && failing(member);
        };
        columnsRead = listsBuilt = 0;
        addresses.AddListener([this](bool listChanged) { listsBuilt += listChanged; });
        addresses.SetApplication(outlook.Application());
        addresses.Refresh();
        for (int tick = 0; platform.timers.Tick() > 0; ++tick) REQUIRE(tick < 100000);
        outlook.failUse = nullptr;
        std::vector<Text> entries;
        for (std::size_t index = 0; index < addresses.List().Size(); ++index)
            entries.push_back(addresses.List().EntryText(index));
        failed = addresses.Failed();
        addresses.Release();
        CHECK(outlook.StillReferenced().empty());
        return entries;
    }

    standin::OutlookModel outlook;
    std::shared_ptr<standin::Folder> club, board, archive;
    std::shared_ptr<standin::Item> anna, list;
    std::function<bool(TextView member)> failing;  // lets a use of Outlook fail
    int itemsRead = 0, columnsRead = 0, listsBuilt = 0;
    std::vector<Text> failed;
};

const std::vector<Text> Everybody{
    u"Anna Berger  (+491711000001)",       u"Anna Berger  (+49305000005)",
    u"Berger, Anna  (+491711000001)",      u"Berger, Anna  (+49305000005)",
    u"Carla Ost  (+491733000003)",         u"J\u00F6rg Zeman  (+491722000002)",
    u"Old Friend  (+491744000004)",        u"Ost, Carla  (+491733000003)",
    u"Skat  (+491722000002;+491733000003)"};

std::vector<Text> With(std::vector<Text> entries, std::initializer_list<Text> more) {
    entries.insert(entries.end(), more.begin(), more.end());
    std::sort(entries.begin(), entries.end(),
              [](const Text& one, const Text& other) { return LessFolded(one, other); });
    return entries;
}

const std::vector<Text> NoFailures;
constexpr int DatesOfAll = 4 * 3;  // columns: two dates and an identifier in each folder
constexpr TextView NumbersFile = u"numbers.txt";
constexpr TextView DetailsFile = u"numbers2.txt";

}  // namespace

TEST_CASE("every number in every contact folder is read, and later only what changed") {
    for (const std::int32_t version : {9, 11, 16}) {
        CAPTURE(version);
        People people(version);
        CHECK(people.Read() == Everybody);
        CHECK(people.failed == NoFailures);
        // With the files of the first time nothing is read.
        CHECK(people.Read() == Everybody);
        CHECK(people.itemsRead == 0);
        CHECK(people.columnsRead == (version == 16 ? DatesOfAll : 0));

        std::vector<Text> now = Everybody;
        const auto without = [&](TextView start) {
            std::vector<Text> entries = now;
            std::erase_if(entries, [&](const Text& entry) { return Contains(entry, start); });
            return entries;
        };
        const auto check = [&](const char* what, std::vector<Text> entries, int read) {
            CAPTURE(what);
            now = std::move(entries);
            CHECK(people.Read() == now);
            CHECK(people.itemsRead == read);
        };
        people.Add(u"New Person", u"", u"0175 6", people.club);
        check("added", With(now, {u"New Person  (01756)"}), 1);
        people.anna->SetField(u"HomeTelephoneNumber", u"");
        people.anna->SetField(u"CarTelephoneNumber", u"");
        people.outlook.SaveItem(people.anna);
        check("changed", without(u"+49305000005"), 1);
        people.outlook.DeleteItem(people.club->items->all[0]);
        now = without(u"J\u00F6rg");
        for (Text& entry : now) entry = ReplaceAll(entry, u"+491722000002;", u"");
        check("deleted", now, 0);
        people.outlook.MoveItem(people.anna, people.board);
        check("moved", now, 1);
        people.club->items->all[0]->modified = people.outlook.now + 1;
        check("changed just now", now, 1);
        check("looked at again", now, 0);
        CHECK(people.listsBuilt == 1);  // that of the files
        people.club->name = u"Verein";
        check("renamed", now, 0);
        CHECK(people.listsBuilt == 2);
    }
}

TEST_CASE("a few changes among many contacts are merged as if all had been read") {
    People people;
    standin::AddManyContacts(people.outlook, 400, 2);
    people.Read();
    const auto many = people.outlook.DefaultFolder(outlook::ContactsFolder)->folders->all[1];
    people.Add(u"J\u00F6rg Zeman", u"", u"0179 9", people.archive);
    people.outlook.DeleteItem(people.club->items->all[0]);
    people.outlook.DeleteItem(many->items->all[5]);
    many->items->all[7]->SetField(u"FullName", Text(u"Anna Berger"));
    many->items->all[7]->SetField(u"MobileTelephoneNumber", Text(u"+49 171 1000001"));
    people.outlook.SaveItem(many->items->all[7]);
    int& keys = people.platform.locale.sortKeys;
    const auto check = [&] {
        keys = 0;
        std::vector<Text> merged = people.Read();
        const int keysMerged = std::exchange(keys, 0);
        for (const TextView file : {NumbersFile, DetailsFile}) {
            people.platform.fileSystem.Delete(people.program.inifilesLite.SettingsFolder() +
                                              Text(file));
        }
        CHECK(people.Read() == merged);
        CHECK(keysMerged < keys / 4);
        return merged;
    };
    CHECK(std::ranges::count(check(), u"Skat  (01799;+491733000003)") == 1);
    people.outlook.DeleteItem(many->items->all[3]);
    check();
}

TEST_CASE("a store, folder or item that fails is left out, and what was known of it stays") {
    People people;
    CHECK(people.Read().size() == Everybody.size());
    people.outlook.stores[1]->unreachable = true;
    CHECK(people.Read() == Everybody);
    CHECK(people.failed == std::vector<Text>{u"Archive"});
    people.outlook.stores[1]->unreachable = false;
    people.board->unreachable = true;
    people.Add(u"New Person", u"", u"0175 6", people.club);
    CHECK(people.Read() == With(Everybody, {u"New Person  (01756)"}));

    // Every use of Outlook fails once: nothing is lost but that, and nothing is kept.
    for (int use = 1;; ++use) {
        People fresh(use % 2 ? 16 : 10);
        int left = use;
        fresh.program.addresses.SetApplication(fresh.outlook.Application());
        fresh.outlook.failUse = [&](TextView, TextView) { return --left == 0; };
        fresh.program.addresses.Refresh();
        fresh.program.addresses.Release();
        fresh.outlook.failUse = nullptr;
        REQUIRE(fresh.outlook.StillReferenced().empty());
        // The next start knows everybody, whatever the files of this one say.
        CAPTURE(use);
        REQUIRE(fresh.Read() == Everybody);
        if (left > 0) {
            CHECK(use > 100);
            break;
        }
    }
}

TEST_CASE("a folder that cannot be read in one way is read in the next") {
    const auto check = [](std::int32_t version, std::initializer_list<TextView> failing,
                          int after) {
        People people(version);
        for (int index = 0; index < 100; ++index)
            people.Add(u"Friend " + NumberText(index), u"", u"0170", people.club);
        const std::size_t all = Everybody.size() + 100;
        std::map<Text, int> uses;
        people.failing = [&](TextView member) {
            return std::ranges::find(failing, member) != failing.end() &&
                   ++uses[Text(member)] > after;
        };
        CHECK(people.Read().size() == all);
        CHECK(people.failed == NoFailures);
        people.club->items->all[50]->SetField(u"FullName", u"Somebody Else");
        people.outlook.SaveItem(people.club->items->all[50]);
        const std::vector<Text> changed = people.Read();
        CHECK(changed.size() == all);
        CHECK(std::ranges::count(changed, u"Somebody Else  (0170)") == 1);
    };
    for (const std::int32_t version : {12, 16}) {
        for (const int after : {0, 1, 3}) {
            CAPTURE(version);
            CAPTURE(after);
            check(version, {}, after);
            check(version, {u"GetRowCount"}, after);
            check(version, {u"GetArray"}, after);
            check(version, {u"GetArray", u"GetNextRow"}, after);
            check(version, {u"GetTable"}, after);
            check(version, {u"EndOfTable", u"SetColumns"}, after);
        }
    }
}

TEST_CASE("whoever shares contacts is found; closed, public, deleted and hidden folders are not") {
    for (const std::int32_t version : {9, 11, 12, 14, 16}) {
        CAPTURE(version);
        People people(version);
        people.outlook.OpenExplorer();
        const auto put = [&](TextView name, const std::shared_ptr<standin::Folder>& folder) {
            people.Add(name, u"", u"0179", folder);
        };
        people.outlook.AddPublicStore();
        put(u"Public", people.outlook.publicFolders->Add(u"Staff", standin::ContactItem));
        put(u"Deleted", people.outlook.deleted->Add(u"Gone", standin::ContactItem));
        std::vector<Text> expected = Everybody;
        if (version >= 12) {
            const auto closed = people.outlook.AddStore(u"Closed");
            put(u"Closed", closed->Add(u"Contacts", standin::ContactItem));
            closed->store->open = false;
            closed->store->hasPassword = true;
            const auto more = people.outlook.AddStore(u"Online Archive");
            put(u"More", more->Add(u"Contacts", standin::ContactItem));
            more->store->exchangeType = standin::StoreState::Additional;
            const auto hidden = people.club->Add(u"Recipient Cache", standin::ContactItem);
            put(u"Hidden", hidden);
            put(u"Below", hidden->Add(u"Below", standin::ContactItem));
            hidden->hidden = true;
            put(u"Ute", people.outlook.ShareFolder(u"Paula"));
            expected = With(expected, {u"Ute  (0179)"});
        }
        CHECK(people.Read() == expected);
        CHECK(people.failed == NoFailures);
        CHECK(people.outlook.passwordsAsked == 0);
        if (version < 14) continue;
        // Each store has its deleted folders.
        const auto bin =
            std::make_shared<standin::Folder>(people.outlook, u"Bin", outlook::DeletedFolder);
        bin->store = people.outlook.stores[1]->store;
        people.outlook.stores[1]->folders->all.push_back(bin);
        put(u"Binned", bin->Add(u"Gone", standin::ContactItem));
        // A store that was read stays known when it is closed.
        CHECK(people.Read() == expected);
        people.outlook.stores[1]->store->open = false;
        CHECK(people.Read() == expected);
        CHECK(!people.outlook.stores[1]->store->open);
    }
}

TEST_CASE("what changed is seen whatever the calendar, the time zone and the date of the change") {
    for (const std::int32_t version : {9, 11, 12, 16}) {
        CAPTURE(version);
        People people(version);
        people.outlook.Switch(standin::Documented::OtherCalendar, true);
        std::vector<Text> now = Everybody;
        for (const TextView name : {u"Ua", u"Ub", u"Uc"}) {
            people.Add(name, u"", u"1", people.archive);
            now = With(now, {Text(name) + u"  (1)"});
        }
        CHECK(people.Read() == now);
        const auto check = [&](const char* what, const std::vector<Text>& entries, int read) {
            CAPTURE(what);
            CHECK(people.Read() == entries);
            CHECK(people.itemsRead == read);
        };
        check("nothing", now, 0);
        const auto rename = [&](TextView from, TextView to) {
            const auto& items = people.archive->items->all;
            items[0]->SetField(u"FullName", to);
            for (Text& entry : now) entry = ReplaceAll(entry, from, to);
            people.outlook.SaveItem(items[0]);
        };
        rename(u"Old Friend", u"Older Friend");
        check("a change", now, 1);
        // A change made on a telephone before the newest one arrives behind it.
        const auto newest = people.Add(u"Xaver", u"", u"0178", people.archive);
        now = With(now, {u"Xaver  (0178)"});
        check("added", now, 1);
        rename(u"Older Friend", u"Oldest Friend");
        people.archive->items->all[0]->modified = newest->modified - 0.5;
        check("a late change", now, 1);
        // Each date moves by as much as its own season has it.
        people.outlook.timeZone = 5.0 / 24;
        check("another time zone", now, 0);
        people.outlook.timeZone = -3.5 / 24;
        rename(u"Oldest Friend", u"Ol Friend");
        check("and a change", now, 1);
        check("and nothing", now, 0);
    }
}

TEST_CASE("a store that makes Outlook wait is put off, and named when it still does") {
    for (const std::int32_t version : {9, 12}) {
        CAPTURE(version);
        People people(version);
        auto& store = *people.outlook.stores[1]->store;
        store.milliseconds = 30;
        CHECK(people.Read() == Everybody);
        CHECK(people.failed == NoFailures);
        people.archive->items->all[0]->SetField(u"FullName", u"Ol Friend");
        people.outlook.SaveItem(people.archive->items->all[0]);
        people.Add(u"Xaver", u"", u"0178", people.club);
        store.milliseconds = 600;
        const double before = people.platform.clock.milliseconds;
        CHECK(people.Read() == With(Everybody, {u"Xaver  (0178)"}));
        CHECK(people.failed == std::vector<Text>{u"Archive"});
        CHECK(people.platform.clock.milliseconds - before <= 2 * 600);
        // Once may be chance.
        std::vector<Text> changed = With(Everybody, {u"Xaver  (0178)"});
        for (Text& entry : changed) entry = ReplaceAll(entry, u"Old Friend", u"Ol Friend");
        int calls = 0;
        people.outlook.pass = [&](double) {
            if (++calls == 3) people.platform.clock.milliseconds += 600;
        };
        CHECK(people.Read() == changed);
        CHECK(people.failed == NoFailures);
    }
}

TEST_CASE(
    "hundreds of folders are never open at once, and one that cannot be counted is no empty one") {
    for (const std::int32_t version : {9, 16}) {
        CAPTURE(version);
        People people(version);
        for (int index = 0; index < 600; ++index)
            people.Add(u"Friend", u"", u"0170",
                       people.club->Add(NumberText(index), standin::ContactItem));
        const std::size_t all = Everybody.size() + 600;
        CHECK(people.Read().size() == all);
        CHECK(!people.outlook.sessionEnded);
        people.club->countFails = true;
        CHECK(people.Read().size() == all);
        CHECK(people.failed == std::vector<Text>{u"Personal Folders\\Contacts\\Club"});
        people.club->countFails = false;
        people.outlook.DeleteItem(people.club->items->all[0]);
        CHECK(people.Read().size() == all - 1);
    }
}

TEST_CASE("nothing that Outlook asks the user about is touched where it would ask") {
    for (const std::int32_t version : {9, 10, 11, 16}) {
        CAPTURE(version);
        People people(version);
        people.platform.automation.factories.clear();
        bool guarded = false;
        people.failing = [&](TextView member) {
            guarded = guarded || member == u"GetMember";
            return false;
        };
        CHECK(people.Read().size() == Everybody.size() - (version < 11));
        CHECK(people.failed == NoFailures);
        CHECK(guarded == (version >= 11));
        CHECK(people.outlook.questions == 0);
    }
}

TEST_CASE("the files keep every name, and damaged ones are thrown away") {
    People people;
    people.Add(u"Back\\slash \\x0041", u"", u"1", nullptr);
    people.Add(u"\u4E2D\u6587 \u041F\u0440", u"Line\r\nbreak\tTab", u"2", nullptr);
    people.Add(u"\xD800 lone (  (", u"", u"3", nullptr);
    people.Add(u"", u"", u"4", nullptr);
    people.anna->SetField(u"CompanyName", u"\u0160koda \u20AC");
    const std::vector<Text> all = people.Read();
    CHECK(std::find(all.begin(), all.end(), u"Line  break Tab  (2)") != all.end());
    auto& files = people.platform.fileSystem.files;
    const Text folder = people.program.inifilesLite.SettingsFolder();
    const auto before = files;
    for (const TextView name : {NumbersFile, DetailsFile}) {
        const Text path = folder + Text(name);
        REQUIRE(files.contains(path));
        const std::size_t size = files[path].contents.size();
        constexpr std::size_t head = 80;  // of the details, about
        for (std::size_t at = 0; at <= size; at += at < head ? 1 : 1 + size / 40) {
            for (const bool cut : {false, true}) {
                CAPTURE(at);
                files = before;
                std::string& contents = files[path].contents;
                if (cut) contents.resize(at);
                if (!cut && at < size) contents[at] ^= 1;
                CHECK(people.Read() == all);
                CHECK((people.columnsRead > DatesOfAll) == (at < size));
            }
        }
    }
    SUBCASE("no folder to write to is no reason to know nobody") {
        files = before;
        files.erase(folder + Text(NumbersFile));
        people.platform.fileSystem.failWrites = true;
        CHECK(people.Read() == all);
        CHECK(!files.contains(folder + Text(NumbersFile)));
    }
    SUBCASE("whoever wants no files has none") {
        people.SetSetting(u"SMS", u"NumberCache", u"0");
        people.program.addresses.ApplySettings();
        for (const TextView name : {NumbersFile, DetailsFile})
            CHECK(!files.contains(folder + Text(name)));
        CHECK(people.ReadWith(people.program.addresses) == all);
        CHECK(!files.contains(folder + Text(NumbersFile)));
    }
}

TEST_CASE("reading is done in slices, and ends at the next one when the form goes") {
    People people;
    standin::AddManyContacts(people.outlook, 15000, 3);
    people.platform.clock.step = 0.2;  // every look at the clock
    Addresses& addresses = people.program.addresses;
    addresses.SetApplication(people.outlook.Application());
    people.program.formSmsSend.Open({});
    CHECK(people.platform.timers.Tick() == 0);  // nothing is read before it is needed
    people.view.TextTo().SetText(u"anna b");
    CHECK(addresses.Reading());
    int ticks = 0;
    Text folders;
    while (ticks < 100 && !Contains(folders, u"Kontakte 1")) {
        REQUIRE(people.platform.timers.Tick() != 0);
        folders += people.view.StatusBar1().GetText();
        ++ticks;
    }
    CHECK(addresses.Reading());
    CHECK(Contains(folders, u"Kontakte 1"));
    SUBCASE("to its end") {
        // With something waiting, one slice a tick; otherwise some, but nobody waits for a tick.
        for (const bool waiting : {true, false}) {
            people.platform.messageLoop.waiting = waiting;
            double longest = 0;
            for (ticks = 0; ticks < (waiting ? 3 : 2000); ++ticks) {
                const double before = people.platform.clock.milliseconds;
                if (people.platform.timers.Tick() == 0) break;
                longest = std::max(longest, people.platform.clock.milliseconds - before);
            }
            CAPTURE(longest);
            CHECK(addresses.Reading() == waiting);
            CHECK(longest < (waiting ? 9 : 16));
            CHECK(longest > (waiting ? 3 : 8));
        }
        CHECK(people.view.ListBoxNumbers().Visible());
        CHECK(Contains(people.view.StatusBar1().GetText(),
                       NumberText(std::int64_t(people.view.ListBoxNumbers().items.size()))));
        // Of many matches the rows that come near are filled, down to the last.
        const auto& rows = people.view.ListBoxNumbers().items;
        std::int32_t all = 0;
        for (char16_t letter = u'a'; all <= 200; ++letter) {
            REQUIRE(letter <= u'z');
            people.view.TextTo().SetText(Text(1, letter));
            all = LeadingNumber32(people.view.StatusBar1().GetText());
        }
        CHECK(rows.size() == 200);
        while (std::int32_t(rows.size()) < all) {
            const std::size_t before = rows.size();
            people.program.recipientField.ListBoxNumbers_Scroll(std::int32_t(before) - 1);
            REQUIRE(rows.size() > before);
        }
        CHECK(std::set<Text>(rows.begin(), rows.end()).size() == std::size_t(all));
    }
    SUBCASE("or not") {
        people.program.formSmsSend.Unload();
        CHECK(!addresses.Reading());
        CHECK(people.platform.timers.Tick() == 0);
        for (const auto& [path, file] : people.platform.fileSystem.files)
            CHECK(!Contains(path, u"numbers"));
    }
    addresses.Release();
    CHECK(people.outlook.StillReferenced().empty());
}

TEST_CASE("a slice that fails ends the reading, one that ends it lets it begin anew") {
    People people;
    Addresses& addresses = people.program.addresses;
    addresses.SetApplication(people.outlook.Application());
    int uses = 0;
    std::function<void()> within;
    people.outlook.failUse = [&](TextView, TextView) {
        if (++uses == 20) within();
        return false;
    };
    SUBCASE("fails") {
        within = [] { throw std::bad_alloc(); };
        people.platform.clock.step = 5;
        addresses.Refresh();
        const auto ticks = [&] {
            for (int tick = 0; tick < 50; ++tick) people.platform.timers.Tick();
        };
        CHECK_THROWS_AS(ticks(), std::bad_alloc);
        CHECK_FALSE(addresses.Reading());
        CHECK(people.platform.timers.Tick() == 0);
        addresses.Refresh();
    }
    SUBCASE("is ended, and wanted again") {
        within = [&] {
            addresses.Stop();
            addresses.Refresh();
        };
        addresses.Refresh();
    }
    for (int tick = 0; people.platform.timers.Tick() > 0; ++tick) REQUIRE(tick < 1000);
    CHECK(uses >= 20);
    CHECK(addresses.List().Size() == Everybody.size());
    addresses.Release();
}

TEST_CASE("the address list finds what a plain search finds, recent numbers first, each once") {
    MemoryPlatform platform;
    AddressListBuilder builder(platform.locale), more(platform.locale);
    bool merging = false;
    SUBCASE("made at once") {}
    SUBCASE("made of a large one and a small one") {
        merging = true;
    }
    const auto name = [](int index) {
        return (index % 3 == 0   ? u"N"
                : index % 3 == 1 ? u"\u00C4na "
                                 : u"") +
               (u"Name" + NumberText(index * 7919 % 400)) + (index % 5 ? u" x" : u" (y)a");
    };
    for (int index = 0; index < 400; ++index) {
        if (merging && index % 50 == 20)
            builder.Add({u"Jo Q gone", {}, {}, u"112", NumberKind::Home, 0, 401});
        const bool joins = merging && index % 50 > 45;
        (joins ? more : builder)
            .Add({name(index),
                  index % 2 ? u"x, " + name(index) : Text(),
                  {},
                  u"+49" + NumberText(1000000 + index % 300),
                  NumberKind::Home,
                  0,
                  std::uint32_t(index)});
    }
    for (const TextView known : {u"q", u"Jo", u"Jo Q", u"(Haus)", u""})
        (merging ? more : builder).Add({known, {}, {}, u"110", NumberKind::Home, 0, 400});
    while (builder.DoSome(37) || more.DoSome(37)) {
    }
    std::vector<std::uint32_t> itemNumbers(402);
    std::iota(itemNumbers.begin(), itemNumbers.end() - 1, 1);
    const std::vector<KeptItem> items(401);
    AddressListMerger merger(platform.locale, builder.List(), more.List(), itemNumbers, items);
    while (merging && merger.DoSome(37)) {
    }
    AddressList list = merging ? merger.Take() : builder.Take();
    REQUIRE(list.Size() == 605);
    list.SetRecent({u"01000007", u"+491000011", u"110"});
    const auto rank = [&](std::size_t entry, TextView search) {
        const Text text = LowerCase(list.EntryText(entry));
        const TextView number = list.Row(list.EntryAt(entry).row).number;
        return number == u"+491000007" || number == u"+491000011" ? 0
               : StartsWith(text, search)                         ? 1
                                                                  : 2;
    };
    const auto personAndNumber = [&](std::uint32_t entry) {
        const AddressRow row = list.Row(list.EntryAt(entry).row);
        return Text(row.name).append(row.number);
    };
    for (const TextView search :
         {u"n", u"x", u"na", u"name1", u"x,", u"\u00E4na", u"(y)a", u"\u00E4na name10 x",
          u"+491000011)", u"(+4", u"zz", u"nname399 x  (+491000099)", u"a", u"name7  (+49"}) {
        CAPTURE(search);
        std::vector<std::uint32_t> expected;
        std::set<Text> numbers;
        for (const int wanted : {0, 1, 2}) {
            for (std::uint32_t entry = 0; entry < list.Size(); ++entry) {
                const Text text = LowerCase(list.EntryText(entry));
                if (!StartsWith(text, search) && !Contains(text, Text(search) + u" ") &&
                    !Contains(text, Text(search) + u"("))
                    continue;
                if (rank(entry, search) == wanted &&
                    numbers.insert(LowerCase(personAndNumber(entry))).second)
                    expected.push_back(entry);
            }
        }
        CHECK(list.Matches(search) == expected);
    }
    for (std::size_t entry = 1; entry < list.Size(); ++entry)
        CHECK(!LessFolded(list.EntryName(entry), list.EntryName(entry - 1)));

    // Whom a text names first, by a plain search: where, and how long; the first of equal ones.
    const auto plainlyNamed = [&](TextView text) {
        std::optional<std::size_t> named;
        std::size_t first = text.size(), longest = 0;
        for (std::size_t index = 0; index < list.Size(); ++index) {
            const AddressRow row = list.Row(list.EntryAt(index).row);
            const Text wanted = LowerCase(row.name);
            if (list.EntryAt(index).byFileAs || wanted.empty()) continue;
            for (std::size_t at = 0; (at = text.find(wanted, at)) != Text::npos; ++at) {
                const std::size_t end = at + wanted.size();
                if ((at > 0 && IsWordUnit(text[at - 1])) ||
                    (end < text.size() && IsWordUnit(text[end])))
                    continue;
                if (at < first || (at == first && wanted.size() > longest)) {
                    first = at;
                    longest = wanted.size();
                    named = list.EntryAt(index).row;
                }
                break;
            }
        }
        return named;
    };
    const TextView pieces[] = {u"q",     u"jo",       u"jo q", u"(haus)", u"nname399 x",       u"x",
                               u"name7", u"\u00E4na", u"(y)a", u"nname3", u"\u00E4na name70 x"};
    std::uint32_t chance = 1;
    for (int round = 0; round < 400; ++round) {
        Text text;
        for (int piece = 0; piece < 3 + round % 5; ++piece) {
            chance = chance * 1664525 + 1013904223;
            text.append(pieces[(chance >> 16) % std::size(pieces)]);
            if ((chance >> 28) != 0) text += u" ,.-("[(chance >> 8) % 5];
        }
        CAPTURE(std::string(text.begin(), text.end()));
        CHECK(list.RowNamedFirstIn(text) == plainlyNamed(text));
    }
}

TEST_CASE("typing shows the matches, and the one chosen takes the place of what was typed") {
    People people;
    people.program.addresses.SetApplication(people.outlook.Application());
    people.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49");
    people.program.formSmsSend.Open({});
    RecipientField& field = people.program.recipientField;
    auto& to = people.view.TextTo();
    auto& matches = people.view.ListBoxNumbers();
    FormSmsSendRouter& router = people.program.formSmsSendRouter;
    const auto enter = [&](std::int32_t modifiers) {
        return router.Form_KeyDown(key::Enter, modifiers);
    };
    to.SetText(u"o");
    REQUIRE(matches.items ==
            std::vector<Text>{u"Old Friend  (+491744000004)", u"Ost, Carla  (+491733000003)"});
    // The row that the arrow keys chose stays chosen while it matches.
    to.SetFocus();
    CHECK(router.Form_KeyDown(key::Down, 0));
    CHECK(router.Form_KeyDown(key::Down, 0));
    to.SetText(u"os");
    CHECK(matches.selected == 0);
    to.SetText(u"ol");
    CHECK(matches.selected == -1);
    // Without a choice Enter leaves what was typed.
    CHECK(enter(key::Control));
    CHECK(to.GetText() == u"ol");
    CHECK(people.view.Loaded());
    // What stands before the last separator is kept.
    for (const TextView none : {u"", u"ol;"}) {
        to.SetText(none);
        CHECK_FALSE(matches.Visible());
    }
    to.SetText(u"0171; oST");
    CHECK(field.TextTo_KeyDown(key::Down, 0));
    CHECK(enter(0));
    CHECK(to.GetText() == u"0171; 01733000003");
    CHECK_FALSE(matches.Visible());
    CHECK(people.view.Message().HasFocus());
    // A list stands for all its members.
    to.SetText(u"0171,  skat");
    CHECK(matches.Visible());
    field.TextTo_KeyDown(key::Down, 0);
    field.TakeMatch();
    CHECK(to.GetText() == u"0171,  01722000002;01733000003");
    // A click into the match list is no leaving of the field; a choice goes on behind the number.
    to.SetText(u"os");
    matches.SetFocus();
    router.TextTo_LostFocus();
    REQUIRE(matches.Visible());
    matches.SetSelectedIndex(0);
    router.ListBoxNumbers_Click();
    CHECK(to.HasFocus());
    CHECK(to.SelectionStart() == std::int32_t(to.GetText().size()));
    // The list goes when the focus goes elsewhere than to and fro between the two.
    using Leave = void (FormSmsSendRouter::*)();
    for (const Leave left :
         {&FormSmsSendRouter::TextTo_LostFocus, &FormSmsSendRouter::ListBoxNumbers_LostFocus}) {
        to.SetFocus();
        to.SetText(u"os");
        router.ListBoxNumbers_LostFocus();
        CHECK(matches.Visible());
        people.view.Message().SetFocus();
        (router.*left)();
        CHECK_FALSE(matches.Visible());
        to.SetText({});
    }
    // Enter goes on to the text, but not from an open drop-down, which it closes.
    to.SetFocus();
    to.dropped = true;
    CHECK_FALSE(enter(0));
    to.dropped = false;
    CHECK_FALSE(enter(key::Shift));
    CHECK(to.HasFocus());
    CHECK(enter(0));
    CHECK(people.view.Message().HasFocus());
    // A key is the text's only while the text has the focus.
    CHECK(router.Form_KeyDown(key::Left, key::Control));
    to.SetFocus();
    CHECK_FALSE(router.Form_KeyDown(key::Left, key::Control));
    people.program.addresses.Release();
    CHECK(people.outlook.StillReferenced().empty());
}

TEST_CASE("the selection's search: words from their start, digits anywhere, accents as typed") {
    const AddressRow row{u"Ren\u00E9 M\u00FCller-L\u00FCdenscheid",
                         u"",
                         u"\u0160koda Werk 3",
                         u"+491712345",
                         NumberKind::Mobile,
                         0,
                         0};
    struct Case {
        TextView search, marked;  // the name, then the number; empty: no match
    };
    for (const Case& c :
         {Case{u"re mu", u"[Re]n\u00E9 [M\u00FC]ller-L\u00FCdenscheid +491712345"},
          Case{u"rene", u"[Ren\u00E9] M\u00FCller-L\u00FCdenscheid +491712345"},
          Case{u"LUD", u"Ren\u00E9 M\u00FCller-[L\u00FCd]enscheid +491712345"},
          Case{u"ren\u00E9", u"[Ren\u00E9] M\u00FCller-L\u00FCdenscheid +491712345"},
          Case{u"ren\u00E8", u""}, Case{u"eller", u""}, Case{u"ene", u""},
          Case{u"skod club", u"Ren\u00E9 M\u00FCller-L\u00FCdenscheid +491712345"},
          Case{u"171 23", u"Ren\u00E9 M\u00FCller-L\u00FCdenscheid +49[17123]45"},
          Case{u"0171/2", u"Ren\u00E9 M\u00FCller-L\u00FCdenscheid +49[1712]345"},
          Case{u"mu +49 171", u"Ren\u00E9 [M\u00FC]ller-L\u00FCdenscheid +[49171]2345"},
          Case{u"172", u""}, Case{u" ", u"Ren\u00E9 M\u00FCller-L\u00FCdenscheid +491712345"}}) {
        CAPTURE(c.search);
        const AddressSearch search(c.search, {u"Contacts\\Club"});
        CHECK(search.Matches(row) == !c.marked.empty());
        if (c.marked.empty()) continue;
        MemoryListView cells;
        cells.SetSource([&](std::size_t, std::size_t column) {
            return column == 0 ? search.MarkWords(row.name) : search.MarkNumber(row.number);
        });
        CHECK(cells.Cell(0, 0) + u" " + cells.Cell(0, 1) == c.marked);
    }
}

TEST_CASE("the selection window sorts, filters, adds several, removes, and writes back in order") {
    People people;
    people.program.addresses.SetApplication(people.outlook.Application());
    people.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+49");
    people.SetSetting(u"Positions", u"SMSSelectColumn2", u"77");
    people.program.formSmsSend.Open({});
    people.view.TextTo().SetText(u"0171 1, 0999; oS");
    people.program.formSmsSend.ButtonTo_Click();
    auto& window = people.selectAddressView;
    auto& form = people.program.formSmsSelectAddress;
    const auto names = [&] {
        Text all;
        for (std::size_t row = 0; row < window.ListAddresses().rows; ++row)
            all.append(window.ListAddresses().Cell(row, 0).substr(0, 1));
        return all;
    };
    CHECK(window.ListChosen().items == std::vector<Text>{u"0171 1", u"0999"});
    CHECK(window.ListAddresses().widths[1] == 77);
    CHECK(names() == u"C");  // what was typed last is no number
    CHECK(window.ListAddresses().Cell(0, 3) == u"Board (Personal Folders\\Contacts\\Club)");
    CHECK(window.TextSearch().SelectionLength() == 2);  // typing on replaces it
    window.TextSearch().SetText({});
    CHECK(names() == u"AACJOS");
    form.ListAddresses_ColumnClick(FormSmsSelectAddress::Number);
    CHECK(names() == u"AJSCOA");
    form.ListAddresses_ColumnClick(FormSmsSelectAddress::Number);
    CHECK(names() == u"AOCSJA");
    form.ListAddresses_ColumnClick(FormSmsSelectAddress::Name);
    window.BoxFolder().SetSelectedIndex(2);
    form.BoxFolder_Click();
    CHECK(names() == u"J");
    form.ButtonAdd_Click();  // the only one
    window.BoxFolder().SetSelectedIndex(0);
    form.BoxFolder_Click();
    window.ListAddresses().chosen = {0, 1, 3, 5};
    form.ButtonAdd_Click();
    CHECK(window.ListChosen().items ==
          std::vector<Text>{u"0171 1", u"0999", u"J\u00F6rg Zeman  (01722000002)",
                            u"Anna Berger  (01711000001)", u"Anna Berger  (0305000005)",
                            u"Carla Ost  (01733000003)"});
    window.ListChosen().SetSelectedIndex(1);
    form.ButtonRemove_Click();
    window.TextSearch().SetText(u"oS");
    CHECK(window.ListAddresses().Cell(0, 0) == u"Carla [Os]t");
    window.ListAddresses().SetColumnWidth(1, 99);
    form.ButtonOK_Click();
    CHECK(!window.Loaded());
    CHECK(people.view.TextTo().GetText() ==
          u"0171 1;01722000002;01711000001;0305000005;01733000003");
    CHECK(people.Setting(u"Positions", u"SMSSelectColumn2") == u"99");
    people.program.addresses.Release();
}

TEST_CASE("the selection window looks for rows in slices, and what is chosen stays chosen") {
    People people;
    standin::AddManyContacts(people.outlook, 3000, 3);
    Addresses& addresses = people.program.addresses;
    addresses.SetApplication(people.outlook.Application());
    people.program.formSmsSend.Open({});
    people.program.formSmsSend.ButtonTo_Click();
    while (people.platform.timers.Tick() != 0) {
    }
    auto& window = people.selectAddressView;
    auto& form = people.program.formSmsSelectAddress;
    MemoryListView& list = window.ListAddresses();
    const auto column = [&](std::size_t which) {
        std::vector<Text> texts;
        for (std::size_t row = 0; row < list.rows; ++row) texts.push_back(list.Cell(row, which));
        return texts;
    };
    const std::vector<Text> all = column(FormSmsSelectAddress::Number);
    for (const auto order : {FormSmsSelectAddress::Number, FormSmsSelectAddress::Folder}) {
        form.ListAddresses_ColumnClick(order);
        CHECK(std::ranges::is_sorted(column(order)));
        CHECK(std::ranges::is_permutation(column(FormSmsSelectAddress::Number), all));
    }
    form.ListAddresses_ColumnClick(FormSmsSelectAddress::Name);
    people.platform.clock.step = 2;  // every look at the clock
    window.TextSearch().SetText(u"b");
    const std::size_t first = list.rows;
    REQUIRE(first > 0);
    list.ChooseRow(0);
    people.platform.timers.Tick();
    CHECK(list.rows > first);
    CHECK(list.chosen == std::vector<std::size_t>{0});
    for (const bool changed : {false, true}) {
        CAPTURE(changed);
        if (changed) {
            window.TextSearch().SetText(u"b");
            people.outlook.now += 1;
            people.Add(u"Zz Berta", u"", u"0179 99", people.club);
            addresses.NeededAnew();
            addresses.RefreshOnce();
        }
        while (people.platform.timers.Tick() != 0) {
        }
        const std::size_t found = list.rows;
        CHECK((list.Cell(found - 1, 0) == u"Zz [B]erta") == changed);
        people.platform.clock.step = 0;
        window.TextSearch().SetText(u"b");
        CHECK(list.rows == found);
        people.platform.clock.step = 2;
    }
    // Where one alone is left is known when all were looked at.
    window.TextSearch().SetText(u"zz");
    CHECK(list.rows == 0);
    form.ButtonAdd_Click();
    CHECK(window.ListChosen().items.size() == 1);
    addresses.Release();
}
