// What happens while the add-in lets messages run.
#include <doctest.h>

#include "model/ManyContacts.h"
#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

enum Wait { ForKey, ForSender, ForReply };
enum Event { SecondClick, Escape, Quit, Disconnection };

}  // namespace

TEST_CASE("what comes while somebody waits is done once, and nothing typed is lost") {
    for (const Wait wait : {ForKey, ForSender, ForReply})
        for (const Event event : {SecondClick, Escape, Quit, Disconnection}) {
            CAPTURE(wait);
            CAPTURE(event);
            Host host;
            host.InstallRedemption();
            host.StartSender();
            host.SetRegistry(RootKey, u"hWnd", u"0");
            host.Connect();
            const auto sms = host.AddSms(u"+491701234567", u"question");
            host.outlook.Select(host.first, {sms});
            host.program.formSmsSend.Open(u"0171");
            host.view.Message().SetText(u"typed");
            bool come = false;
            host.platform.messageLoop.onDoEvents = [&] {
                if (std::exchange(come, true)) return;
                if (event == SecondClick) host.program.submission.ButtonSend_Click();
                if (event == Escape) host.program.formSmsSend.Form_KeyDown(key::Escape, 0);
                if (event == Quit) host.outlook.Quit();
                if (event == Disconnection) host.Disconnect();
            };
            if (wait == ForKey) host.program.formSmsSend.Form_KeyDown(key::Enter, key::Control);
            if (wait == ForSender) host.program.submission.ButtonSend_Click();
            if (wait == ForReply) CHECK_FALSE(host.outlook.PressReply(sms));
            CHECK(come);
            CHECK(host.platform.dialogs.shown.empty());
            const bool sent = wait == ForSender || event == SecondClick;
            CHECK(host.Registry(QueueKey, u"cOut") == (sent ? u"1" : u""));
            CHECK(host.platform.messageLoop.posted.empty());
            CHECK(host.Setting(u"SMS", u"LastText") == u"typed");
            CHECK_FALSE(host.view.Loaded());
        }
}

TEST_CASE("nobody waits longer because contacts of a slow store are being read") {
    for (const Wait wait : {ForKey, ForSender, ForReply}) {
        CAPTURE(wait);
        double taken[2] = {};
        for (const bool reading : {false, true}) {
            Host host(16);
            host.StartSender();
            host.SetRegistry(RootKey, u"hWnd", u"0");
            host.Connect();
            standin::AddManyContacts(host.outlook, 5000, 5);
            host.outlook.stores[0]->store->milliseconds = 30;
            double& now = host.platform.clock.milliseconds;
            host.outlook.pass = [&](double milliseconds) { now += milliseconds; };
            const auto sms = host.AddSms(u"+491701234567", u"question");
            host.outlook.Select(host.first, {sms});
            host.program.formSmsSend.Open(u"0171");
            host.view.Message().SetText(u"typed");
            if (reading) host.program.addresses.Refresh();
            CHECK(host.program.addresses.Reading() == reading);
            const double before = now;
            if (wait == ForKey) host.program.formSmsSend.Form_KeyDown(key::Enter, key::Control);
            if (wait == ForSender) host.program.submission.ButtonSend_Click();
            if (wait == ForReply) host.outlook.PressReply(sms);
            taken[reading] = now - before;
        }
        CHECK(taken[true] == taken[false]);
        CHECK(taken[true] <= 2500);
        CHECK((wait == ForReply || taken[true] == 2500));  // no sooner for the sender
    }
}
