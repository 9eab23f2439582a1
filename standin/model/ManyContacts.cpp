#include "model/ManyContacts.h"

#include <array>
#include <random>

#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

constexpr std::array<TextView, 20> FirstNames{
    u"Anna",       u"J\u00F6rg",  u"Paul",     u"Magdalena",       u"Sven",
    u"Ev\u017Een", u"Hans-Peter", u"Ulrike",   u"Tom\u00E1\u0161", u"Ren\u00E9",
    u"Beate",      u"Ingrid",     u"Wolfgang", u"Yvonne",          u"Dirk",
    u"Zdenka",     u"Franziska",  u"Oskar",    u"Carla",           u"Lena"};
constexpr std::array<TextView, 12> Beginnings{u"Berg",   u"Stein", u"M\u00FCll", u"Hof",
                                              u"Kirch",  u"Wald",  u"Nov",       u"Lind",
                                              u"Gruber", u"Schm",  u"Pfeif",     u"Zeman"};
constexpr std::array<TextView, 10> Endings{u"er",   u"mann", u"bach", u"\u00E1k", u"ner",
                                           u"feld", u"hof",  u"ke",   u"inger",   u"otny"};
constexpr std::array<TextView, 6> Companies{u"Omberline",          u"Stadtwerke Halle",
                                            u"Elbtal Spedition",   u"",
                                            u"B\u00E4ckerei Lind", u"Hotel Post"};

}  // namespace

void AddManyContacts(OutlookModel& outlook, std::int32_t count, std::int32_t folders) {
    std::minstd_rand random(48);
    const auto below = [&](std::size_t bound) { return std::size_t(random()) % bound; };
    const auto number = [&](TextView prefix) {
        return Text(prefix) + NumberText(std::int64_t(1000000 + below(9000000)));
    };
    constexpr double Minute = 1.0 / 1440;
    double date = 40000;
    const auto& contacts = outlook.DefaultFolder(outlook::ContactsFolder);
    for (std::int32_t index = 0; index < folders; ++index) {
        const auto folder = contacts->Add(u"Kontakte " + NumberText(index + 1), ContactItem);
        const std::int32_t share = count / folders + (index < count % folders ? 1 : 0);
        for (std::int32_t contact = 0; contact < share; ++contact) {
            const Text first(FirstNames[below(FirstNames.size())]);
            const Text last =
                Text(Beginnings[below(Beginnings.size())]).append(Endings[below(Endings.size())]);
            auto item = std::make_shared<Item>(outlook, outlook::ContactClass);
            item->folder = folder;
            item->SetField(u"FullName", first + u" " + last);
            item->SetField(u"FileAs", last + u", " + first);
            item->SetField(u"CompanyName", Companies[below(Companies.size())]);
            item->SetField(u"MobileTelephoneNumber", number(u"0171 "));
            if (below(10) == 0) item->SetField(u"HomeTelephoneNumber", number(u"+49 (30) "));
            if (below(20) == 0) item->SetField(u"BusinessTelephoneNumber", number(u"089 / "));
            outlook.SaveItem(item);
            item->created = item->modified = date += Minute;
            folder->items->all.push_back(std::move(item));
        }
    }
}

}  // namespace tellwick::standin
