// The sender over the platform in memory, with a network that remembers what it was given.
#pragma once

#include <doctest.h>

#include <map>
#include <memory>

#include "delivery/Delivery.h"
#include "recipients/Prefixes.h"
#include "unit/SettingsModules.h"

namespace tellwick::test {

using namespace sender;

inline const Text Queue = Text(RootKey) + u"\\SMSQueue";
inline const Text SpoolFolder = u"C:\\Data\\Tellwick\\Spool\\";

class MemoryQueueValues : public QueueValues {
public:
    explicit MemoryQueueValues(MemoryPlatform& platform) : platform(platform) {}
    std::optional<std::vector<Text>> Names() override {
        if (platform.faults.Hit()) return {};
        std::vector<Text> names;
        const Text path = u"80000001\\" + Queue + u"\\";
        for (const auto& [name, value] : platform.registry.values) {
            if (StartsWithFolded(name, path)) names.push_back(name.substr(path.size()));
        }
        return names;
    }
    std::optional<Text> Read(TextView name) override {
        return platform.registry.Read(Hive::CurrentUser, Queue, name);
    }
    bool Delete(TextView name) override {
        return platform.registry.DeleteValue(Hive::CurrentUser, Queue, name);
    }

private:
    MemoryPlatform& platform;
};

// What reaches it counts as sent whatever becomes of the sender.
class MemoryCarrier : public Carrier {
public:
    explicit MemoryCarrier(MemoryPlatform& platform) : platform(platform) {}
    void SetListener(CarrierListener* newListener) override { listener = newListener; }
    bool Ready() const override { return !underWay && away.name.empty(); }
    Reason Away() const override { return away; }
    void HandOver(const OutgoingSms& sms) override {
        platform.faults.Hit();
        underWay = sms;
    }
    // Answers, as the script for the text says: its outcomes one after the other, then Sent.
    void Work() {
        if (!underWay) return;
        const OutgoingSms sms = *std::exchange(underWay, {});
        std::vector<Outcome>& outcomes = script[sms.text];
        Outcome outcome;
        if (!outcomes.empty()) {
            outcome = outcomes.front();
            outcomes.erase(outcomes.begin());
        }
        using Kind = Outcome::Kind;
        if (outcome.kind == Kind::Sent || outcome.kind == Kind::Unsure)
            ++received[{sms.recipient, sms.text}];
        platform.faults.Hit();
        if (outcome.kind == Kind::Sent) listener->PartSent(++reference);
        listener->Answered(outcome);
    }
    // A program that ended hears no answer.
    void Drop() { underWay.reset(); }

    std::map<std::pair<Text, Text>, int> received;
    std::map<Text, std::vector<Outcome>> script;
    Reason away;
    std::optional<OutgoingSms> underWay;
    CarrierListener* listener = nullptr;

private:
    MemoryPlatform& platform;
    int reference = 0;
};

struct SenderHost : SettingsModules {
    SenderHost() { disk.folders[u"C:\\Data\\Tellwick"] = true; }

    struct Running {
        explicit Running(SenderHost& host)
            : spool(host.disk, host.clock, u"C:\\Data\\Tellwick\\", host.mostInFolder),
              reader(host.values, host.disk, host.locale, host.clock, host.prefixes, spool),
              delivery(reader, spool, host.carrier, host.clock, host.timers) {
            if (!host.storeSent) spool.SetLimits({false, 0});
        }
        Spool spool;
        QueueReader reader;
        Delivery delivery;
    };

    void Enter(std::uint32_t number, std::string_view contents) {
        const Text path = u"C:\\Temp\\sms" + HexText(number) + u".tmp";
        SetFile(path, contents);
        SetRegistry(Queue, NumberText(number), path);
        SetRegistry(Queue, u"cOut", NumberText(number));
    }
    void Start() {
        running = std::make_unique<Running>(*this);
        running->delivery.SetOn(true);
    }
    void Stop() {
        running.reset();
        carrier.Drop();
    }
    // So many seconds.
    void Pass(int seconds) {
        for (; seconds > 0; --seconds) {
            clock.milliseconds += 1000;
            clock.now += 1.0 / 86400;
            timers.RunDue();
            carrier.Work();
        }
    }
    std::vector<SpooledSms> All(State state) {
        std::vector<SpooledSms> all;
        for (const Text& id : running->spool.Ids(state)) {
            all.push_back(running->spool.Load(state, id).value());
        }
        return all;
    }
    // "recipient text reason" of each.
    std::vector<Text> Shown(State state) {
        std::vector<Text> shown;
        for (const SpooledSms& sms : All(state)) {
            shown.push_back(
                Trimmed(sms.recipient + u" " + sms.text.substr(0, 20) + u" " + sms.reason.name));
        }
        return shown;
    }

    MemoryClock& clock = platform.clock;
    MemoryLocale& locale = platform.locale;
    MemoryTimers& timers = platform.timers;
    Prefixes prefixes{debug, inifilesLite, language};
    MemoryQueueValues values{platform};
    MemoryCarrier carrier{platform};
    bool storeSent = true;
    std::size_t mostInFolder = 256;
    std::unique_ptr<Running> running;
};

}  // namespace tellwick::test
