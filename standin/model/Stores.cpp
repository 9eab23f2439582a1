#include "model/Stores.h"

#include <algorithm>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

constexpr std::int32_t ContactsModuleType = 2;
constexpr TextView HiddenProperty = u"http://schemas.microsoft.com/mapi/proptag/0x10F4000B";

}  // namespace

Stores::Stores(OutlookModel& outlook) : ModelObject(outlook) {
    for (const auto& root : outlook.stores) all.push_back(std::make_shared<Store>(outlook, root));
}

const MemberTable& Stores::Table() const {
    static const MemberTable table = OutlookMembers<Stores>(108).Collection();
    return table;
}

const MemberTable& Store::Table() const {
    static const MemberTable table =
        OutlookMembers<Store>(107)
            .Property(u"DisplayName", [](Store& self) { return self.root->name; })
            .Default(u"DisplayName")
            .Property(u"StoreID", [](Store& self) { return self.root->store->id; })
            .Property(u"ExchangeStoreType",
                      [](Store& self) { return self.root->store->exchangeType; })
            .Property(u"IsOpen", [](Store& self) { return self.root->store->open; })
            .Method(u"GetRootFolder", {},
                    [](Store& self, const Arguments&) -> Value {
                        self.outlook.Touch(*self.root);
                        return self.root->IsGone() ? self.Fail(error::Automation)
                                                   : self.root->Handle();
                    })
            .Method(u"GetDefaultFolder", {u"FolderType"},
                    [](Store& self, const Arguments& arguments) -> Value {
                        self.outlook.Touch(*self.root);
                        const std::int32_t number = AsNumber(arguments[0]);
                        const auto& folders = self.root->folders->all;
                        const auto found = std::ranges::find(
                            folders, number, [](const auto& folder) { return folder->number; });
                        return found == folders.end() ? ObjectPtr() : (*found)->Handle();
                    })
            .From(14);
    return table;
}

const MemberTable& PropertyAccessor::Table() const {
    static const MemberTable table = OutlookMembers<PropertyAccessor>(112).Method(
        u"GetProperty", {u"SchemaName"},
        [](PropertyAccessor& self, const Arguments& arguments) -> Value {
            // Most folders do not have it at all.
            if (AsText(arguments[0]) == HiddenProperty && self.folder->hidden) return true;
            return self.Fail(error::InvalidCall);
        });
    return table;
}

const MemberTable& NavigationFolder::Table() const {
    static const MemberTable table =
        OutlookMembers<NavigationFolder>(167)
            .Property(u"DisplayName", [](NavigationFolder& self) { return self.name; })
            .Default(u"DisplayName")
            .Property(u"Folder", [](NavigationFolder& self) -> Value {
                self.outlook.Touch(*self.folder);
                return self.folder->IsGone() ? self.Fail(error::Automation) : self.folder->Handle();
            });
    return table;
}

const MemberTable& NavigationFolders::Table() const {
    static const MemberTable table = OutlookMembers<NavigationFolders>(166).Collection();
    return table;
}

const MemberTable& NavigationGroup::Table() const {
    static const MemberTable table =
        OutlookMembers<NavigationGroup>(165)
            .Property(u"Name", [](NavigationGroup& self) { return self.name; })
            .Default(u"Name")
            .Property(u"GroupType", [](NavigationGroup& self) { return self.type; })
            .Property(u"NavigationFolders",
                      [](NavigationGroup& self) { return self.folders->Handle(); });
    return table;
}

const MemberTable& NavigationGroups::Table() const {
    static const MemberTable table = OutlookMembers<NavigationGroups>(164).Collection();
    return table;
}

const MemberTable& ContactsModule::Table() const {
    static const MemberTable table = OutlookMembers<ContactsModule>(159).Property(
        u"NavigationGroups",
        [](ContactsModule& self) { return self.outlook.navigation->Handle(); });
    return table;
}

const MemberTable& NavigationModules::Table() const {
    static const MemberTable table = OutlookMembers<NavigationModules>(157).Method(
        u"GetNavigationModule", {u"ModuleType"},
        [](NavigationModules& self, const Arguments& arguments) -> Value {
            return AsNumber(arguments[0]) == ContactsModuleType
                       ? std::make_shared<ContactsModule>(self.outlook)->Handle()
                       : ObjectPtr();
        });
    return table;
}

const MemberTable& NavigationPane::Table() const {
    static const MemberTable table =
        OutlookMembers<NavigationPane>(155).Property(u"Modules", [](NavigationPane& self) {
            return std::make_shared<NavigationModules>(self.outlook)->Handle();
        });
    return table;
}

}  // namespace tellwick::standin
