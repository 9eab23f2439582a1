#include "model/Application.h"

#include "model/OutlookModel.h"
#include "model/Stores.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

TextView VersionText(std::int32_t version) {
    switch (version) {
        case 9:
            return u"9.0.0.2711";
        case 10:
            return u"10.0.0.2627";
        case 11:
            return u"11.0.0.5510";
        case 12:
            return u"12.0.0.4518";
        case 14:
            return u"14.0.0.4760";
        default:
            return u"16.0.0.5134";
    }
}

}  // namespace

const MemberTable& NameSpace::Table() const {
    static const MemberTable table =
        OutlookMembers<NameSpace>(1)
            .Property(u"Parent", [](NameSpace& self) { return self.outlook.Application(); })
            .Property(u"Folders",
                      [](NameSpace& self) {
                          auto stores = std::make_shared<Folders>(self.outlook);
                          stores->all = self.outlook.stores;
                          return stores->Handle();
                      })
            .Property(
                u"Stores",
                [](NameSpace& self) { return std::make_shared<Stores>(self.outlook)->Handle(); })
            .From(12)
            .Property(u"Type", [](NameSpace&) { return Text(u"MAPI"); })
            .Property(u"CurrentUser", [](NameSpace& self) { return CurrentUserOf(self.outlook); })
            .Guarded()
            .Method(u"GetItemFromID", {u"EntryIDItem", u"EntryIDStore"},
                    [](NameSpace& self, const Arguments& arguments) -> Value {
                        const auto item = self.outlook.FindItem(AsText(arguments[0]));
                        return item ? item->Handle() : self.Fail(error::InvalidCall);
                    })
            .Method(u"GetFolderFromID", {u"EntryIDFolder", u"EntryIDStore"},
                    [](NameSpace& self, const Arguments& arguments) -> Value {
                        const auto folder = self.outlook.FindFolder(AsText(arguments[0]));
                        if (folder) self.outlook.Touch(*folder);
                        return folder && !folder->IsGone() ? folder->Handle()
                                                           : self.Fail(error::InvalidCall);
                    })
            .Method(u"GetDefaultFolder", {u"FolderType"},
                    [](NameSpace& self, const Arguments& arguments) -> Value {
                        std::int32_t number = 0;
                        if (!Convert(arguments[0], number)) return self.Fail(error::TypeMismatch);
                        const auto& folder = self.outlook.DefaultFolder(number);
                        return folder->number == number ? folder->Handle()
                                                        : self.Fail(error::InvalidCall);
                    });
    return table;
}

const MemberTable& ComAddIn::Table() const {
    static const MemberTable table =
        Members<ComAddIn>()
            .Property(u"Application", [](ComAddIn& self) { return self.outlook.Application(); })
            .Property(u"ProgId", [](ComAddIn& self) { return self.progId; })
            .Property(u"Guid", [](ComAddIn& self) { return self.guid; })
            .Property(
                u"Connect", [](ComAddIn& self) { return self.connected; },
                [](ComAddIn& self, const Value& value) {
                    const auto& connect = self.outlook.connectAddIn;
                    const bool wanted = AsBoolean(value);
                    if (wanted != self.connected && !(connect && connect(Self(self), wanted))) {
                        self.Fail(error::Automation);
                    }
                })
            .Field(u"Description", &ComAddIn::description)
            .Default(u"Description")
            .Field(u"Object", &ComAddIn::object);
    return table;
}

const MemberTable& ComAddIns::Table() const {
    static const MemberTable table =
        Members<ComAddIns>()
            .Property(u"Application", [](ComAddIns& self) { return self.outlook.Application(); })
            .Collection([](ComAddIns& self, const Text& name) -> Value {
                for (const auto& addIn : self.all) {
                    if (EqualFolded(addIn->progId, name)) return addIn->Handle();
                }
                return self.Fail(error::SubscriptOutOfRange);
            });
    return table;
}

const MemberTable& ApplicationObject::Table() const {
    static const MemberTable table =
        OutlookMembers<ApplicationObject>(0)
            .Property(u"Name", [](ApplicationObject&) { return Text(u"Outlook"); })
            .Default(u"Name")
            .Property(
                u"Version",
                [](ApplicationObject& self) { return Text(VersionText(self.outlook.version)); })
            .Property(u"Explorers",
                      [](ApplicationObject& self) { return self.outlook.explorers->Handle(); })
            .Property(u"Inspectors",
                      [](ApplicationObject& self) { return self.outlook.inspectors->Handle(); })
            .Property(u"COMAddIns",
                      [](ApplicationObject& self) { return self.outlook.comAddIns->Handle(); })
            .Method(u"ActiveExplorer", {},
                    [](ApplicationObject& self, const Arguments&) {
                        return HandleOf(self.outlook.ActiveExplorer());
                    })
            .Method(u"ActiveInspector", {},
                    [](ApplicationObject& self, const Arguments&) {
                        return HandleOf(self.outlook.ActiveInspector());
                    })
            .Method(u"ActiveWindow", {},
                    [](ApplicationObject& self, const Arguments&) {
                        return HandleOf(self.outlook.FrontWindow());
                    })
            .Method(u"GetNamespace", {u"Type"},
                    [](ApplicationObject& self, const Arguments& arguments) -> Value {
                        return EqualFolded(AsText(arguments[0]), u"MAPI")
                                   ? self.outlook.session->Handle()
                                   : self.Fail(error::InvalidCall);
                    })
            .Method(u"CreateItem", {u"ItemType"},
                    [](ApplicationObject& self, const Arguments& arguments) -> Value {
                        std::int32_t type = 0;
                        if (!Convert(arguments[0], type)) return self.Fail(error::TypeMismatch);
                        const auto itemClass = ClassOfType(type);
                        if (!itemClass) return self.Fail(error::InvalidCall);
                        return std::make_shared<Item>(self.outlook, *itemClass)->Handle();
                    })
            .Method(u"Quit", {}, [](ApplicationObject& self, const Arguments&) {
                if (self.outlook.quitRequested) {
                    self.outlook.quitRequested();
                } else {
                    self.outlook.Quit();
                }
                return Value();
            });
    return table;
}

const EventInterface* ApplicationObject::Events() const {
    return outlook.applicationHasEvents ? &ApplicationEvents : nullptr;
}

}  // namespace tellwick::standin
