// A form opens at once, whatever is selected and known; who is looked for comes when he is found.
#include <doctest.h>

#include "model/ManyContacts.h"
#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

constexpr TextView LookingFor = u"Empfänger wird gesucht ...";
constexpr TextView Cut = u"Zu viele Elemente ausgewählt: nur die ersten 200 wurden genommen.";
constexpr TextView Restored = u"Wiederhergestellt: diese SMS war noch offen, als Outlook endete.";

// An Outlook with contacts that takes a millisecond for whatever it is asked.
struct SlowHost : Host {
    SlowHost() : Host(16) {
        standin::AddManyContacts(outlook, 2000, 2);
        outlook.AddItem(outlook::ContactClass,
                        {{u"FullName", u"Zoe Quax"}, {u"MobileTelephoneNumber", u"0171 5"}});
        Connect();
        outlook.failUse = [this](TextView, TextView) { return ++platform.clock.milliseconds < 0; };
    }
    std::shared_ptr<standin::Item> Mail(TextView sender, TextView body) {
        return outlook.AddItem(outlook::MailClass,
                               {{u"SentOnBehalfOfName", sender}, {u"Body", body}});
    }
    // How long until the form is there.
    double Click() {
        const double before = platform.clock.milliseconds;
        outlook.ClickButton(Button(first));
        CHECK(view.Loaded());
        return platform.clock.milliseconds - before;
    }
    bool Says(TextView text) { return view.StatusBar1().GetText() == text; }
};

}  // namespace

TEST_CASE("the form opens within 100 ms whatever is selected and known, and finds the recipient") {
    enum Knowing { Nothing, Half, Everybody };
    enum Selected { LongMail, ManyMails, Conversation };
    for (const Knowing knowing : {Nothing, Half, Everybody})
        for (const Selected selected : {LongMail, ManyMails, Conversation}) {
            CAPTURE(knowing);
            CAPTURE(selected);
            SlowHost host;
            Text recipients = u"01715";
            if (selected == LongMail) {
                Text body;
                while (body.size() < 0x100000) body += u"morgen um zehn im Haus am Markt, ";
                host.outlook.Select(host.first, {host.Mail(u"", body + u"Zoe Quax")});
            } else {
                constexpr int Mails = 1000;
                std::vector<std::shared_ptr<standin::Item>> mails;
                mails.reserve(Mails);
                for (int mail = 0; mail < Mails; ++mail)
                    mails.push_back(host.Mail(u"0171" + NumberText(mail), u""));
                if (selected == ManyMails) {
                    host.outlook.Select(host.first, mails);
                } else {
                    const double before = host.platform.clock.milliseconds;
                    host.outlook.SelectConversation(host.first, mails);
                    CHECK(host.platform.clock.milliseconds - before < 16);
                }
                recipients = u"017199";  // of the hundred that are looked at the newest
            }
            if (knowing != Nothing) host.program.addresses.Refresh();
            if (knowing == Half) host.platform.timers.Tick();
            if (knowing == Everybody) host.Settle();
            CHECK(host.program.addresses.Reading() == (knowing == Half));
            CHECK(host.Click() < 100);
            CHECK(host.Says(selected == ManyMails ? Cut : LookingFor));
            host.Settle();
            const std::vector<Text> found = host.program.recipientField.Recipients();
            CHECK(found.size() == (selected == ManyMails ? 200 : 1));
            CHECK((selected == ManyMails ? found[99] : found[0]) == recipients);
            CHECK(host.Says(selected == ManyMails ? Cut : u""));
        }
}

TEST_CASE("a remembered recipient makes way while others are looked for") {
    for (const bool known : {true, false}) {
        SlowHost host;
        host.SetSetting(u"SMS", u"LastNumber", u"0170");
        host.outlook.Select(host.first, {host.Mail(u"", known ? u"Zoe Quax" : u"Zoe")});
        host.Click();
        CHECK(host.view.TextTo().GetText().empty());
        host.Settle();
        CHECK(host.view.TextTo().GetText() == (known ? u"01715" : u"0170"));
    }
}

TEST_CASE("who is found joins a draft, but neither what is typed meanwhile nor an SMS being sent") {
    enum Event { Restoring, Typed, Sent };
    for (const Event event : {Restoring, Typed, Sent}) {
        CAPTURE(event);
        SlowHost host;
        if (event == Restoring) {
            host.program.formSmsSend.Open(u"0172");
            host.view.Message().SetText(u"typed");
            host.program.formSmsSend.Form_Deactivate();
            const auto files = host.platform.fileSystem.files;
            host.program.formSmsSend.Unload();
            host.platform.fileSystem.files = files;
        }
        host.outlook.Select(host.first, {host.Mail(u"0172", u""), host.Mail(u"", u"Zoe Quax")});
        host.Click();
        CHECK(host.Says(LookingFor));
        CHECK(host.view.TextTo().GetText() == u"0172");
        if (event == Typed) host.view.TextTo().SetText(u"0172;0173");
        if (event == Sent) {
            host.view.Message().SetText(u"\u0436");
            host.platform.dialogs.onShow = [&] { host.Settle(); };
            CHECK(host.Send({Answer::No}));
            CHECK(host.Queued() == std::vector<std::string>{"0172\t?"});
            CHECK(host.Setting(u"SMS", u"LastNumber") == u"0172");
            continue;
        }
        host.Settle();
        CHECK(host.view.TextTo().GetText() == (event == Restoring ? u"0172;01715" : u"0172;0173"));
        CHECK(host.Says(event == Restoring ? Restored : u""));
    }
}
