// The address list: kept in files, read in slices, and found in while the user types.
#include <doctest.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <numeric>
#include <set>

#include "model/ManyContacts.h"
#include "platform/People.h"
#include "recipients/AddressListMerger.h"
#include "recipients/NumberInText.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

constexpr int DatesOfAll = 4 * 3;  // columns: two dates and an identifier in each folder
constexpr TextView NumbersFile = u"numbers.txt";
constexpr TextView DetailsFile = u"numbers2.txt";

}  // namespace

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
    // A key gives it a pause.
    people.view.TextTo().SetText(u"anna be");
    std::int32_t progress = addresses.Progress();
    for (const double passed : {20, 10, 15}) {
        people.platform.clock.milliseconds += passed;
        people.platform.timers.RunDue();
        CHECK((addresses.Progress() > progress) == (passed < 20));
        progress = addresses.Progress();
    }
    people.view.TextTo().SetText(u"anna b");
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
        // Of many matches the rows that come near are filled, down to the last.
        const auto& rows = people.view.ListBoxNumbers().items;
        const std::int32_t all = LeadingNumber32(people.view.StatusBar1().GetText());
        CHECK(all > 40);
        CHECK(rows.size() == 40);
        while (std::int32_t(rows.size()) < all) {
            const std::size_t before = rows.size();
            people.program.recipientField.ListBoxNumbers_Scroll(std::int32_t(before) - 1);
            REQUIRE(rows.size() > before);
        }
        CHECK(std::set<Text>(rows.begin(), rows.end()).size() == std::size_t(all));
        // They stay when nothing new is read, which begins behind the key that asks for it.
        int uses = 0;
        people.outlook.failUse = [&](TextView, TextView) {
            ++uses;
            return false;
        };
        addresses.Refresh();
        CHECK(uses == 0);
        for (ticks = 0; addresses.Reading(); ++ticks) REQUIRE(people.platform.timers.Tick() != 0);
        CHECK(uses > 0);
        CHECK(std::int32_t(rows.size()) == all);
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

TEST_CASE("to find whom a text names costs what the text costs, not so much for every contact") {
    MemoryPlatform platform;
    Text text;
    while (text.size() < 0x10000) text += u"w" + NumberText(text.size()) + u" ";
    double taken[2] = {};
    for (const bool many : {false, true}) {
        AddressListBuilder builder(platform.locale);
        for (int index = 0; index < (many ? 10000 : 100); ++index) {
            const Text name = u"Vorname" + NumberText(index) + u" Nachname";
            builder.Add({name, {}, {}, NumberText(index), NumberKind::Home, 0, 0});
        }
        while (builder.DoSome(1000)) {
        }
        const AddressList list = builder.Take();
        const std::clock_t before = std::clock();
        for (int time = 0; time < 5; ++time) CHECK_FALSE(list.RowNamedFirstIn(text));
        taken[many] = double(std::clock() - before);
    }
    CHECK(taken[true] < 20 * taken[false]);
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
    // Under a message of the submission no list opens again, whoever is read meanwhile.
    to.SetText(u"os");
    people.Add(u"Osman", u"", u"0175", nullptr);
    people.program.addresses.Refresh();
    people.platform.dialogs.onShow = [&] {
        while (people.platform.timers.Tick() != 0) CHECK_FALSE(matches.Visible());
    };
    people.program.submission.ButtonSend_Click();
    CHECK(people.program.addresses.List().Matches(u"osm").size() == 1);
    CHECK_FALSE(matches.Visible());
    people.program.addresses.Release();
    CHECK(people.outlook.StillReferenced().empty());
}
