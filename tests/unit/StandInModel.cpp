// What the add-in's tests take for granted of their Outlook: if one of these breaks, tests of the
// add-in pass or fail for the wrong reason.
#include <doctest.h>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"

using namespace tellwick;
using namespace tellwick::outlook;
using namespace tellwick::standin;

namespace {

struct Host {
    explicit Host(std::int32_t version = 11) : outlook(errors, version) {}

    ObjectPtr Child(const ObjectPtr& object, TextView member,
                    const std::vector<Value>& arguments = {}) {
        return AsObject(object->Get(member, arguments));
    }
    // The error that the last step left, taken away.
    std::int32_t TakeError() {
        const std::int32_t number = errors.number;
        errors.Clear();
        return number;
    }
    SubscriptionPtr Log(const ObjectPtr& source, const EventInterface& events, TextView name) {
        return source->Advise(events,
                              [this, name = Text(name)](std::int32_t event, std::vector<Value>&) {
                                  log += name + u":" + HexText(std::uint32_t(event)) + u" ";
                              });
    }

    PendingError errors;
    OutlookModel outlook;
    Text log;
};

}  // namespace

TEST_CASE("members fail as automation members do") {
    Host host;
    host.outlook.OpenExplorer();
    const ObjectPtr application = host.outlook.Application();
    const ObjectPtr explorers = host.Child(application, u"explorers");
    CHECK(explorers->TypeName() == u"Explorers");
    CHECK(AsNumber(explorers->Get(u"COUNT")) == 1);

    CHECK(host.Child(explorers, u"Item", {1})->TypeName() == u"Explorer");
    CHECK(host.TakeError() == 0);
    struct Case {
        TextView member;
        std::vector<Value> arguments;
        std::int32_t error;
    };
    for (const Case& c : {Case{u"Item", {-1}, standin::error::SubscriptOutOfRange},
                          Case{u"Item", {0}, standin::error::SubscriptOutOfRange},
                          Case{u"Item", {2}, standin::error::SubscriptOutOfRange},
                          Case{u"Item", {Text(u"x")}, standin::error::TypeMismatch},
                          Case{u"Item", {1, 2}, standin::error::WrongNumberOfArguments},
                          Case{u"Colour", {}, standin::error::NoSuchMember}}) {
        CHECK(host.Child(explorers, c.member, c.arguments) == nullptr);
        CHECK(host.TakeError() == c.error);
    }
    explorers->Put(u"Count", 3);
    CHECK(host.TakeError() == standin::error::NoSuchMember);
    CHECK(explorers->Advise(ExplorerEvents, [](std::int32_t, std::vector<Value>&) {}) == nullptr);
    CHECK(host.TakeError() == standin::error::NoSuchEvents);

    host.outlook.FailMember(u"Application", u"Version", 440);
    CHECK(AsText(application->Get(u"Version")).empty());
    CHECK(host.TakeError() == 440);
}

TEST_CASE("a new explorer counts before it is active, a closing window until it has closed") {
    Host host;
    const auto first = host.outlook.OpenExplorer();
    const ObjectPtr application = host.outlook.Application();
    const ObjectPtr explorers = host.Child(application, u"Explorers");
    const ObjectPtr inspectors = host.Child(application, u"Inspectors");
    const auto count = [&](const ObjectPtr& all) { return AsNumber(all->Get(u"Count")); };

    std::vector<SubscriptionPtr> subscriptions;
    subscriptions.push_back(host.Log(first->Handle(), ExplorerEvents, u"first"));
    subscriptions.push_back(
        explorers->Advise(ExplorersEvents, [&](std::int32_t, std::vector<Value>& arguments) {
            CHECK(count(explorers) == 2);
            CHECK(AsObject(application->Call(u"ActiveExplorer")) == first->Handle());
            host.log += u"new ";
            subscriptions.push_back(host.Log(AsObject(arguments[0]), ExplorerEvents, u"second"));
        }));
    const auto second = host.outlook.OpenExplorer();
    CHECK(host.log == u"new first:F006 second:F001 second:F007 ");
    host.log.clear();

    const auto mail = host.outlook.AddItem(MailClass, {{u"Subject", u"Hello"}});
    const auto inspector = host.outlook.OpenInspector(mail);
    subscriptions.push_back(
        inspector->Handle()->Advise(InspectorEvents, [&](std::int32_t event, std::vector<Value>&) {
            if (event == event::InspectorClose) CHECK(count(inspectors) == 1);
        }));
    host.outlook.CloseInspector(inspector);
    CHECK(count(inspectors) == 0);
    host.outlook.CloseExplorer(second);
    CHECK(host.log == u"second:F006 second:F001 second:F008 first:F001 ");
    second->Handle()->Get(u"Caption");
    CHECK(host.TakeError() == 440);

    host.outlook.CloseExplorer(first);
    CHECK(AsObject(application->Call(u"ActiveExplorer")) == nullptr);
    CHECK(host.TakeError() == 0);
}

TEST_CASE("a click reaches the sinks of every button with the same tag, and only those") {
    Host host;
    std::vector<std::shared_ptr<CommandBarButton>> buttons;
    std::vector<SubscriptionPtr> subscriptions;
    for (const TextView tag : {u"101", u"101", u"", u""}) {
        const auto window = host.outlook.OpenExplorer();
        const auto button = window->commandBars->Find(u"Standard")->AddButton(u"SMS");
        button->tag = tag;
        subscriptions.push_back(button->Handle()->Advise(
            CommandBarButtonEvents,
            [&host, number = buttons.size()](std::int32_t, std::vector<Value>& arguments) {
                host.log += NumberText(std::int64_t(number)) + AsObject(arguments[0])->TypeName();
                arguments[1] = true;
            }));
        buttons.push_back(button);
    }
    CHECK(host.outlook.ClickButton(buttons[1]));
    CHECK(host.log == u"0CommandBarButton1CommandBarButton");
    host.log.clear();
    CHECK(host.outlook.ClickButton(buttons[2]));
    CHECK(host.log == u"2CommandBarButton");
    buttons[2]->visible = false;
    CHECK_FALSE(host.outlook.ClickButton(buttons[2]));
}
