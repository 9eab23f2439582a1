// Replies to SMS that lie in Outlook, and the recipients that selected items give.
#include <doctest.h>

#include "platform/TestHost.h"
#include "recipients/NumberInText.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

struct ReplyHost : Host {
    explicit ReplyHost(std::int32_t version = 11, bool redemption = true) : Host(version) {
        if (redemption) InstallRedemption();
        Host::Connect();
    }
    // Presses Reply on the item where it is selected, or in a window of its own; true when
    // Outlook's own reply opens.
    bool Reply(const std::shared_ptr<standin::Item>& item, bool inInspector = false) {
        if (inInspector) {
            outlook.OpenInspector(item);
        } else {
            outlook.Select(first, {item});
        }
        return outlook.PressReply(item);
    }
};

}  // namespace

TEST_CASE("a reply to an SMS fills the form, any other is left to Outlook") {
    struct Case {
        const char* name;
        Value mark;  // of IsSMS; empty: no such property
        TextView sender, body, subject;
        bool redemption, isSms;
        TextView recipient, message;
    };
    const Case cases[] = {
        {"number and text", true, u"+491701234567", u"  Hello ", u"", true, true, u"+491701234567",
         u"Hello"},
        {"number without text", true, u"+491701234567", u"", u"", true, true, u"+491701234567",
         u""},
        {"text before the sender", true, u"SMS from +49 170 1", u"a: b", u"", true, true,
         u"SMS from +49 170 1", u"a: b"},
        {"marked by a number", -1, u"123", u"x", u"", true, true, u"123", u"x"},
        {"no sender, colon", true, u"", u"x", u"0171: Hi: you ", true, true, u"RE",
         u"0171: Hi: you"},
        {"no outside library", true, u"+49170", u"x", u"Hi", false, true, u"", u""},
        {"marked as no SMS", false, u"+49170", u"x", u"", true, false, u"", u""},
        {"not marked", Value(), u"+49170", u"x", u"", true, false, u"", u""},
        {"marked with nothing", Text(), u"+49170", u"x", u"", true, false, u"", u""}};
    for (const std::int32_t version : {9, 11, 12, 16}) {
        for (Case c : cases) {
            // Outlook 2007 and later ask nobody, and are asked directly.
            if (!c.redemption) c.recipient = version < 12 ? u"RE" : c.sender;
            if (!c.redemption) c.message = version < 12 ? c.subject : c.body;
            for (const bool inInspector : {false, true}) {
                CAPTURE(version);
                CAPTURE(c.name);
                CAPTURE(inInspector);
                ReplyHost host(version, c.redemption);
                host.outlook.Switch(standin::Documented::NoDefaultMember, inInspector);
                const auto item = host.AddSms(c.sender, c.body);
                item->SetField(u"Subject", c.subject);
                item->Properties()->all.clear();
                if (c.mark.index() != 0) item->SetUserProperty(u"IsSMS", c.mark);
                CHECK(host.Reply(item, inInspector) == !c.isSms);
                CHECK(host.view.Loaded() == c.isSms);
                CHECK(host.view.TextTo().GetText() == c.recipient);
                CHECK(host.view.Message().GetText() == c.message);
                CHECK(host.platform.messageLoop.slept == (c.isSms ? 50 : 0));
                if (c.isSms && !inInspector) CHECK(host.view.Message().HasFocus());
                host.Disconnect();
                CHECK(host.outlook.LiveSubscriptions().empty());
                CHECK(host.Held().empty());
            }
        }
    }
}

TEST_CASE("without a colon in the host's reply the item gets Outlook's own reply") {
    ReplyHost host;
    const auto item = host.AddSms(u"", u"x");
    host.outlook.Select(host.first, {item});
    host.outlook.FailMember(u"MailItem", u"", error::Automation);
    host.outlook.FailMember(u"MailItem", u"Subject", error::Automation);
    CHECK(host.outlook.PressReply(item));
    CHECK_FALSE(host.view.Loaded());
}

TEST_CASE("the item followed is the first selected one, when that is a mail") {
    ReplyHost host;
    const auto sms = host.AddSms(u"1", u"a");
    const auto other = host.AddSms(u"2", u"b");
    const auto contact = host.outlook.AddItem(outlook::ContactClass);
    const auto followed = [&] {
        const std::vector<Text> live = host.outlook.LiveSubscriptions();
        return std::count(live.begin(), live.end(), u"MailItem");
    };
    host.outlook.Select(host.first, {contact, sms});
    CHECK(followed() == 0);
    host.outlook.Select(host.first, {sms, other});
    CHECK(followed() == 1);
    CHECK_FALSE(host.outlook.PressReply(sms));
    host.outlook.Select(host.first, {});
    CHECK(followed() == 0);
    CHECK(host.outlook.PressReply(sms));
    // A window for another kind of item leaves the mail of the one before followed.
    const auto window = host.outlook.OpenInspector(other);
    const auto later = host.outlook.OpenInspector(contact);
    CHECK(followed() == 1);
    CHECK_FALSE(host.outlook.PressReply(other));
    // With its own window it goes.
    host.outlook.CloseInspector(later);
    CHECK(followed() == 1);
    host.outlook.CloseInspector(window);
    CHECK(followed() == 0);
    CHECK_FALSE(Contains(host.Held(), u"Inspector "));
}

TEST_CASE("of a conversation that is selected the newest mail counts") {
    for (const bool newestFirst : {false, true}) {
        ReplyHost host(16, false);
        const auto older = host.AddSms(u"+4917123456", u"older");
        const auto newest = host.AddSms(u"+4917234567", u"newest");
        host.outlook.SelectConversation(
            host.first, newestFirst ? std::vector{newest, older} : std::vector{older, newest});
        host.outlook.ClickButton(Host::Button(host.first));
        CHECK(host.view.TextTo().GetText() == u"04917234567");
        CHECK(host.outlook.PressReply(older));
        CHECK_FALSE(host.outlook.PressReply(newest));
        CHECK(host.view.Message().GetText() == u"newest");
    }
}

TEST_CASE("a conversation that is selected while another is looked through takes its place") {
    ReplyHost host(16, false);
    const auto before = host.AddSms(u"+4917123456", u"before");
    const auto now = host.AddSms(u"+4917234567", u"now");
    host.platform.clock.step = 2;  // every look at the clock: one mail a slice
    bool selects = false;
    host.outlook.failUse = [&](TextView, TextView member) {
        if (member == u"ReceivedTime" && std::exchange(selects, false))
            host.outlook.SelectConversation(host.first, {now, host.AddSms(u"", u"")});
        return false;
    };
    for (const bool within : {false, true}) {
        host.outlook.SelectConversation(host.first, {before, before, before});
        selects = within;
        while (host.platform.timers.Tick() != 0) {
        }
        CAPTURE(within);
        CHECK(host.outlook.PressReply(before) == within);
    }
}

TEST_CASE("a field that does not keep the recipient gets it by way of the list") {
    ReplyHost host;
    const auto sms = host.AddSms(u"+491701234567", u"Hello");
    int pauses = 0;
    host.platform.messageLoop.onDoEvents = [&] {
        if (++pauses == 3) host.view.TextTo().SetText(u"");
    };
    CHECK_FALSE(host.Reply(sms));
    CHECK(host.view.TextTo().GetText() == u"+491701234567");
    CHECK(host.view.ListBoxNumbers().SelectedIndex() == -1);
    CHECK_FALSE(host.view.ListBoxNumbers().Visible());
}

TEST_CASE("a form that is open shows the reply as text, within five parts") {
    ReplyHost host;
    host.outlook.ClickButton(Host::Button(host.first));
    host.view.Message().SetText(u"Hi");
    host.program.messageText.ButtonHex_Click();
    CHECK_FALSE(host.Reply(host.AddSms(u"1", u"\u007FDear" + Text(900, u'x'))));
    CHECK(host.view.Message().GetText() == u"Dear" + Text(795, u'x'));
    host.program.formSmsSend.Unload();
    CHECK(host.Setting(u"SMS", u"LastText").size() == 799);
}

TEST_CASE("a window that closes, or Outlook that quits, while the form loads is no harm") {
    for (const bool quit : {false, true}) {
        ReplyHost host;
        const auto sms = host.AddSms(u"1", u"x");
        bool done = false;
        host.platform.messageLoop.onDoEvents = [&] {
            if (std::exchange(done, true)) return;
            if (quit) {
                host.outlook.Quit();
            } else {
                host.outlook.CloseExplorer(host.first);
            }
        };
        CHECK_FALSE(host.Reply(sms));
        CHECK(host.view.TextTo().GetText() == (quit ? u"" : u"1"));
    }
}

TEST_CASE("numbers in running text") {
    using TwoTexts = std::pair<TextView, TextView>;
    for (const auto& [text, number] :
         {TwoTexts{u"+491701234567", u"+491701234567"},
          TwoTexts{u"SMS from +49 170 1234567", u"+49 170 1234567"},
          TwoTexts{u"0171/234567 <sms@example.org>", u"0171/234567"},
          TwoTexts{u"(0171) 234567", u"0171) 234567"},
          TwoTexts{u"Anna (+49 (171) 234-56.7)", u"+49 (171) 234-56.7"},
          TwoTexts{u"22333", u"22333"}, TwoTexts{u"Agent 007", u""},
          TwoTexts{u"Firma 20001234 GmbH", u""}, TwoTexts{u"a0171234567@example.org", u""},
          TwoTexts{u"0171234567@example.org", u""}, TwoTexts{u"M\u00FC0171234567", u""},
          TwoTexts{u"12", u""}, TwoTexts{u"+", u""},
          TwoTexts{u"+ +4917012 / 0171234567", u"+4917012 / 0171234567"}, TwoTexts{u"", u""}}) {
        CHECK(NumberInText(text) == number);
    }
}

TEST_CASE("recipients of what is selected") {
    struct Selected {
        std::int32_t itemClass;
        std::vector<std::pair<TextView, TextView>> fields;
    };
    struct Case {
        const char* name;
        bool redemption;
        std::vector<Selected> selected;
        TextView recipients;
    };
    const auto contact = [](TextView name, TextView mobile, TextView home) {
        return Selected{outlook::ContactClass,
                        {{u"FullName", name},
                         {u"MobileTelephoneNumber", mobile},
                         {u"HomeTelephoneNumber", home}}};
    };
    const auto mail = [](TextView sender, TextView body) {
        return Selected{outlook::MailClass, {{u"SentOnBehalfOfName", sender}, {u"Body", body}}};
    };
    const Case cases[] = {
        {"several kinds",
         true,
         {contact(u"Zoe", u"0049 171 1", u"1"),
          contact(u"Ole", u"", u"030 / 2"),
          {outlook::AppointmentClass, {}},
          {outlook::DistributionListClass, {}},
          contact(u"None", u"", u""),
          mail(u"SMS from +43 664 123456", u"Eva Maier")},
         u"+491711;0302;+43664123456"},
        {"a number arrives whole",
         true,
         {contact(u"A", u"0171 2345678 p 12", u""), contact(u"B", u"", u"*100#")},
         u"01712345678p12;*100#"},
        {"once each",
         true,
         {contact(u"A", u"+49 171 22", u""), contact(u"B", u"+49/171/22", u""),
          mail(u"+43664123456", u""), mail(u"+43 664 123456", u"")},
         u"+4917122;+43664123456"},
        {"a name in the reply", true, {mail(u"EVA MAIER", u"")}, u"+436641"},
        {"the first name in it", true, {mail(u"", u"Ole Berg and Eva Maier")}, u"030"},
        {"the longer name", true, {mail(u"", u"Ole Bergmann")}, u"0177"},
        {"part of a longer word", true, {mail(u"", u"Eva Maierhofer, Geneva Maier")}, u""},
        {"namesakes, one with a mobile", true, {mail(u"", u"Jo")}, u"0178"},
        {"nobody known", true, {mail(u"Nobody", u"nothing")}, u""},
        {"no outside library", false, {mail(u"+43664123456", u"")}, u"+43664123456"},
        {"nor a number", false, {mail(u"", u"Eva Maier")}, u"+436641"}};
    for (const Case& c : cases)
        for (const std::int32_t version : {10, 11}) {
            CAPTURE(c.name);
            CAPTURE(version);
            ReplyHost host(version, c.redemption);
            host.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+1");
            for (const Selected& known :
                 {contact(u"Eva Maier", u"+43 664 1", u""), contact(u"Ole Berg", u"", u"030"),
                  contact(u"Ole Bergmann", u"0177", u""), contact(u"Jo", u"", u"0179"),
                  contact(u"Jo", u"0178", u"")}) {
                const auto item = host.outlook.AddItem(known.itemClass);
                for (const auto& [field, value] : known.fields) item->SetField(field, value);
            }
            std::vector<std::shared_ptr<standin::Item>> items;
            for (const Selected& selected : c.selected) {
                items.push_back(host.outlook.AddItem(selected.itemClass));
                for (const auto& [field, value] : selected.fields) {
                    items.back()->SetField(field, value);
                }
                // Its reply is asked for without being taken for the user's.
                items.back()->SetUserProperty(u"IsSMS", true);
            }
            host.outlook.Select(host.first, items);
            host.outlook.ClickButton(Host::Button(host.first));
            host.Settle();
            // Where Outlook would ask the user it is not asked.
            CHECK(host.view.TextTo().GetText() ==
                  (c.redemption || version >= 11 ? c.recipients : u""));
            CHECK(host.view.Message().GetText().empty());
        }
}
