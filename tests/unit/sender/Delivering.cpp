// From the queue to the carrier: what is taken, in which order, what becomes of it, and that
// nothing is lost or sent twice whatever fails and whenever the program ends.
#include <random>

#include "spool/Times.h"
#include "unit/sender/SenderHost.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

using Kind = Outcome::Kind;
using Texts = std::vector<Text>;

const Outcome Congestion{Kind::Transient, {u"Network", u"42"}, false};
const Outcome Rejected{Kind::Permanent, {u"Network", u"21"}, false};
const Outcome NoAnswer{Kind::Unsure, {u"NoAnswer", {}}, false};
const Outcome Gone{Kind::Transient, {u"Unplugged", {}}, true};

// What a walk sends: of each kind one.
void EnterSome(SenderHost& host) {
    host.Enter(0xFFFFE, "0171 1111111; +49 (172) 222-2222 ,Anna\tHallo");
    host.Enter(0xFFFFF, "0049173333\tsp\xE4ter");
    host.Enter(0, "no separator");
    host.Enter(1, "0174444\tunsure");
    host.SetRegistry(Queue, u"2", u"C:\\Temp\\gone.tmp");
    host.SetRegistry(Queue, u"cOut", u"2");
    host.carrier.script[u"später"] = {Congestion, Gone};
    host.carrier.script[u"unsure"] = {NoAnswer};
}

const Texts ToBeSent{u"01711111111 Hallo", u"+491722222222 Hallo", u"+49173333 später",
                     u"0174444 unsure"};
const Texts ToFail{u"Anna Hallo NoNumber", u"no separator NoTab", u"NoFile"};

// Everything once: with the network, or in the spool for the user to decide.
void CheckAll(SenderHost& host, bool killed) {
    const Texts sent = host.Shown(State::Sent), failed = host.Shown(State::Failed);
    CHECK(host.Shown(State::Waiting).empty());
    CHECK(host.Shown(State::Sending).empty());
    Texts unsure;
    for (const SpooledSms& sms : host.All(State::Unsure)) {
        unsure.push_back(sms.recipient + u" " + sms.text);
    }
    for (const Text& one : ToBeSent) {
        CAPTURE(one);
        const std::size_t blank = one.find(u' ');
        const auto found =
            host.carrier.received.find({one.substr(0, blank), one.substr(blank + 1)});
        const int received = found == host.carrier.received.end() ? 0 : found->second;
        const auto inSent = std::count(sent.begin(), sent.end(), one);
        const auto inUnsure = std::count(unsure.begin(), unsure.end(), one);
        REQUIRE(received <= 1);
        REQUIRE((host.storeSent ? inSent : received) + inUnsure >= 1);
        REQUIRE(inSent + inUnsure <= 1);
        REQUIRE((inSent == 0 || received == 1));
        REQUIRE((killed || inUnsure == (one == u"0174444 unsure")));
    }
    for (const Text& one : ToFail) {
        const auto count = std::count(failed.begin(), failed.end(), one);
        // That a file is missing may be said once more.
        REQUIRE((count == 1 || (killed && count == 2 && one == u"NoFile")));
    }
    CHECK(host.values.Names() == Texts{u"cOut"});
    CHECK(host.Registry(Queue, u"cOut") == u"2");
    // A folder that could not be deleted goes with the next start.
    host.Start();
    host.Pass(1);
    CHECK((host.disk.FolderNames(SpoolFolder + u"waiting\\") == Texts{}));
}

}  // namespace

TEST_CASE("entries are taken in their order, and each recipient is an SMS of its own") {
    SenderHost host;
    EnterSome(host);
    host.Start();
    host.Pass(60);
    CheckAll(host, false);
    CHECK(host.Shown(State::Sent) ==
          Texts{u"01711111111 Hallo", u"+491722222222 Hallo", u"+49173333 später"});
    CHECK(host.Shown(State::Failed) == ToFail);
    CHECK(host.disk.FileNames(u"C:\\Temp\\", u".tmp").empty());
    const SpooledSms late = host.All(State::Sent)[2];
    CHECK(late.attempts == 1);
    CHECK(late.networkReferences.size() == 1);
    CHECK(late.reason == Reason{});
}

TEST_CASE("bad entries are shown as failed, whole, and stop nothing") {
    SenderHost host;
    std::string huge = "0171234\t";
    huge.resize(10'000'000, 'x');
    std::string twenty;
    for (int number = 10; number < 30; ++number) twenty += "01700" + std::to_string(number) + ";";
    host.Enter(1, huge);
    host.Enter(2, " ; ,\tnobody");
    host.Enter(3, "017112 P 3\tpause");
    host.Enter(4, "0171234\t" + std::string(39'016, 'x'));
    host.Enter(5, twenty + "\t48616C6C6F\twith a tab");
    host.Start();
    host.Pass(60);
    CHECK(host.Shown(State::Failed) == Texts{u"0171234 xxxxxxxxxxxxxxxxxxxx TooLong",
                                             u"nobody NoRecipients", u"017112 P 3 pause NoNumber",
                                             u"0171234 xxxxxxxxxxxxxxxxxxxx TooLong"});
    CHECK(host.Shown(State::Sent).size() == 20);
    CHECK(host.carrier.received.contains({u"0170029", u"48616C6C6F\twith a tab"}));
    const Text whole = host.All(State::Failed)[0].wholeText;
    CHECK((host.File(SpoolFolder + u"failed\\" + whole) == huge));
    // And goes with its SMS, when the user deletes that.
    CHECK(host.running->spool.Delete(State::Failed, host.running->spool.Ids(State::Failed)[0]));
    CHECK_FALSE(host.disk.files.contains(SpoolFolder + u"failed\\" + whole));
}

TEST_CASE(
    "pauses grow to a quarter of an hour; after a day it has failed; others go on meanwhile") {
    SenderHost host;
    host.carrier.script[u"busy"].assign(200, Congestion);
    host.carrier.script[u"bad"] = {Rejected};
    host.Enter(1, "01711\tbusy");
    host.Enter(2, "01712\tbad");
    host.Enter(3, "01713\tgood");
    host.Start();
    const auto tries = [&] { return 200 - int(host.carrier.script[u"busy"].size()); };
    host.Pass(4);
    CHECK(tries() == 1);
    CHECK(host.Shown(State::Sent) == Texts{u"01713 good"});
    CHECK(host.Shown(State::Failed) == Texts{u"01712 bad Network"});
    host.Pass(16);  // 5 and 10 seconds
    CHECK(tries() == 3);
    host.Pass(3600);
    const int first = tries();
    host.Pass(3600);
    CHECK(tries() == first + 4);
    host.Pass(86400);
    CHECK(host.Shown(State::Waiting).empty());
    const SpooledSms given = host.All(State::Failed)[0];
    CHECK(given.reason == Reason{u"TooOld", u"Network 42"});
    CHECK(InWords(given.reason, host.language) ==
          u"Could not be sent for a day. The network refuses the SMS (cause 42).");
    // The user's word begins anew.
    host.carrier.script.clear();
    CHECK(host.running->spool.SendAgain(State::Failed, host.running->spool.Ids(State::Failed)[0]));
    host.running->delivery.Look();
    host.Pass(2);
    CHECK(host.Shown(State::Sent).size() == 2);
}

TEST_CASE("a carrier that is away, and a switch that is off, hold the queue") {
    SenderHost host;
    host.carrier.away = {u"NoNetwork", {}};
    host.Enter(1, "01711\tone");
    host.Start();
    host.Pass(7200);
    CHECK(host.All(State::Waiting)[0].attempts == 0);
    host.carrier.away = {};
    host.carrier.listener->ReadinessChanged();
    host.Pass(1);
    CHECK(host.Shown(State::Sent).size() == 1);
    host.running->delivery.SetOn(false);
    host.Enter(2, "01712\ttwo");
    host.running->delivery.Look();
    host.Pass(60);
    CHECK(host.Registry(Queue, u"2") != u"(missing)");
    host.running->delivery.SetOn(true);
    host.Pass(2);
    CHECK(host.Shown(State::Sent).size() == 2);
}

TEST_CASE("what was sent is kept within the limits; what is unsure goes at the user's word only") {
    SenderHost host;
    host.Start();
    host.Pass(1);
    host.running->spool.SetLimits({true, 3});
    for (std::uint32_t number = 1; number <= 5; ++number) {
        host.Enter(number, "01711\t" + std::to_string(number));
    }
    host.carrier.script[u"6"] = {NoAnswer};
    host.Enter(6, "01711\t6");
    host.running->delivery.Look();
    host.Pass(10);
    CHECK(host.Shown(State::Sent) == Texts{u"01711 3", u"01711 4", u"01711 5"});
    host.running->spool.SetLimits({false, 999});
    CHECK(host.Shown(State::Sent).empty());
    host.Stop();
    host.Start();
    host.Pass(60);
    CHECK(host.Shown(State::Unsure) == Texts{u"01711 6 NoAnswer"});
    CHECK(host.running->spool.SendAgain(State::Unsure, host.running->spool.Ids(State::Unsure)[0]));
    host.running->delivery.Look();
    host.Pass(2);
    CHECK(host.carrier.received[{u"01711", u"6"}] == 2);
    // Of several parts only those that are not known to be sent.
    host.Enter(7, "01711\t" + std::string(200, 'x'));
    host.running->delivery.Look();
    host.clock.milliseconds += 10;
    host.timers.RunDue();
    const std::int32_t reference = host.carrier.underWay.value().concatReference;
    host.carrier.listener->PartSent(9);
    host.Stop();
    host.Start();
    host.Pass(1);
    CHECK(host.running->spool.SendAgain(State::Unsure, host.running->spool.Ids(State::Unsure)[0]));
    host.carrier.listener->ReadinessChanged();
    CHECK(host.carrier.underWay.value().partsSent == 1);
    CHECK(host.carrier.underWay.value().concatReference == reference);
}

TEST_CASE("a report belongs to the newest SMS with its number and recipient, also after a start") {
    SenderHost host;
    const auto arrivals = [&host] {
        std::vector<Arrival> found;
        for (const SpooledSms& sms : host.All(State::Sent)) found.push_back(ArrivalOf(sms));
        return found;
    };
    const auto report = [&host](std::int32_t reference, TextView recipient, std::int32_t status) {
        host.running->delivery.Reported({reference, Text(recipient), {}, status});
    };
    constexpr Arrival Unknown = Arrival::Unknown, Delivered = Arrival::Delivered;
    host.Start();
    for (std::uint32_t number = 1; number <= 3; ++number) {
        host.Enter(number, number == 2 ? "01729999999\tb" : "01711234567\ta");
        host.running->delivery.Look();
        host.Pass(2);
    }
    REQUIRE(arrivals().size() == 3);
    const std::int32_t first = host.All(State::Sent)[0].networkReferences[0];
    report(first, u"+491729999999", 0);
    report(200, u"+491711234567", 0);
    CHECK(arrivals() == std::vector<Arrival>(3, Unknown));
    report(first, u"+491711234567", 0x30);
    CHECK(arrivals()[0] == Unknown);
    report(first, u"+491711234567", 0);
    CHECK(arrivals() == std::vector<Arrival>{Delivered, Unknown, Unknown});
    host.Stop();
    host.Start();
    host.Pass(1);
    report(first + 1, u"+491729999999", 0x41);
    CHECK(arrivals() == std::vector<Arrival>{Delivered, Arrival::Failed, Unknown});

    // Of a part while the next one is being sent; the whole has arrived when both parts have.
    host.Enter(4, "01711234567\t" + std::string(200, 'x'));
    host.running->delivery.Look();
    host.clock.milliseconds += 10;
    host.timers.RunDue();
    host.carrier.listener->PartSent(first);
    report(first, u"+491711234567", 0);
    host.carrier.Work();
    CHECK(arrivals()[3] == Unknown);
    report(host.All(State::Sent)[3].networkReferences[1], u"01711234567", 2);
    CHECK(arrivals() == std::vector<Arrival>{Delivered, Arrival::Failed, Unknown, Delivered});
}

TEST_CASE("files of the spool: everything comes back, and what is damaged is told and kept") {
    SpooledSms sms;
    sms.recipient = u"+49171";
    sms.text = u"Tab\t \r\nResult=sent\r\n\r\n ж \xD83D\xDE00 \xDC00 " + Text(2, u'\0') + u" end ";
    sms.accepted = FromTimeStamp("2026-10-25 02:30:00.250");
    sms.reason = {u"Gateway", u"400 no"};
    sms.result = Result::TryAgain;
    sms.attempts = 3;
    sms.partsSent = 2;
    sms.networkReferences = {17, 255};
    sms.reports = {0, NoReport};
    sms.concatReference = 65535;
    const std::string file = ToFile(sms);
    CHECK(FromFile(file) == sms);
    CHECK(file.find("Accepted=2026-10-25 02:30:00.250\r\n") != std::string::npos);
    for (std::size_t length = 0; length < file.size(); ++length) {
        REQUIRE_FALSE(FromFile(file.substr(0, length)));
    }
    SenderHost host;
    host.Start();
    host.Pass(1);
    CHECK(!host.running->spool.Add(sms, u"a").empty());
    host.Stop();
    host.disk.files[SpoolFolder + u"waiting\\20260101-000000000-b-00001.sms"] = {file.substr(9)};
    host.disk.files[SpoolFolder + u"sending\\20260101-000000000-c-00001.sms"] = {""};
    host.Start();
    host.Pass(5);
    CHECK(host.Shown(State::Sent).size() == 1);
    CHECK(host.All(State::Failed)[0].reason.name == u"Damaged");
    CHECK(host.All(State::Unsure)[0].reason.name == u"Damaged");
}

TEST_CASE("many that wait lie in folders of their own, which go with them") {
    SenderHost host;
    host.mostInFolder = 2;
    host.carrier.away = {u"Unplugged", {}};
    const auto folders = [&] { return *host.disk.FolderNames(SpoolFolder + u"waiting\\"); };
    Texts inOrder;
    for (char number = '0'; number < '7'; ++number) {
        host.Enter(std::uint32_t(number), std::string("0171\t") + number);
        inOrder.push_back(u"0171 " + Text(1, char16_t(number)));
    }
    host.Start();
    host.Pass(1);
    CHECK((folders() == Texts{u"00001", u"00002", u"00003"}));
    host.Stop();
    // As the program kept them before it had such folders, and a folder of the user's own.
    const Text first = SpoolFolder + u"waiting\\20000101-000000000-a-00001.sms";
    SpooledSms old;
    old.recipient = u"0170";
    host.disk.files[first] = {ToFile(old)};
    host.disk.folders[SpoolFolder + u"waiting\\1"] = true;
    inOrder.insert(inOrder.begin(), u"0170");
    host.Start();
    host.Pass(1);
    CHECK(host.Shown(State::Waiting) == inOrder);
    host.carrier.away = {};
    host.carrier.listener->ReadinessChanged();
    host.Pass(20);
    CHECK(host.Shown(State::Sent) == inOrder);
    CHECK((folders() == Texts{u"1"}));
}

TEST_CASE("every call fails once: all goes out, once") {
    int runs = 0;
    for (int failAt = 1, calls = 1; failAt <= calls; ++failAt, ++runs) {
        CAPTURE(failAt);
        SenderHost host;
        host.mostInFolder = 1;
        EnterSome(host);
        host.platform.faults = {0, failAt};
        host.Start();
        host.Pass(120);
        host.running->delivery.Look();
        host.Pass(30);
        calls = host.platform.faults.calls;
        host.platform.faults = {};
        CheckAll(host, false);
    }
    MESSAGE("calls failed one by one: ", runs);
}

TEST_CASE("the program ends at every call: nothing is lost, nothing is sent twice") {
    int kills = 0;
    const auto run = [&](int failAt, int killAt, int failAfter, bool storeSent) {
        CAPTURE(failAt);
        CAPTURE(killAt);
        CAPTURE(failAfter);
        SenderHost host;
        host.storeSent = storeSent;
        host.mostInFolder = 1;
        EnterSome(host);
        host.platform.faults = {0, failAt, killAt};
        bool killed = false;
        try {
            host.Start();
            host.Pass(60);
        } catch (const Killed&) {
            killed = true;
        }
        host.Stop();
        host.platform.faults = {0, failAfter, 0};
        host.Start();
        host.Pass(120);
        host.platform.faults = {};
        host.running->delivery.Look();
        host.Pass(60);
        CheckAll(host, true);
        kills += killed;
        return killed;
    };
    for (int killAt = 1; run(0, killAt, 0, true); ++killAt) continue;
    // With a call that failed before, and one that fails at the next start; what was sent is
    // forgotten at once.
    std::minstd_rand numbers;
    for (int walk = 0; walk < 4000; ++walk) {
        const int failAt = int(numbers() % 160), killAt = failAt + 1 + int(numbers() % 60);
        run(failAt, killAt, int(numbers() % 60), false);
    }
    MESSAGE("ends of the program survived: ", kills);
}
