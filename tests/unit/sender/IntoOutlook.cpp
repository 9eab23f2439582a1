// What arrives stands in Outlook's inbox as a mail that was received, whatever Outlook does.
#include <doctest.h>

#include <utility>

#include "delivery/OutlookInbox.h"
#include "delivery/Reception.h"
#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"
#include "unit/SettingsModules.h"
#include "unit/sender/Units.h"

using namespace tellwick;
using namespace tellwick::sender;

namespace {

struct Desk : test::MemoryPlatform, MailInbox {
    explicit Desk(std::int32_t version = 11, bool redemption = false) : outlook(errors, version) {
        clock.now = 46348.5;  // the day of the units
        RunOutlook(true);
        if (redemption) {
            automation.factories[u"Redemption.SafeMailItem"] = [this] {
                return outlook.CreateSafeItem(outlook::MailClass);
            };
        }
    }
    ~Desk() override { automation.running.clear(); }

    void RunOutlook(bool runs) {
        automation.running.clear();
        if (runs) automation.running[u"Outlook.Application"] = outlook.RunningApplication();
    }
    Stored Put(TextView from, TextView text, bool triedBefore = false) {
        const ReceivedSms sms{Text(from), Text(text), 0, {u"name of " + Text(text)}};
        return OutlookInbox(errors, automation).Put(sms, triedBefore);
    }
    // As from a thread of its own: the answer comes later.
    void Store(const ReceivedSms& sms, bool triedBefore,
               std::function<void(Stored)> answer) override {
        answers.emplace_back([this, sms, triedBefore, answer = std::move(answer)] {
            const Stored stored = Put(sms.from, sms.text, triedBefore);
            // The program ends here.
            if (std::exchange(ends, false)) return Start();
            if (std::exchange(failNote, false)) faults.failAt = faults.calls + 1;
            answer(stored);
        });
    }
    void Arrive(TextView text) {
        for (const Pdu& pdu : WriteSubmit(u"+49171234567", Text(text), 7, {})) {
            const std::string unit = test::Delivered(pdu);
            CHECK(reception->Arrived(std::get<ReceivedPart>(ReadPdu(unit)), unit));
        }
    }
    void Start() { reception.emplace(fileSystem, clock, u"C:\\Data\\", *this, timers); }
    void Pass(int seconds) {
        for (; seconds > 0; --seconds) {
            clock.milliseconds += 1000;
            clock.now += 1.0 / 86400;
            timers.RunDue();
            while (!answers.empty()) std::exchange(answers, {}).front()();
        }
    }
    const std::vector<std::shared_ptr<standin::Item>>& Mails(std::int32_t folder) const {
        return outlook.DefaultFolder(folder)->items->all;
    }
    std::vector<Text> Bodies() const {
        std::vector<Text> bodies;
        for (const auto& mail : Mails(outlook::InboxFolder)) bodies.push_back(mail->Field(u"Body"));
        return bodies;
    }
    std::size_t Kept(TextView folder, TextView ending) {
        return fileSystem.FileNames(u"C:\\Data\\Spool\\" + Text(folder) + u"\\", ending).size();
    }

    standin::OutlookModel outlook;
    std::vector<std::function<void()>> answers;
    std::optional<Reception> reception;
    bool failNote = false;
    bool ends = false;
};

}  // namespace

TEST_CASE("an SMS is an unread mail with its number and text, with Redemption and without") {
    for (const std::int32_t version : {9, 10, 11, 12, 14, 16}) {
        for (const bool redemption : {false, true}) {
            CAPTURE(version);
            CAPTURE(redemption);
            Desk desk(version, redemption);
            CHECK(desk.Put(u"+491711234567", u"Komme um 5.\r\nGr\u00FC\u00DFe: J\u00F6rg") ==
                  Stored::Done);
            REQUIRE(desk.Mails(outlook::InboxFolder).size() == 1);
            const auto mail = desk.Mails(outlook::InboxFolder)[0];
            CHECK((mail->itemClass == outlook::MailClass && mail->sent && mail->unread));
            CHECK(mail->Field(u"MessageClass") == u"IPM.Note");
            CHECK(mail->Field(u"SentOnBehalfOfName") == u"+491711234567");
            CHECK(mail->Field(u"Subject") == u"Komme um 5.");
            CHECK(mail->Field(u"Body") == u"Komme um 5.\r\nGr\u00FC\u00DFe: J\u00F6rg");
            CHECK(AsBoolean(mail->Properties()->Find(u"IsSMS")->value));
            CHECK(desk.Mails(outlook::DraftsFolder).empty());
            CHECK(desk.outlook.questions == 0);
            CHECK(desk.outlook.StillReferenced().size() == 1);  // what is running
        }
    }
    CHECK(SubjectOf({u"Service", u" \r\n ", 0, {}}) == u"Service");
    const Text cut = SubjectOf({{}, Text(79, u'x') + u"\U0001F600\U0001F600", 0, {}});
    CHECK(cut == Text(79, u'x') + u'\u2026');
}

TEST_CASE(
    "whatever call fails, or is the last one: no half a mail stays, and the next try has one") {
    for (const bool redemption : {false, true}) {
        for (const bool ends : {false, true}) {
            for (int at = 1;; ++at) {
                CAPTURE(redemption);
                CAPTURE(ends);
                CAPTURE(at);
                Desk desk(11, redemption);
                CHECK(desk.Put(u"+49172", u"before") == Stored::Done);
                int calls = 0;
                Text failing;
                desk.outlook.failUse = [&](TextView, TextView member) {
                    const bool fails = ++calls == at || (ends && calls > at);
                    if (fails) failing = member;
                    return fails;
                };
                const Stored first = desk.Put(u"+49171", u"Hallo");
                desk.outlook.failUse = nullptr;
                if (failing.empty()) {
                    CHECK(first == Stored::Done);
                    CHECK(at > 12);
                    break;
                }
                CHECK(first != Stored::Done);
                // What cannot be opened again cannot be deleted either.
                if (!ends && failing != u"GetItemFromID") {
                    CHECK(desk.Bodies() == std::vector<Text>{u"before"});
                }
                CHECK(desk.Put(u"+49171", u"Hallo", true) == Stored::Done);
                REQUIRE(desk.Bodies() == std::vector<Text>{u"before", u"Hallo"});
                const auto& mail = desk.Mails(outlook::InboxFolder)[1];
                CHECK((mail->itemClass == outlook::MailClass && mail->sent && mail->unread));
                CHECK(mail->Field(u"SentOnBehalfOfName") == u"+49171");
                CHECK(desk.outlook.questions == 0);
            }
        }
    }
}

TEST_CASE("what arrives waits for Outlook, is stored once, and the newest are kept") {
    Desk desk;
    desk.RunOutlook(false);
    desk.Start();
    desk.Arrive(u"eins");
    desk.Pass(60);
    CHECK(desk.Bodies().empty());
    desk.Start();  // the program ended meanwhile
    desk.Arrive(u"zwei");
    desk.RunOutlook(true);
    desk.Pass(10);
    CHECK(desk.Bodies() == std::vector<Text>{u"eins", u"zwei"});
    CHECK(desk.Kept(u"received", u".pdu") == 0);
    CHECK(desk.Kept(u"read", u".txt") == 2);

    // One that cannot be stored holds up none, and is not tried all the time.
    int tries = 0;
    desk.outlook.failUse = [&](TextView, TextView member) {
        return member == u"Save" && ++tries == 1;
    };
    desk.Arrive(u"drei");
    desk.Arrive(u"vier");
    desk.Pass(10);
    CHECK(desk.Bodies() == std::vector<Text>{u"eins", u"zwei", u"vier", u"drei"});
    desk.outlook.failUse = [&](TextView, TextView member) {
        return member == u"Save" && ++tries > 0;
    };
    tries = 0;
    desk.Arrive(u"f\u00FCnf");
    desk.Pass(3600);
    CHECK(tries > 5);
    CHECK(tries < 15);
    desk.outlook.failUse = nullptr;
    desk.Pass(900);
    CHECK(desk.Bodies().size() == 5);

    // It is there, and that cannot be noted: it does not come again while the program runs.
    desk.Arrive(u"sechs");
    desk.failNote = true;
    desk.reception->SetLimits({true, 2});
    desk.Pass(30);
    CHECK(desk.Bodies().size() == 6);
    CHECK(desk.Kept(u"received", u".pdu") == 0);
    CHECK(desk.Kept(u"read", u".txt") == 2);

    // Nor when the program ends between the two.
    desk.Arrive(u"sieben");
    desk.ends = true;
    desk.Pass(30);
    CHECK_FALSE(desk.ends);
    CHECK(desk.Bodies().size() == 7);
    CHECK(desk.Kept(u"received", u".pdu") == 0);
}
