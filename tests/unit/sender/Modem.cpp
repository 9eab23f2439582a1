// The dialogue with a modem: its start, what it answers, when it is cut, and what it receives.
#include <doctest.h>

#include <algorithm>
#include <utility>

#include "carrier/Modem.h"
#include "delivery/PinKeeper.h"
#include "unit/SettingsModules.h"
#include "unit/sender/MemorySecrets.h"

using namespace tellwick;
using namespace tellwick::sender;

namespace {

using Kind = Outcome::Kind;

constexpr std::string_view Hello =
    "07917283010010F5040BC87238880900F10000993092516195800AE8329BFD4697D9EC37";

// The other end of the line, and who listens to the modem.
struct Desk : BytePort, CarrierListener, ModemListener {
    Desk() { modem.SetListener(this); }

    void Write(std::string_view bytes) override { written += bytes; }
    std::size_t Unsent() const override { return unsent; }

    void PartSent(std::int32_t reference) override { references.push_back(reference); }
    void Answered(const Outcome& outcome) override { outcomes.push_back(outcome); }
    void ReadinessChanged() override {}
    bool Arrived(const ReceivedPart& part, std::string_view) override {
        arrived.push_back(part.text);
        return durable;
    }
    void Reported(const StatusReport& report) override {
        reported.push_back(report.networkReference);
    }

    // Answers what was written, until nothing is.
    void Talk() {
        while (!written.empty()) {
            const std::size_t end = written.find_first_of("\r\x1A\x1B");
            REQUIRE(end != std::string::npos);
            const char last = written[end];
            const std::string line = written.substr(0, end);
            written.erase(0, end + 1);
            if (std::exchange(taking, taking && last != '\x1B')) continue;
            if (last == '\x1A') units.push_back(line);
            if (last == '\r') commands.push_back(line);
            if (echo) modem.Received(line + (last == '\r' ? "\r" : "\x1A\r\n"));
            modem.Received(between);
            if (last == '\x1A') {
                modem.Received(answer);
            } else if (last == '\x1B') {
                modem.Received("\r\nOK\r\n");
            } else if (line.starts_with("AT+CMGS=")) {
                modem.Received(prompt);
            } else {
                const auto special = answers.find(line);
                modem.Received(special == answers.end() ? "\r\nOK\r\n" : special->second);
            }
        }
    }
    void Start() {
        modem.Plugged(*this);
        Talk();
    }
    void Pass(int seconds) {
        for (; seconds > 0; --seconds) {
            platform.clock.milliseconds += 1000;
            platform.timers.RunDue();
            Talk();
        }
    }
    void Send(const Text& text) {
        REQUIRE(modem.Ready());
        modem.HandOver({u"+49171234567", text, 0, 5});
        Talk();
    }
    bool Asked(std::string_view command) const {
        return std::find(commands.begin(), commands.end(), command) != commands.end();
    }

    test::MemoryPlatform platform;
    Modem modem{platform.timers, *this};
    std::string written, between;
    std::string prompt = "\r\n> ", answer = "\r\n+CMGS: 17\r\n\r\nOK\r\n";
    std::map<std::string, std::string> answers{{"AT+CPIN?", "\r\n+CPIN: READY\r\n\r\nOK\r\n"},
                                               {"AT+CREG?", "\r\n+CREG: 0,1\r\n\r\nOK\r\n"},
                                               {"AT+CSQ", "\r\n+CSQ: 21,99\r\n\r\nOK\r\n"}};
    std::vector<std::string> commands, units;
    std::vector<std::int32_t> references, reported;
    std::vector<Outcome> outcomes;
    std::vector<Text> arrived;
    std::size_t unsent = 0;
    bool echo = false, durable = true;
    bool taking = false;  // what comes for the text of an SMS
};

}  // namespace

TEST_CASE("a modem starts and sends, whatever stands between its answers") {
    for (const bool echo : {false, true}) {
        for (const std::string between : {"", "\xFF\x01garbage\r\n", "\r\n^RSSI:17\r\n",
                                          "\r\nRING\r\n", "\r\n+CMTI: \"SM\",x\r\n"}) {
            CAPTURE(between);
            Desk desk;
            desk.echo = echo;
            desk.between = between;
            desk.Start();
            CHECK(desk.modem.SignalStrength() == 21);
            desk.Send(Text(200, u'x'));
            CHECK(desk.references == std::vector<std::int32_t>{17, 17});
            REQUIRE(desk.outcomes.size() == 1);
            CHECK(desk.outcomes[0].kind == Kind::Sent);
            CHECK(desk.units.size() == 2);
            CHECK(desk.commands.back() ==
                  "AT+CMGS=" + std::to_string(desk.units[1].size() / 2 - 1));
        }
    }
}

TEST_CASE("what a modem's answer means for an SMS") {
    struct Case {
        std::string prompt, answer;
        Kind kind;
        bool away = false;
    };
    for (const Case& c : {Case{"\r\n> ", "\r\n+CMS ERROR: 42\r\n", Kind::Transient},
                          {"\r\n> ", "\r\n+CMS ERROR: 512\r\n", Kind::Transient},
                          {"\r\n> ", "\r\n+CMS ERROR: 21\r\n", Kind::Permanent},
                          {"\r\n> ", "\r\n+CMS ERROR: 304\r\n", Kind::Permanent},
                          {"\r\n> ", "\r\n+CMS ERROR: 331\r\n", Kind::Transient, true},
                          {"\r\n> ", "\r\n+CME ERROR: 10\r\n", Kind::Transient, true},
                          {"\r\n> ", "\r\nERROR\r\n", Kind::Transient},
                          {"\r\n+CMS ERROR: 500\r\n", "", Kind::Transient},
                          {"\r\n> ", "\r\nOK\r\n", Kind::Sent},
                          // The reference says it already.
                          {"\r\n> ", "\r\n+CMGS: 4\r\n", Kind::Sent},
                          {"\r\n> ", "", Kind::Unsure, true},
                          {"", "", Kind::Transient, true}}) {
        CAPTURE(c.prompt);
        CAPTURE(c.answer);
        Desk desk;
        desk.Start();
        desk.prompt = c.prompt;
        desk.answer = c.answer;
        desk.Send(u"x");
        desk.Pass(121);
        REQUIRE(desk.outcomes.size() == 1);
        CHECK(desk.outcomes[0].kind == c.kind);
        CHECK(desk.outcomes[0].away == c.away);
        CHECK(desk.references.size() == (c.kind == Kind::Sent ? 1U : 0U));
        // And goes on, once it answers again.
        desk.prompt = "\r\n> ";
        desk.answer = "\r\n+CMGS: 5\r\n\r\nOK\r\n";
        desk.Pass(20);
        desk.Send(u"y");
        CHECK(desk.outcomes.back().kind == Kind::Sent);
    }
}

TEST_CASE("a modem that waits for the text of a program that has ended sends what comes next") {
    Desk desk;
    desk.taking = true;
    desk.Start();
    desk.Pass(10);
    desk.Send(u"x");
    REQUIRE(desk.outcomes.size() == 1);
    CHECK(desk.outcomes[0].kind == Kind::Sent);
}

TEST_CASE("unplugged at every byte: unsure only when the unit may be out") {
    Desk whole;
    whole.Start();
    whole.Send(u"Hello");
    const std::size_t length = whole.units[0].size() + 1;
    for (std::size_t out = 0; out <= length; ++out) {
        CAPTURE(out);
        Desk desk;
        desk.Start();
        desk.modem.HandOver({u"+49171234567", u"Hello", 0, 5});
        desk.written.clear();
        desk.modem.Received("\r\n> ");
        CHECK(desk.written.size() == length);
        desk.unsent = length - out;
        desk.modem.Unplugged();
        REQUIRE(desk.outcomes.size() == 1);
        CHECK(desk.outcomes[0].kind == (out == length ? Kind::Unsure : Kind::Transient));
        CHECK(desk.modem.Away().name == reason::Unplugged);
        desk.unsent = 0;
        desk.written.clear();
        desk.Start();
        CHECK(desk.modem.Ready());
    }
    // Between two parts: the first one is known to be sent.
    Desk desk;
    desk.Start();
    desk.modem.HandOver({u"+49171234567", Text(200, u'x'), 0, 5});
    desk.modem.Received("\r\n> ");
    desk.modem.Received("\r\n+CMGS: 9\r\n\r\nOK\r\n");
    desk.modem.Unplugged();
    CHECK(desk.references == std::vector<std::int32_t>{9});
    CHECK(desk.outcomes[0].kind == Kind::Transient);
}

TEST_CASE("what lies on the SIM and what comes is handed on, and deleted once it is kept") {
    for (const bool durable : {true, false}) {
        Desk desk;
        desk.durable = durable;
        const std::string unit(Hello);
        desk.answers["AT+CMGL=4"] =
            "\r\n+CMGL: 3,1,,27\r\n" + unit + "\r\n+CMGL: 4,2,,27\r\n" + unit + "\r\n\r\nOK\r\n";
        desk.answers["AT+CMGR=7"] = "\r\n+CMGR: 0,,27\r\n" + unit + "\r\n\r\nOK\r\n";
        desk.Start();
        CHECK(desk.arrived == std::vector<Text>{u"hellohello"});
        CHECK(desk.Asked("AT+CMGD=3") == durable);
        // While a part is under way, with a report between the lines of its answer.
        desk.modem.HandOver({u"+49171234567", u"Hello", 0, 5});
        desk.modem.Received("\r\n+CMTI: \"ME\",7\r\n");
        desk.answer =
            "\r\n+CMGS: 17\r\n+CDS: 25\r\n"
            "0006170B919471214365F7621122317000046211223180000400\r\n\r\nOK\r\n";
        desk.Talk();
        CHECK(desk.outcomes[0].kind == Kind::Sent);
        CHECK(desk.reported == std::vector<std::int32_t>{17 + 6});
        CHECK(desk.Asked("AT+CPMS=\"ME\""));
        CHECK(desk.arrived.size() == 2);
        CHECK(desk.Asked("AT+CMGD=7") == durable);
        CHECK_FALSE(desk.Asked("AT+CMGD=4"));
        CHECK(desk.modem.Ready());
    }
}

TEST_CASE("a PIN is tried once; without SIM, PIN or network nothing is sent") {
    Desk desk;
    desk.answers["AT+CPIN?"] = "\r\n+CPIN: SIM PIN\r\n\r\nOK\r\n";
    desk.answers["AT+CPIN=\"1111\""] = "\r\n+CME ERROR: 16\r\n";
    desk.Start();
    CHECK(desk.modem.Away().name == reason::NeedsPin);
    desk.modem.SetPin(u"1111");
    desk.Pass(60);
    CHECK(desk.modem.Away().name == reason::WrongPin);
    CHECK(std::count(desk.commands.begin(), desk.commands.end(), "AT+CPIN=\"1111\"") == 1);
    desk.modem.SetPin(u"2222\r");
    desk.Pass(10);
    CHECK_FALSE(desk.modem.Ready());
    desk.modem.SetPin(u"2222");
    desk.Pass(1);
    desk.answers["AT+CPIN?"] = "\r\n+CPIN: READY\r\n\r\nOK\r\n";
    desk.Pass(10);
    CHECK(desk.modem.Ready());
    // The network goes, and comes.
    desk.answers["AT+CREG?"] = "\r\n+CREG: 0,2\r\n\r\nOK\r\n";
    desk.Pass(31);
    CHECK(desk.modem.Away().name == reason::NoNetwork);
    desk.answers["AT+CREG?"] = "\r\n+CREG: 0,5\r\n\r\nOK\r\n";
    desk.Pass(10);
    CHECK(desk.modem.Ready());
    desk.modem.Unplugged();
    desk.answers["AT+CPIN?"] = "\r\n+CPIN: SIM PUK\r\n\r\nOK\r\n";
    desk.Start();
    desk.modem.SetPin(u"2222");
    desk.Pass(30);
    CHECK(desk.modem.Away().name == reason::NeedsPuk);
    CHECK(std::count(desk.commands.begin(), desk.commands.end(), "AT+CPIN=\"2222\"") == 1);
}

TEST_CASE("a kept PIN is tried once and then in no store, until one was right") {
    Desk desk;
    test::MemorySecrets secrets;
    Text& kept = secrets.kept[Text(secret::Pin)] = u"1111";
    PinKeeper keeper(desk.modem, secrets, desk.platform.timers);
    const auto tried = [&](std::string_view pin) {
        const std::string command = "AT+CPIN=\"" + std::string(pin) + "\"";
        return std::count(desk.commands.begin(), desk.commands.end(), command);
    };
    desk.answers["AT+CPIN?"] = "\r\n+CPIN: SIM PIN\r\n\r\nOK\r\n";
    desk.answers["AT+CPIN=\"1111\""] = "\r\n+CME ERROR: 16\r\n";
    // One that cannot be taken out would be tried again at the next start.
    secrets.works = false;
    keeper.Watch(true);
    desk.Start();
    desk.Pass(20);
    CHECK(keeper.Asks());
    CHECK(tried("1111") == 0);
    secrets.works = true;
    desk.Pass(60);
    CHECK(tried("1111") == 1);
    CHECK(kept.empty());
    CHECK(keeper.Asks());
    CHECK_FALSE(keeper.Enter(u"123"));
    CHECK(keeper.Enter(u"2222"));
    CHECK_FALSE(keeper.Asks());
    // Pulled out before it was tried, it is tried when it comes back.
    desk.modem.Unplugged();
    desk.Pass(10);
    desk.Start();
    desk.answers["AT+CPIN?"] = "\r\n+CPIN: READY\r\n\r\nOK\r\n";
    desk.Pass(20);
    CHECK(tried("2222") == 1);
    CHECK(kept == u"2222");
    CHECK(desk.modem.Ready());
    CHECK_FALSE(keeper.Asks());
}
