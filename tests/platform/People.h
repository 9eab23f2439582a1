// Contacts in several stores and folders, and the program that reads them.
#pragma once

#include <doctest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"
#include "platform/TestProgram.h"
#include "recipients/Addresses.h"

namespace tellwick::test {

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
        Program fresh(platform.Ports(), view, selectAddressView, optionsView, previewView,
                      supportView);
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

inline const std::vector<Text> Everybody{
    u"Anna Berger  (+491711000001)",       u"Anna Berger  (+49305000005)",
    u"Berger, Anna  (+491711000001)",      u"Berger, Anna  (+49305000005)",
    u"Carla Ost  (+491733000003)",         u"J\u00F6rg Zeman  (+491722000002)",
    u"Old Friend  (+491744000004)",        u"Ost, Carla  (+491733000003)",
    u"Skat  (+491722000002;+491733000003)"};

inline std::vector<Text> With(std::vector<Text> entries, std::initializer_list<Text> more) {
    entries.insert(entries.end(), more.begin(), more.end());
    std::sort(entries.begin(), entries.end(),
              [](const Text& one, const Text& other) { return LessFolded(one, other); });
    return entries;
}

}  // namespace tellwick::test
