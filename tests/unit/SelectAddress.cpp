// The window in which recipients are selected.
#include <doctest.h>

#include <algorithm>

#include "model/ManyContacts.h"
#include "platform/People.h"

using namespace tellwick;
using namespace tellwick::test;

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
        const auto cell = [&](std::size_t, std::size_t column) {
            return column == 0 ? search.MarkWords(row.name) : search.MarkNumber(row.number);
        };
        cells.SetSource(cell, {});
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

TEST_CASE(
    "a number is taken over whole, and what a cancelled selection rewrote is no hint's matter") {
    People people;
    people.Add(u"Quax", u"", u"+49 171 2345678 p 12", nullptr);
    people.program.addresses.SetApplication(people.outlook.Application());
    people.program.formSmsSend.Open({});
    for (const bool cancelled : {true, false}) {
        people.program.formSmsSend.ButtonTo_Click();
        people.selectAddressView.TextSearch().SetText(u"Quax");
        people.program.formSmsSelectAddress.ButtonAdd_Click();
        if (cancelled) people.program.formSmsSelectAddress.Unload();
        if (!cancelled) people.program.formSmsSelectAddress.ButtonOK_Click();
        people.program.recipientField.ShowPrefixHint();
        CHECK(people.program.recipientField.PrefixHintShown() != cancelled);
        CHECK(people.view.TextTo().GetText() == (cancelled ? u"" : u"0491712345678p12"));
    }
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
    // Within a folder, by name.
    window.BoxFolder().ChooseItem(u"Personal Folders\\Contacts\\Kontakte 1");
    form.BoxFolder_Click();
    const std::vector<Text> inFolder = column(FormSmsSelectAddress::Number);
    form.ListAddresses_ColumnClick(FormSmsSelectAddress::Name);
    CHECK(inFolder.size() > 500);
    CHECK(column(FormSmsSelectAddress::Number) == inFolder);
    window.BoxFolder().SetSelectedIndex(0);
    form.BoxFolder_Click();
    people.platform.clock.step = 2;  // every look at the clock
    window.TextSearch().SetText(u"b");
    const std::size_t first = list.rows;
    REQUIRE(first > 0);
    list.ChooseRow(0);
    // The list itself grows only now and then.
    people.platform.timers.Tick();
    CHECK(list.rows == first);
    people.platform.clock.milliseconds += 100;
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
    CHECK(window.ListChosen().items.empty());
    form.ButtonOK_Click();  // waits for what was asked for
    CHECK(people.view.TextTo().GetText() == u"017999");
    // Many rows at once, and only so many.
    people.platform.clock.step = 0;
    people.program.formSmsSend.ButtonTo_Click();
    window.TextSearch().SetText({});
    CHECK(list.finder(1, u"ZZ B") == list.rows - 1);
    CHECK(list.finder(0, u"Berta") == std::nullopt);
    for (std::size_t row = 0; row < list.rows; ++row) list.chosen.push_back(row);
    form.ButtonAdd_Click();
    CHECK(window.ListChosen().items.size() == 1001);
    CHECK(window.StatusBar1().GetText().find(u" 1000 ") != Text::npos);
    addresses.Release();
}
