// Every row of the stand-in's table of documented behaviours, in every version.
#include <doctest.h>

#include <map>
#include <string>

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
