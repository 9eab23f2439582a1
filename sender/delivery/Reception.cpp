#include "delivery/Reception.h"

#include <algorithm>

namespace tellwick::sender {

namespace {

constexpr std::uint32_t AtOnce = 1;  // milliseconds
constexpr std::uint32_t BetweenTries = 5000;
constexpr std::uint32_t LongestPause = 900'000;
constexpr std::uint32_t BetweenLooksAtParts = 900'000;

}  // namespace

Reception::Reception(FileSystem& fileSystem, Clock& clock, TextView settingsFolder,
                     MailInbox& mailInbox, Timers& timers)
    : inbox(fileSystem, clock, settingsFolder),
      mailInbox(mailInbox),
      timer(timers.Create()),
      pause(BetweenTries) {
    Open();
    LookAfter(AtOnce);
}

bool Reception::Open() {
    if (open) return true;
    open = inbox.Open();
    // A former run may have come as far as Outlook with these.
    if (open) {
        for (const ReceivedSms& sms : inbox.Whole()) tried.insert(sms.files.front());
    }
    return open;
}

bool Reception::Arrived(const ReceivedPart& part, std::string_view unit) {
    if (!Open() || !inbox.Keep(part, unit)) return false;
    LookAfter(AtOnce);
    return true;
}

void Reception::LookAfter(std::uint32_t milliseconds) {
    timer->Start(milliseconds, [this] { Look(); });
}

void Reception::Look() {
    timer->Stop();
    if (underWay) return;
    failed.clear();
    if (Open()) {
        HandOver();
    } else {
        LookAfter(BetweenTries);
    }
}

// One that cannot be handed over now holds up none of the others.
void Reception::HandOver() {
    const std::vector<ReceivedSms> whole = inbox.Whole();
    const auto next = std::find_if(whole.begin(), whole.end(), [this](const ReceivedSms& sms) {
        return !failed.contains(sms.files.front());
    });
    if (next != whole.end()) {
        underWay = true;
        const bool isThere = stored.contains(next->files.front());
        const auto answer = [this, sms = *next](Stored stored) { Answered(sms, stored); };
        if (isThere) {
            answer(Stored::Done);
        } else {
            mailInbox.Store(*next, tried.contains(next->files.front()), answer);
        }
    } else if (!whole.empty()) {
        LookAfter(pause);
        pause = std::min(2 * pause, LongestPause);
    } else if (!inbox.Empty()) {
        LookAfter(BetweenLooksAtParts);
    }
}

void Reception::Answered(const ReceivedSms& sms, Stored answer) {
    const Text& first = sms.files.front();
    underWay = false;
    if (answer == Stored::Away) {
        LookAfter(BetweenTries);
        return;
    }
    if (answer == Stored::Done) {
        stored.insert(first);
        if (inbox.Done(sms)) {
            stored.erase(first);
            tried.erase(first);
            pause = BetweenTries;
        } else {
            failed.insert(first);
        }
    } else {
        failed.insert(first);
        tried.insert(first);
    }
    HandOver();
}

}  // namespace tellwick::sender
