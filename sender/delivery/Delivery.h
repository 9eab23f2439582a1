// The road of every SMS: from the queue into the spool, from the spool to the carrier, and what
// becomes of it. Works in slices of the message loop, woken by timers and by the carrier.
//
// A transient failure is tried again after 5 seconds, then after pauses that double up to 15
// minutes, for a day after the first try; the others go on meanwhile. A permanent one fails at
// once. A carrier that is away holds everything, and costs no SMS an attempt.
#pragma once

#include <cstdint>
#include <memory>

#include "carrier/Carrier.h"
#include "delivery/SentReports.h"
#include "platform/Clock.h"
#include "platform/Timer.h"
#include "spool/QueueReader.h"
#include "spool/Spool.h"

namespace tellwick::sender {

class Delivery : private CarrierListener {
public:
    // The carrier's listener as long as this exists.
    Delivery(QueueReader& queueReader, Spool& spool, Carrier& carrier, Clock& clock,
             Timers& timers);
    ~Delivery() override;
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

    // The switch. Off: nothing is taken from the queue and nothing is handed over; what is under
    // way is carried to its end.
    void SetOn(bool newOn);
    bool On() const { return on; }

    // There may be something new in the queue or in the spool. The work begins with the next tick.
    void Look();

    // What the network says of one that was sent, or of a part of the one under way.
    void Reported(const StatusReport& report);

    // Whether one is with the carrier.
    bool UnderWay() const { return !current.empty(); }

private:
    void PartSent(std::int32_t networkReference) override;
    void Answered(const Outcome& outcome) override;
    void ReadinessChanged() override;

    void Wake(std::uint32_t milliseconds);
    void Tick();
    void HandOverNext();
    void TryLater(const Outcome& outcome);

    QueueReader& queueReader;
    Spool& spool;
    SentReports sentReports;
    Carrier& carrier;
    Clock& clock;
    std::unique_ptr<Timer> timer;

    bool on = false;
    bool open = false;  // the spool
    bool lookAtQueue = true;
    Text current;    // id of the one that is with the carrier
    SpooledSms sms;  // and itself
    bool severalParts = false;
    std::int32_t lastReference = 0;
    double wakeAt = 0;  // Clock::Milliseconds; 0: asleep
};

}  // namespace tellwick::sender
