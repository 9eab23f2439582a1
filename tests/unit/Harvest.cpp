// Reading Outlook's contacts: all of them once, later what changed.
#include <doctest.h>

#include <algorithm>
#include <map>
#include <utility>

#include "model/ManyContacts.h"
#include "platform/People.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

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
