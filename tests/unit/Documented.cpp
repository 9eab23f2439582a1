// Every row of the stand-in's table of documented behaviours, in every version.
#include <doctest.h>

#include <map>
#include <string>

#include "platform/Grid.h"
#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;
using standin::Documented;

namespace {

// Whether an Outlook does it, played through from outside. What is not usual is switched on.
using Proof = bool (*)(standin::OutlookModel& outlook);

bool CountsConversationsAsNothing(standin::OutlookModel& outlook) {
    const auto mail = outlook.AddItem(outlook::MailClass);
    const auto window = outlook.OpenExplorer();
    outlook.SelectConversation(window, {mail, outlook.AddItem(outlook::MailClass)});
    const ObjectPtr selection = AsObject(window->Handle()->Get(u"Selection"));
    CHECK(AsNumber(selection->Get(u"Count")) == 0);
    const ObjectPtr headers = AsObject(selection->Call(u"GetSelection", {1}));
    const ObjectPtr header = AsObject(Get(outlook.errors, headers, u"Item", {1}));
    const ObjectPtr mails = AsObject(Call(outlook.errors, header, u"GetItems"));
    return AsNumber(Get(outlook.errors, mails, u"Count")) == 2;
}

bool AsksLateAndOnce(standin::OutlookModel& outlook) {
    struct Counting : standin::RibbonAddIn {
        Text GetCustomUI(TextView ribbonId) override {
            asked.emplace_back(ribbonId);
            return {};
        }
        bool HasCallback(TextView) override { return false; }
        Value Call(TextView, const ObjectPtr&) override { return {}; }
        std::vector<Text> asked;
    };
    const auto addIn = std::make_shared<Counting>();
    outlook.ribbons.Add(u"Counting", addIn);
    const bool early = !addIn->asked.empty();
    for (int window = 0; window < 2; ++window) {
        outlook.OpenExplorer();
        outlook.OpenInspector(outlook.AddItem(outlook::ContactClass));
    }
    std::vector<Text> wanted{u"Microsoft.Outlook.Contact"};
    if (outlook.version >= 14) wanted.insert(wanted.begin(), u"Microsoft.Outlook.Explorer");
    return !early && addIn->asked == wanted;
}

bool HasBarsOnlyAfterStartup(standin::OutlookModel& outlook) {
    const ObjectPtr window = outlook.CreateExplorer()->Handle();
    const auto shown = [&] {
        return AsObject(window->Get(u"CommandBars")) != nullptr &&
               AsObject(outlook.Application()->Call(u"ActiveExplorer")) != nullptr;
    };
    const bool before = shown();
    outlook.startupComplete = true;
    CHECK(shown());
    return !before;
}

bool EndsQuietly(standin::OutlookModel& outlook) {
    bool told = false;
    bool quit = false;
    outlook.shutDownAddIns = [&] { told = true; };
    const auto sink = outlook.Application()->Advise(
        outlook::ApplicationEvents, [&](std::int32_t, std::vector<Value>&) { quit = true; });
    outlook.Quit();
    CHECK(quit);
    return !told;
}

// How often the user is asked for body and list member.
int Questions(standin::OutlookModel& outlook, const ObjectPtr& application) {
    const auto list = outlook.AddItem(outlook::DistributionListClass);
    list->people.push_back({u"Anna", u"anna@example.org"});
    outlook.OpenExplorer();
    outlook.Select(outlook.ActiveExplorer(), {outlook.AddItem(outlook::MailClass), list});
    const ObjectPtr window = AsObject(application->Call(u"ActiveExplorer"));
    const ObjectPtr selection = AsObject(window->Get(u"Selection"));
    const int before = outlook.questions;
    AsObject(selection->Get(u"Item", {1}))->Get(u"Body");
    const ObjectPtr second = AsObject(selection->Get(u"Item", {2}));
    second->Get(u"MemberCount");
    AsObject(second->Call(u"GetMember", {1}))->Get(u"Name");
    return outlook.questions - before;
}

bool AsksUser(standin::OutlookModel& outlook) {
    return Questions(outlook, outlook.Application()) == 3;
}

bool AsksOnlyForUntrusted(standin::OutlookModel& outlook) {
    return Questions(outlook, outlook.Application()) == 0 &&
           Questions(outlook, outlook.RunningApplication()) == 3;
}

bool KeepsHeldItem(standin::OutlookModel& outlook) {
    const auto mail = outlook.AddItem(outlook::MailClass, {{u"Subject", u"before"}});
    ObjectPtr held = mail->Handle();
    outlook.ChangeInStore(mail, u"Subject", u"after");
    const bool stale = AsText(held->Get(u"Subject")) == u"before";
    held->Call(u"Save");
    const bool refused = bool(outlook.errors);
    held.reset();
    return stale && refused && AsText(mail->Handle()->Get(u"Subject")) == u"after";
}

bool FailsForDefault(standin::OutlookModel& outlook) {
    const auto mail = outlook.AddItem(outlook::MailClass, {{u"Subject", u"Hello"}});
    return AsText(mail->Handle()->Get(DefaultMember)).empty() && outlook.errors;
}

// Contacts and folders -----------------------------------------------------------------------

const std::shared_ptr<standin::Folder>& ContactsOf(standin::OutlookModel& outlook) {
    return outlook.DefaultFolder(outlook::ContactsFolder);
}

// So many contacts, one from each day.
ObjectPtr FolderWith(standin::OutlookModel& outlook, int contacts) {
    for (int contact = 0; contact < contacts; ++contact) {
        outlook.AddItem(outlook::ContactClass)->modified = 40000 + contact;
    }
    return ContactsOf(outlook)->Handle();
}

Value TableOf(standin::OutlookModel& outlook, const ObjectPtr& folder, TextView column) {
    const ObjectPtr table = AsObject(folder->Call(u"GetTable"));
    const ObjectPtr columns = AsObject(Get(outlook.errors, table, u"Columns"));
    Call(outlook.errors, columns, u"RemoveAll");
    Call(outlook.errors, columns, u"Add", {Text(column)});
    return table;
}

Value FirstCell(standin::OutlookModel& outlook, const ObjectPtr& folder, TextView column) {
    const ObjectPtr table = AsObject(TableOf(outlook, folder, column));
    const ObjectPtr row = AsObject(Call(outlook.errors, table, u"GetNextRow"));
    return Get(outlook.errors, row, u"Item", {1});
}

std::size_t RowsGiven(standin::OutlookModel& outlook, const ObjectPtr& table, std::int32_t most) {
    outlook.errors.Clear();
    const GridPtr grid = AsGrid(Call(outlook.errors, table, u"GetArray", {most}));
    return grid ? grid->First() : 0;
}

bool RefusesLargeArray(standin::OutlookModel& outlook) {
    const ObjectPtr folder = FolderWith(outlook, 3);
    const ObjectPtr table = AsObject(TableOf(outlook, folder, u"FullName"));
    const bool refused = table && RowsGiven(outlook, table, 4) == 0 && outlook.errors;
    // What was refused was not passed over, and less than the table's rows may be left.
    return refused && RowsGiven(outlook, table, 2) == 2 && RowsGiven(outlook, table, 3) == 1;
}

bool CannotCountLargeTable(standin::OutlookModel& outlook) {
    const auto count = [&] {
        outlook.errors.Clear();
        const ObjectPtr table = AsObject(ContactsOf(outlook)->Handle()->Call(u"GetTable"));
        return AsNumber(Call(outlook.errors, table, u"GetRowCount"));
    };
    FolderWith(outlook, 1);
    if (count() != 1) return false;
    const auto contact = ContactsOf(outlook)->items->all[0];
    ContactsOf(outlook)->items->all.assign(20000, contact);
    return count() == 0 && outlook.errors;
}

bool GivesRows(standin::OutlookModel& outlook) {
    const ObjectPtr folder = FolderWith(outlook, 2);
    const ObjectPtr table = AsObject(TableOf(outlook, folder, u"EntryID"));
    const ObjectPtr first = AsObject(Call(outlook.errors, table, u"GetNextRow"));
    const ObjectPtr second = AsObject(Call(outlook.errors, table, u"GetNextRow"));
    return AsText(Get(outlook.errors, second, u"Item", {Text(u"EntryID")})) ==
               ContactsOf(outlook)->items->all[1]->Field(u"EntryID") &&
           first != second && !AsObject(Call(outlook.errors, table, u"GetNextRow"));
}

ObjectPtr SessionOf(standin::OutlookModel& outlook) {
    return AsObject(outlook.Application()->Call(u"GetNamespace", {Text(u"MAPI")}));
}

ObjectPtr LastOf(PendingError& errors, const ObjectPtr& owner, TextView collection) {
    const ObjectPtr all = AsObject(Get(errors, owner, collection));
    return AsObject(Get(errors, all, u"Item", {AsNumber(Get(errors, all, u"Count"))}));
}

bool HasPublicStore(standin::OutlookModel& outlook) {
    const ObjectPtr session = SessionOf(outlook);
    if (AsObject(session->Call(u"GetDefaultFolder", {18}))) return false;
    outlook.AddPublicStore();
    const ObjectPtr folder = AsObject(session->Call(u"GetDefaultFolder", {18}));
    const ObjectPtr root = LastOf(outlook.errors, session, u"Folders");
    const ObjectPtr store = LastOf(outlook.errors, session, u"Stores");
    return AsText(folder->Get(u"StoreID")) == AsText(root->Get(u"StoreID")) &&
           (!store || AsNumber(store->Get(u"ExchangeStoreType")) == 2);
}

bool TellsOpenStores(standin::OutlookModel& outlook) {
    const auto archive = outlook.AddStore(u"Archive");
    archive->store->open = false;
    archive->store->exchangeType = standin::StoreState::Additional;
    const ObjectPtr store = LastOf(outlook.errors, SessionOf(outlook), u"Stores");
    return store && !AsBoolean(store->Get(u"IsOpen")) && !archive->store->open &&
           AsNumber(store->Get(u"ExchangeStoreType")) == 4 &&
           AsObject(store->Call(u"GetRootFolder")) && AsBoolean(store->Get(u"IsOpen"));
}

bool AsksForPassword(standin::OutlookModel& outlook) {
    const auto archive = outlook.AddStore(u"Archive");
    archive->store->open = false;
    archive->store->hasPassword = true;
    const ObjectPtr root = LastOf(outlook.errors, SessionOf(outlook), u"Folders");
    return outlook.passwordsAsked == 0 && !AsObject(root->Get(u"Folders")) &&
           outlook.passwordsAsked == 1 && outlook.errors;
}

bool TakesItsTime(standin::OutlookModel& outlook) {
    const ObjectPtr folder = FolderWith(outlook, 1);
    outlook.stores[0]->store->milliseconds = 30;
    double passed = 0;
    outlook.pass = [&](double milliseconds) { passed += milliseconds; };
    const ObjectPtr items = AsObject(folder->Get(u"Items"));
    AsObject(items->Get(u"Item", {1}))->Get(u"FullName");
    return passed == 90;
}

bool ShowsShared(standin::OutlookModel& outlook) {
    outlook.OpenExplorer();
    const auto shared = outlook.ShareFolder(u"Paula");
    PendingError& errors = outlook.errors;
    const ObjectPtr explorer = AsObject(outlook.Application()->Call(u"ActiveExplorer"));
    const ObjectPtr modules =
        AsObject(Get(errors, AsObject(Get(errors, explorer, u"NavigationPane")), u"Modules"));
    const ObjectPtr group = LastOf(
        errors, AsObject(Call(errors, modules, u"GetNavigationModule", {2})), u"NavigationGroups");
    const ObjectPtr shown = LastOf(errors, group, u"NavigationFolders");
    const ObjectPtr root = LastOf(errors, SessionOf(outlook), u"Folders");
    return standin::TargetOf(AsObject(Get(errors, shown, u"Folder"))) == shared &&
           AsText(root->Get(u"Name")) == u"Personal Folders";
}

bool KeepsDeleted(standin::OutlookModel& outlook) {
    const ObjectPtr deleted = AsObject(SessionOf(outlook)->Call(u"GetDefaultFolder", {3}));
    outlook.deleted->Add(u"Club", standin::ContactItem);
    const ObjectPtr root = LastOf(outlook.errors, SessionOf(outlook), u"Folders");
    const ObjectPtr below = LastOf(outlook.errors, deleted, u"Folders");
    return AsNumber(Get(outlook.errors, below, u"DefaultItemType")) == standin::ContactItem &&
           LastOf(outlook.errors, root, u"Folders") == deleted;
}

bool TellsHidden(standin::OutlookModel& outlook) {
    const auto hidden = ContactsOf(outlook)->Add(u"Recipient Cache", standin::ContactItem);
    hidden->hidden = true;
    const auto tell = [&](const ObjectPtr& folder) {
        return AsBoolean(
            Call(outlook.errors, AsObject(Get(outlook.errors, folder, u"PropertyAccessor")),
                 u"GetProperty", {Text(u"http://schemas.microsoft.com/mapi/proptag/0x10F4000B")}));
    };
    return tell(hidden->Handle()) && !tell(ContactsOf(outlook)->Handle());
}

bool SortsLateBehind(standin::OutlookModel& outlook) {
    const ObjectPtr folder = FolderWith(outlook, 3);
    const auto& items = ContactsOf(outlook)->items->all;
    items[0]->modified = 40001.5;  // as a telephone had it
    const ObjectPtr sorted = AsObject(folder->Get(u"Items"));
    sorted->Call(u"Sort", {Text(u"[LastModificationTime]"), true});
    const auto at = [&](std::int32_t index) {
        return standin::TargetOf(AsObject(sorted->Get(u"Item", {index})));
    };
    return at(1) == items[2] && at(2) == items[0] && at(3) == items[1];
}

bool MovesItemDates(standin::OutlookModel& outlook) {
    const ObjectPtr folder = FolderWith(outlook, 1);
    outlook.timeZone = 0.25;
    const ObjectPtr item = AsObject(AsObject(folder->Get(u"Items"))->Get(u"Item", {1}));
    return AsReal(item->Get(u"LastModificationTime")) == 40000.25 &&
           (outlook.version < 12 ||
            AsReal(FirstCell(outlook, folder, u"LastModificationTime")) == 40000.25);
}

bool HasUniversalDates(standin::OutlookModel& outlook) {
    const ObjectPtr folder = FolderWith(outlook, 1);
    outlook.timeZone = 0.25;
    return AsReal(FirstCell(outlook, folder,
                            u"http://schemas.microsoft.com/mapi/proptag/0x30080040")) == 40000;
}

bool MisreadsDates(standin::OutlookModel& outlook) {
    const ObjectPtr items = AsObject(FolderWith(outlook, 2)->Get(u"Items"));
    const auto since = [&](TextView date) {
        return AsNumber(
            AsObject(items->Call(u"Restrict", {u"[LastModificationTime] >= '" + Text(date) + u"'"}))
                ->Get(u"Count"));
    };
    return since(u"40001 00:00") == 0 && since(u"10000 00:00") == 0;
}

bool FailsToCount(standin::OutlookModel& outlook) {
    const ObjectPtr folder = FolderWith(outlook, 2);
    const ObjectPtr items = AsObject(folder->Get(u"Items"));
    const bool counted = AsNumber(items->Get(u"Count")) == 2;
    ContactsOf(outlook)->countFails = true;
    return counted && AsNumber(items->Get(u"Count")) == 0 && outlook.errors &&
           AsObject(items->Get(u"Item", {2}));
}

bool EndsSession(standin::OutlookModel& outlook) {
    std::vector<ObjectPtr> open;
    open.reserve(501);
    for (int folder = 0; folder < 500; ++folder)
        open.push_back(ContactsOf(outlook)->Add(u"F", standin::ContactItem)->Handle());
    if (AsText(open[0]->Get(u"Name")) != u"F") return false;
    open.push_back(ContactsOf(outlook)->Handle());
    return AsText(open[0]->Get(u"Name")).empty() && outlook.errors;
}

const std::map<Documented, Proof>& Proofs() {
    static const std::map<Documented, Proof> proofs{
        {Documented::ConversationLines, &CountsConversationsAsNothing},
        {Documented::RibbonAskedLate, &AsksLateAndOnce},
        {Documented::BarsAfterStartup, &HasBarsOnlyAfterStartup},
        {Documented::QuietEnd, &EndsQuietly},
        {Documented::SecurityQuestion, &AsksUser},
        {Documented::UntrustedObjects, &AsksOnlyForUntrusted},
        {Documented::HeldItem, &KeepsHeldItem},
        {Documented::NoDefaultMember, &FailsForDefault},
        {Documented::ArrayLargerThanTable, &RefusesLargeArray},
        {Documented::LargeTableUncounted, &CannotCountLargeTable},
        {Documented::RowByRow, &GivesRows},
        {Documented::PublicStore, &HasPublicStore},
        {Documented::ClosedStore, &TellsOpenStores},
        {Documented::PasswordAsked, &AsksForPassword},
        {Documented::SlowStore, &TakesItsTime},
        {Documented::SharedFolder, &ShowsShared},
        {Documented::DeletedFolder, &KeepsDeleted},
        {Documented::HiddenFolder, &TellsHidden},
        {Documented::LateChange, &SortsLateBehind},
        {Documented::LocalDates, &MovesItemDates},
        {Documented::UniversalDates, &HasUniversalDates},
        {Documented::OtherCalendar, &MisreadsDates},
        {Documented::CountFails, &FailsToCount},
        {Documented::FoldersLimited, &EndsSession},
    };
    return proofs;
}

}  // namespace

TEST_CASE("the host does what is documented of it, in the versions that it holds for") {
    for (const standin::DocumentedRow& row : standin::DocumentedRows()) {
        if (row.shown != standin::DocumentedRow::InModel) continue;
        const auto proof = Proofs().find(row.behaviour);
        CAPTURE(std::string(row.name.begin(), row.name.end()));
        REQUIRE(proof != Proofs().end());
        for (const std::int32_t version : {9, 10, 11, 12, 14, 16}) {
            CAPTURE(version);
            PendingError errors;
            standin::OutlookModel outlook(errors, version);
            if (!row.usual) outlook.Switch(row.behaviour, true);
            CHECK(proof->second(outlook) == (version >= row.first && version <= row.last));
        }
    }
}
