// Outlook's inbox from a thread of its own: however long Outlook takes to answer, the window does
// not wait for it.
#pragma once

#include "delivery/MailInbox.h"
#include "windows/MainThread.h"

namespace tellwick::sender {

class OutlookThread : public MailInbox {
public:
    explicit OutlookThread(const MainThread& mainThread) : mainThread(mainThread) {}
    void Store(const ReceivedSms& sms, bool triedBefore,
               std::function<void(Stored)> answer) override;

private:
    MainThread mainThread;
};

}  // namespace tellwick::sender
