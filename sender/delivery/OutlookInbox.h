// Puts an SMS into the inbox of the Outlook that runs, as a mail that the add-in knows as an SMS.
#pragma once

#include "delivery/MailInbox.h"
#include "platform/Object.h"

namespace tellwick::sender {

class OutlookInbox {
public:
    OutlookInbox(PendingError& errors, Automation& automation)
        : errors(errors), automation(automation) {}

    // Outlook is never started for it. What a failing call leaves behind is deleted again; and what
    // cannot be, or an end of the program leaves there, is found and finished when it is tried
    // again.
    Stored Put(const ReceivedSms& sms, bool triedBefore);

private:
    ObjectPtr NewMail(const ObjectPtr& inbox, const ReceivedSms& sms, const ObjectPtr& safeItem);
    ObjectPtr FormerOne(const ObjectPtr& inbox, const ReceivedSms& sms);
    ObjectPtr Reopened(const ObjectPtr& session, ObjectPtr item);

    PendingError& errors;
    Automation& automation;
};

// What a list of mails shows of it: its first line, or the beginning of that.
Text SubjectOf(const ReceivedSms& sms);

}  // namespace tellwick::sender
