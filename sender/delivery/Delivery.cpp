#include "delivery/Delivery.h"

#include <algorithm>
#include <utility>

#include "air/AirCount.h"
#include "spool/Recipients.h"
#include "spool/Times.h"

namespace tellwick::sender {

namespace {

constexpr double Second = 1.0 / (24 * 60 * 60);  // in days
constexpr double FirstPause = 5 * Second;
constexpr double LongestPause = 15 * 60 * Second;
constexpr double LongestTrying = 1;

constexpr std::size_t EntriesAtOnce = 500;
constexpr std::uint32_t AtOnce = 1;              // milliseconds
constexpr std::uint32_t BetweenLooks = 1000;     // at what could not be read
constexpr std::uint32_t AfterFailure = 5000;     // of a step of the spool's
constexpr std::uint32_t LongestSleep = 900'000;  // the clock may be set meanwhile

double PauseAfter(std::int32_t attempts) {
    double pause = FirstPause;
    for (; attempts > 1 && pause < LongestPause; --attempts) pause *= 2;
    return std::min(pause, LongestPause);
}

}  // namespace

Delivery::Delivery(QueueReader& queueReader, Spool& spool, Carrier& carrier, Clock& clock,
                   Timers& timers)
    : queueReader(queueReader),
      spool(spool),
      sentReports(spool),
      carrier(carrier),
      clock(clock),
      timer(timers.Create()),
      lastReference(std::int32_t(MillisecondsOf(clock.Now()) & 0xFFFF)) {
    carrier.SetListener(this);
}

Delivery::~Delivery() {
    carrier.SetListener(nullptr);
}

void Delivery::SetOn(bool newOn) {
    on = newOn;
    if (on) Look();
}

void Delivery::Look() {
    lookAtQueue = true;
    Wake(AtOnce);
}

void Delivery::Wake(std::uint32_t milliseconds) {
    const double at = clock.Milliseconds() + milliseconds;
    if (wakeAt != 0 && wakeAt <= at) return;
    wakeAt = at;
    timer->Start(milliseconds, [this] { Tick(); });
}

void Delivery::Tick() {
    timer->Stop();
    wakeAt = 0;
    open = open || spool.Open();
    if (!open || !spool.Settle()) Wake(AfterFailure);
    if (!open || !on) return;
    if (lookAtQueue) {
        switch (queueReader.Take(EntriesAtOnce)) {
            case QueueReader::Look::More:
                Wake(AtOnce);
                break;
            case QueueReader::Look::Again:
                Wake(BetweenLooks);
                break;
            case QueueReader::Look::Done:
                lookAtQueue = false;
        }
    }
    HandOverNext();
}

void Delivery::HandOverNext() {
    while (on && open && current.empty() && queueReader.LookedThrough() && carrier.Ready()) {
        const Text id = spool.Next();
        if (id.empty()) break;
        std::optional<SpooledSms> begun = spool.Begin(id);
        if (!begun) continue;
        const std::size_t parts = CountOnAir(begun->text).parts.size();
        if (!CanBeDialled(begun->recipient) || parts > MostParts) {
            const bool tooLong = parts > MostParts;
            begun->result = Result::Failed;
            begun->reason = {Text(tooLong ? reason::TooLong : reason::NoNumber), {}};
            spool.Finish(id, std::move(*begun));
            continue;
        }
        current = id;
        sms = std::move(*begun);
        severalParts = parts > 1;
        if (sms.firstTried == 0) sms.firstTried = clock.Now();
        if (sms.concatReference == 0) {
            lastReference = lastReference % 0xFFFF + 1;
            sms.concatReference = lastReference;
        }
        carrier.HandOver({sms.recipient, sms.text, sms.partsSent, sms.concatReference});
    }
    if (!on || !open) return;
    if (const std::optional<double> later = spool.UntilNextTry()) {
        const double milliseconds = *later / Second * 1000 + 1;
        Wake(std::uint32_t(std::min(milliseconds, double(LongestSleep))));
    }
}

void Delivery::PartSent(std::int32_t networkReference) {
    if (current.empty()) return;
    ++sms.partsSent;
    sms.networkReferences.push_back(networkReference);
    // The answer for one that is alone comes at once.
    if (severalParts) spool.Record(current, sms);
}

void Delivery::Answered(const Outcome& outcome) {
    if (current.empty()) return;
    sms.reason = outcome.reason;
    switch (outcome.kind) {
        case Outcome::Kind::Sent:
            sms.result = Result::Sent;
            sms.finished = clock.Now();
            sentReports.Sent(current, sms);
            break;
        case Outcome::Kind::Transient:
            TryLater(outcome);
            break;
        case Outcome::Kind::Permanent:
            sms.result = Result::Failed;
            sms.finished = clock.Now();
            break;
        case Outcome::Kind::Unsure:
            sms.result = Result::Unsure;
            sms.finished = clock.Now();
            break;
    }
    const Text id = std::exchange(current, {});
    spool.Finish(id, std::move(sms));
    if (!spool.Settle()) Wake(AfterFailure);
    HandOverNext();
}

void Delivery::TryLater(const Outcome& outcome) {
    const double now = clock.Now();
    sms.result = Result::TryAgain;
    if (outcome.away) {
        sms.nextTry = now + FirstPause;
        return;
    }
    ++sms.attempts;
    sms.nextTry = now + PauseAfter(sms.attempts);
    if (now - sms.firstTried < LongestTrying) return;
    sms.result = Result::Failed;
    sms.finished = now;
    sms.nextTry = 0;
    sms.reason = TooOldBecause(outcome.reason);
}

void Delivery::Reported(const StatusReport& report) {
    if (!current.empty() && SentReports::Note(report, sms)) return;
    if (open) sentReports.Reported(report);
}

void Delivery::ReadinessChanged() {
    HandOverNext();
}

}  // namespace tellwick::sender
