// The add-in on Outlook's ribbon: what it puts there, what a click does, and that command bars and
// ribbon never stand side by side.
#include "addin/Ribbon.h"

#include <doctest.h>

#include <tuple>

#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

using Entries = std::vector<standin::Ribbons::Entry>;

struct RibbonHost : Host {
    explicit RibbonHost(std::int32_t version = 16, bool window = true) : Host(version, window) {
        InstallRedemption();
        eva = outlook.AddItem(outlook::ContactClass,
                              {{u"FullName", u"Eva Maier"}, {u"MobileTelephoneNumber", u"0171 1"}});
        jo = outlook.AddItem(outlook::ContactClass,
                             {{u"FullName", u"Jo"}, {u"HomeTelephoneNumber", u"030 2"}});
        sms = AddSms(u"+491701234567", u" Hallo ");
        mail = outlook.AddItem(outlook::MailClass,
                               {{u"SentOnBehalfOfName", u"Eva Maier"}, {u"Body", u"x"}});
        Host::Connect(true);
    }
    ~RibbonHost() {
        CHECK(outlook.ribbons.errors.empty());
        CHECK(outlook.thrownAtHost == 0);
    }
    Entries Of(const std::shared_ptr<standin::Item>& item) {
        return outlook.ribbons.Entries(outlook.OpenInspector(item));
    }
    Entries Menu(std::vector<std::shared_ptr<standin::Item>> items) {
        outlook.Select(first, std::move(items));
        return outlook.ribbons.MenuEntries(first);
    }
    std::int32_t HeldOf(TextView className) const {
        std::int32_t count = 0;
        for (const auto& held : outlook.StillReferenced()) {
            if (held.className == className) count += held.count;
        }
        return count;
    }
    // What a click on an entry, the first one unless told otherwise, puts into the form.
    Text RecipientsOfClick(const Entries& entries, std::size_t entry = 0) {
        REQUIRE(entries.size() > entry);
        entries[entry].click();
        CHECK(view.Loaded());
        Settle();
        CHECK(HeldOf(u"IRibbonControl") == 0);
        CHECK(HeldOf(u"Selection") == 0);
        const Text recipients = view.TextTo().GetText();
        message = view.Message().GetText();
        view.TextTo().SetText({});
        program.formSmsSend.Unload();
        return recipients;
    }

    Text message;  // in the form of the last click
    std::shared_ptr<standin::Item> eva, jo, sms, mail;
};

Text Described(const Entries& entries) {
    Text text;
    for (const auto& entry : entries) {
        text += entry.place + u">" + entry.behind + u" [" + entry.group + u"] " + entry.label +
                u": " + entry.screentip + u": " + entry.supertip + (entry.large ? u" large" : u"") +
                NumberText(std::int64_t(MemoryBitmaps::BitmapOf(entry.image))) + u"\n";
    }
    return text;
}

}  // namespace

TEST_CASE("what stands on the ribbon of each window, in each version that has one") {
    for (const std::int32_t version : {12, 14, 16}) {
        CAPTURE(version);
        RibbonHost host(version);
        const bool explorers = version >= 14;
        const Text create =
            u"SMS] Neue SMS: Neue SMS: Eine SMS schreiben. Ausgew\u00E4hlte Kontakte und die "
            u"Absender ausgew\u00E4hlter Nachrichten werden zu Empf\u00E4ngern. large10032\n";
        const Text contact = u"SMS an diesen Kontakt: ";
        CHECK(Described(host.outlook.ribbons.Entries(host.first)) ==
              (explorers ? u"TabMail>GroupMailNew [" + create : Text()));
        host.outlook.SwitchFolder(host.first, host.outlook.DefaultFolder(outlook::ContactsFolder));
        CHECK(Described(host.outlook.ribbons.Entries(host.first)) ==
              (explorers ? u"TabContacts> [" + create : Text()));
        CHECK(Described(host.Of(host.mail)) ==
              u"TabReadMessage>GroupRespond [SMS] Per SMS antworten: Per SMS antworten: Dem "
              u"Absender dieser Nachricht eine SMS schreiben large10032\n"
              u"TabReadMessage>GroupRespond [SMS] Per SMS weiterleiten: Per SMS weiterleiten: "
              u"Absender, Betreff und Text dieser Nachricht als SMS weitergeben large10032\n");
        CHECK(Described(host.Of(host.eva)) ==
              u"TabContact> [SMS] " + contact + contact +
                  u"Diesem Kontakt eine SMS schreiben large10032\n");
        const auto menu = [&](TextView name) {
            return explorers ? Text(name) + u"> [] SMS schreiben: : 10016\n" : Text();
        };
        CHECK(Described(host.Menu({host.mail})) ==
              menu(u"ContextMenuMailItem") +
                  (explorers ? u"ContextMenuMailItem> [] Per SMS weiterleiten: : 10016\n" : u""));
        CHECK(Described(host.Menu({host.eva})) == menu(u"ContextMenuContactItem"));
        CHECK(Described(host.Menu({host.eva, host.sms})) == menu(u"ContextMenuMultipleItems"));
        // A mail being written has no sender.
        CHECK(host.Of(std::make_shared<standin::Item>(host.outlook, outlook::MailClass)).empty());
        const auto appointment = host.outlook.AddItem(outlook::AppointmentClass);
        const Text reminder = u"Per SMS erinnern: ";
        CHECK(Described(host.Of(appointment)) ==
              u"TabAppointment> [SMS] " + reminder + reminder +
                  u"Teilnehmer und verkn\u00FCpfte Kontakte per SMS an diesen Termin erinnern "
                  u"large10032\n");
        CHECK(Described(host.Menu({appointment})) ==
              (explorers ? u"ContextMenuCalendarItem> [] " + reminder + u": 10016\n" : Text()));
    }
}

TEST_CASE("explorers with the ribbon have no button and no entry, all others keep them") {
    struct Case {
        std::int32_t version;
        bool asks, bars;
    };
    for (const Case& c : {Case{11, false, true}, Case{12, true, true}, Case{16, false, true},
                          Case{14, true, false}, Case{16, true, false}}) {
        CAPTURE(c.version);
        CAPTURE(c.asks);
        Host host(c.version);
        const auto later = [&] {
            const auto explorer = host.outlook.OpenExplorer();
            host.platform.timers.Tick();
            host.outlook.Select(explorer, {});
            const bool bars =
                Host::Button(explorer) != nullptr || explorer->NewMenuEntry(u"SMS") != nullptr;
            host.outlook.CloseExplorer(explorer);
            return bars;
        };
        // Twice: what one connection learns, the next one does not know.
        for (const bool asks : {c.asks, false}) {
            host.Connect(asks);
            CHECK((Host::Button(host.first) != nullptr) == (c.bars || !asks));
            CHECK((host.first->NewMenuEntry(u"SMS") != nullptr) == (c.bars || !asks));
            CHECK(later() == (c.bars || !asks));
            host.Disconnect();
            while (host.platform.timers.Tick() != 0) {
            }
        }
    }
    // A button that cannot be deleted goes on answering.
    Host host(16);
    host.outlook.FailMember(u"CommandBarButton", u"Delete", error::Automation);
    host.Connect(true);
    host.outlook.ClickButton(Host::Button(host.first));
    CHECK(host.view.Loaded());
    host.outlook.FailMember(u"CommandBarButton", u"Delete", 0);
}

TEST_CASE("a click opens the form with those it is about") {
    RibbonHost host;
    auto& ribbons = host.outlook.ribbons;
    host.outlook.Select(host.first, {host.eva, host.jo});
    CHECK(host.RecipientsOfClick(ribbons.Entries(host.first)) == u"01711;0302");
    host.outlook.Select(host.first, {});
    CHECK(host.RecipientsOfClick(ribbons.Entries(host.first)).empty());
    CHECK(host.RecipientsOfClick(host.Menu({host.mail})) == u"01711");
    CHECK(host.RecipientsOfClick(host.Menu({host.jo})) == u"0302");
    CHECK(host.RecipientsOfClick(host.Menu({host.sms, host.eva, host.mail})) ==
          u"0491701234567;01711");
    CHECK(host.RecipientsOfClick(host.Of(host.jo)) == u"0302");
    CHECK(host.RecipientsOfClick(host.Of(host.mail)) == u"01711");
    // The item in the window counts, not the one selected behind it.
    host.outlook.Select(host.first, {host.jo});
    CHECK(host.RecipientsOfClick(host.Of(host.mail)) == u"01711");
    host.outlook.SelectConversation(host.first, {host.mail, host.sms});
    CHECK(host.RecipientsOfClick(ribbons.MenuEntries(host.first)) == u"01711");
}

TEST_CASE("replying by the ribbon takes an SMS for what it is, with and without Redemption") {
    for (const bool redemption : {true, false}) {
        CAPTURE(redemption);
        RibbonHost host;
        if (!redemption) host.platform.automation.factories.clear();
        // An item window opened later must not matter.
        const auto entries = host.Of(host.sms);
        host.Of(host.eva);
        CHECK(host.RecipientsOfClick(entries) == u"+491701234567");
        CHECK(host.message == u"Hallo");
        CHECK(host.outlook.inspectors->all.size() == 2);  // and no reply of Outlook's own
    }
}

TEST_CASE("a mail is handed on: sender, subject, its own words, as much as makes five SMS") {
    for (const bool redemption : {true, false}) {
        CAPTURE(redemption);
        RibbonHost host;
        if (!redemption) host.platform.automation.factories.clear();
        const Text body =
            u"Hallo,\r\n\r\n\r\n \r\num 10 im B\u00fcro?  \r\n"
            u"Plan <https://example.com/a/very/long/way/to/the/plan>: "
            u"https://www.example.com/karte?x=0123456789012345678901234567890 bis dann\r\n"
            u"Ort: B\u00fcro\r\nUhr: 10\r\n"
            u"> alt\r\nAm Freitag schrieb Jo:\r\n\r\n> Wann?\r\nGru\u00df\r\n";
        const Text whole =
            u"Eva: Treffen\r\nHallo,\r\n\r\num 10 im B\u00fcro?\r\nPlan: www.example.com bis "
            u"dann\r\nOrt: B\u00fcro\r\nUhr: 10\r\n\r\nGru\u00df";
        for (const TextView end :
             {u"-- \r\nEva Maier, Musterstra\u00dfe 1", u"-----Original Message-----\r\nx",
              u"________________________________\r\nFrom: Jo\r\nx",
              u"Von: Jo\r\nGesendet: Freitag\r\nAn: Eva\r\nx", u""}) {
            CAPTURE(end);
            const auto mail = host.outlook.AddItem(
                outlook::MailClass,
                {{u"SenderName", u"Eva"}, {u"Subject", u"Treffen"}, {u"Body", body + Text(end)}});
            CHECK(host.RecipientsOfClick(host.Of(mail), 1).empty());
            CHECK(host.message == whole);
            CHECK(host.RecipientsOfClick(host.Menu({mail}), 1).empty());
            CHECK(host.message == whole);
        }
        // Cut between words where there are some; letters that no short SMS has make it shorter.
        Text words;
        while (words.size() < 2000) words += u"Wort ";
        for (const auto& [long_, most, least] :
             {std::tuple<Text, std::size_t, std::size_t>{words, 764, 755},
              {Text(2000, u'x'), 764, 764},
              {u"\u20AC " + words, 764, 755}}) {
            host.RecipientsOfClick(
                host.Of(host.outlook.AddItem(outlook::MailClass, {{u"Body", long_}})), 1);
            CHECK(host.message.ends_with(u"..."));
            CHECK(host.message.size() <= most);
            CHECK(host.message.size() >= least);
        }
        CHECK(host.message.ends_with(u" Wort..."));
    }
    // What was typed stays where it belongs: recipients of an open form, the text behind an undo.
    RibbonHost host;
    host.Of(host.eva)[0].click();
    host.Settle();
    const Text recipients = host.view.TextTo().GetText();
    host.Of(host.mail)[1].click();
    CHECK(host.view.TextTo().GetText() == recipients);
    CHECK(host.view.Message().GetText() == u"x");
}

TEST_CASE("Office's ribbons are held from loading to the end, even one within a callback") {
    for (const bool byQuit : {false, true}) {
        RibbonHost host;
        host.platform.automation.running.clear();
        host.Of(host.eva);
        const Entries entries = host.Of(host.sms);
        CHECK(host.HeldOf(u"IRibbonUI") == 3);
        host.platform.messageLoop.onDoEvents = [&] {
            host.platform.messageLoop.onDoEvents = nullptr;
            if (byQuit) {
                host.outlook.Quit();
            } else {
                host.Disconnect();
            }
        };
        entries[0].click();
        CHECK(host.outlook.LiveSubscriptions().empty());
        CHECK(host.Held().empty());
    }
}

TEST_CASE("of a connection without a window nothing lives but the ribbon of later windows") {
    for (const std::int32_t version : {12, 14, 16}) {
        CAPTURE(version);
        RibbonHost host(version, false);
        host.platform.automation.running.clear();
        CHECK(host.outlook.LiveSubscriptions().empty());
        host.first = host.outlook.OpenExplorer();
        host.platform.timers.Tick();
        CHECK_FALSE(Host::Button(host.first));
        const Entries inMail = host.Of(host.sms);
        REQUIRE(inMail.empty() == (version < 14));
        if (inMail.empty()) continue;
        CHECK(host.RecipientsOfClick(inMail) == u"+491701234567");
        host.outlook.Select(host.first, {host.eva, host.mail});
        CHECK(host.RecipientsOfClick(host.outlook.ribbons.Entries(host.first)) == u"01711");
        CHECK(host.RecipientsOfClick(host.Menu({host.jo})) == u"0302");
        // The end comes without a word: nothing is held that would be in its way.
        CHECK(host.Held().empty());
        host.Disconnect();
        CHECK(host.connect.GetCustomUI(u"Microsoft.Outlook.Explorer").empty());
    }
}

TEST_CASE("on a monitor of another resolution the pictures are made anew") {
    RibbonHost host;
    const auto picture = [&] {
        return MemoryBitmaps::BitmapOf(host.outlook.ribbons.Entries(host.first)[0].image);
    };
    CHECK(picture() == 10032);
    host.platform.bitmaps.resolution = 192;
    CHECK(picture() == 10032);
    host.outlook.Activate(host.first);
    CHECK(picture() == 10064);
}

TEST_CASE("the host finds what is wrong with a ribbon's XML, and where") {
    const auto error = [](const Text& xml, std::int32_t version = 16) {
        return standin::ReadRibbonXml(xml, u"Microsoft.Outlook.Explorer", version,
                                      [](TextView name) { return name == u"Go"; })
            .error;
    };
    const Text head = u"<customUI xmlns=\"http://schemas.microsoft.com/office/2009/07/customui\">";
    const auto tab = [&](const Text& name, const Text& inside) {
        return head + u"<ribbon><tabs><tab idMso=\"" + name + u"\">" + inside +
               u"</tab></tabs></ribbon></customUI>";
    };
    const auto group = [&](const Text& attributes, const Text& inside) {
        return tab(u"TabMail", u"<group " + attributes + u">" + inside + u"</group>");
    };
    const Text good = group(u"id=\"g\" insertAfterMso=\"GroupMailNew\"",
                            u"<button id=\"b\" size=\"large\" onAction=\"Go\"/>");
    CHECK(error(good).empty());
    const std::pair<Text, TextView> wrong[] = {
        {head, u"Column: "},
        {head + u"<ribbon></tabs></customUI>", u"invalid closing tag"},
        {tab(u"TabHome", u""), u"Failed to find Office control by ID\ridMso: TabHome"},
        {group(u"id=\"g\" insertAfterMso=\"GroupRespond\"", u""), u"GroupRespond"},
        {group(u"idMso=\"GroupMailNew\"", u""), u"Unknown attribute"},
        {group(u"id=\"g\"", u"<button id=\"g\" onAction=\"Go\"/>"), u"The ID is used twice"},
        {group(u"id=\"g\"", u"<button id=\"b\" onAction=\"Stop\"/>"), u"no such callback"},
        {group(u"id=\"g\"", u"<button onAction=\"Go\"/>"), u"The element has no ID"},
        {group(u"id=\"g\"", u"<menu id=\"m\"/>"), u"Unexpected element menu"},
        {head + u"<contextMenus><contextMenu idMso=\"TabMail\"/></contextMenus></customUI>",
         u"That is no menu"}};
    for (const auto& one : wrong) {
        CAPTURE(one.first);
        CAPTURE(error(one.first));
        CHECK(error(one.first).starts_with(u"Line: 1\rColumn: "));
        CHECK(Contains(error(one.first), one.second));
    }
    CHECK(Contains(error(good, 12), u"Unknown namespace"));
}
