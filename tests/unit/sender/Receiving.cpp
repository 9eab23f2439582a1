// What arrives is kept until it is where the user reads it, whenever the program ends.
#include <doctest.h>

#include "delivery/Inbox.h"
#include "unit/SettingsModules.h"
#include "unit/sender/Units.h"

using namespace tellwick;
using namespace tellwick::sender;

namespace {

constexpr TextView Number = u"+49171234567";

struct Desk : test::MemoryPlatform {
    Desk() { clock.now = 46348.5; }  // the day of the units

    // The parts of a text reach the SIM, the last one first.
    void Arrive(const Text& text, std::int32_t reference) {
        for (const Pdu& pdu : WriteSubmit(Number, text, reference, {})) {
            sim.insert(sim.begin(), test::Delivered(pdu));
        }
    }
    // The program runs until there is nothing left to do.
    void Run() {
        Inbox inbox(fileSystem, clock, u"C:\\Data\\");
        while (!inbox.Open()) continue;
        for (std::size_t left = sim.size(); left > 0; --left) {
            const auto part = std::get<ReceivedPart>(ReadPdu(sim.front()));
            if (!inbox.Keep(part, sim.front())) sim.push_back(sim.front());
            faults.Hit();
            sim.erase(sim.begin());
        }
        for (const ReceivedSms& sms : inbox.Whole()) {
            ++read[sms.text];
            faults.Hit();
            inbox.Done(sms);
        }
    }

    std::vector<std::string> sim;
    std::map<Text, int> read;
};

}  // namespace

TEST_CASE("every call fails once or is the last one: each SMS is read, whole, and as a rule once") {
    const Text longOne = Text(400, u'x') + u"€";
    int runs = 0;
    for (const bool kill : {false, true}) {
        for (int at = 1, calls = 1; at <= calls; ++at, ++runs) {
            CAPTURE(kill);
            CAPTURE(at);
            Desk desk;
            desk.Arrive(longOne, 7);
            desk.Arrive(u"short", 0);
            (kill ? desk.faults.killAt : desk.faults.failAt) = at;
            try {
                desk.Run();
            } catch (const test::Killed&) {
            }
            calls = kill && desk.faults.calls == at ? at + 1 : desk.faults.calls;
            desk.faults = {};
            // The same reference comes again; and so does what the SIM did not forget.
            desk.Run();
            desk.Arrive(Text(400, u'y'), 7);
            desk.Run();
            desk.Run();
            REQUIRE(desk.read.size() == 3);
            int twice = 0;
            for (const auto& [text, times] : desk.read) twice += times - 1;
            REQUIRE(twice <= 1);
            CHECK(desk.sim.empty());
            CHECK(desk.fileSystem.FileNames(u"C:\\Data\\Spool\\received\\", u".pdu").empty());
        }
    }
    MESSAGE("calls failed or the last ones: ", runs);
}

TEST_CASE("a part that never comes is given up after a day, one that comes again is known") {
    Desk desk;
    desk.Arrive(Text(400, u'x'), 7);
    const std::vector<std::string> all = desk.sim;
    desk.sim.erase(desk.sim.begin() + 1);
    desk.Run();
    CHECK(desk.read.empty());
    desk.clock.now += 1.1;
    desk.Run();
    CHECK(desk.read == std::map<Text, int>{{Text(153, u'x') + u"[...]" + Text(94, u'x'), 1}});
    desk.sim = {all[0], all[2]};
    desk.Run();
    CHECK(desk.read.size() == 1);
    CHECK(desk.sim.empty());
}
