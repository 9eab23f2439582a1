// The road of every SMS that arrives: from the modem into the spool, from the spool to where the
// user reads it. What nobody takes waits, however long.
#pragma once

#include <memory>
#include <set>
#include <string_view>

#include "delivery/Inbox.h"
#include "delivery/MailInbox.h"
#include "platform/Timer.h"

namespace tellwick::sender {

class Reception {
public:
    // The settings folder ends in "\".
    Reception(FileSystem& fileSystem, Clock& clock, TextView settingsFolder, MailInbox& mailInbox,
              Timers& timers);

    // From the modem; true when it is kept, see Inbox.
    bool Arrived(const ReceivedPart& part, std::string_view unit);

    void SetLimits(const ReadLimits& limits) { inbox.SetLimits(limits); }

private:
    bool Open();
    void Look();
    void LookAfter(std::uint32_t milliseconds);
    void HandOver();
    void Answered(const ReceivedSms& sms, Stored answer);

    Inbox inbox;
    bool open = false;
    MailInbox& mailInbox;
    std::unique_ptr<Timer> timer;
    bool underWay = false;
    // By the first file of each.
    std::set<Text> failed;  // in this round
    std::set<Text> tried;   // in another one, or by a former run
    std::set<Text> stored;  // and that not noted yet
    std::uint32_t pause;    // milliseconds until the next round
};

}  // namespace tellwick::sender
