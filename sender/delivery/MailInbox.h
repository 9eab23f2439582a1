// Port: the inbox where the user reads SMS as mails.
#pragma once

#include <functional>

#include "delivery/Inbox.h"

namespace tellwick::sender {

// Of one SMS. Away: nobody takes any now. Failed: not this one, not now; nothing of it is there.
enum class Stored { Done, Away, Failed };

class MailInbox {
public:
    virtual ~MailInbox() = default;

    // One at a time. The answer never comes from within the call, and exactly once. What was tried
    // before, by this run of the program or a former one, may be there already, whole or in part.
    virtual void Store(const ReceivedSms& sms, bool triedBefore,
                       std::function<void(Stored)> answer) = 0;
};

}  // namespace tellwick::sender
