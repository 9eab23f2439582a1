// Outlook's contacts and mails as far as they tell recipients.
#pragma once

#include "platform/Object.h"
#include "recipients/Person.h"

namespace tellwick {

class Prefixes;

// Every call into Outlook may fail; what it would have given is then empty.
class Contacts {
public:
    Contacts(PendingError& errors, Automation& automation, Prefixes& prefixes);

    // A contact's number as the user's settings have it dialled: the mobile one, else the one at
    // home; empty when there is none.
    Text NumberOfContact(const ObjectPtr& contact);

    // What a contact is called.
    Person PersonOfContact(const ObjectPtr& contact);

    // A number as the user's settings have it dialled.
    Text Dialable(TextView number);

    // A mail's sender and body for whoever reads them without a question to the user: Redemption's
    // view of it; empty where that is not installed.
    ObjectPtr SafeMail(const ObjectPtr& mail);

    // The reply that Outlook prepares for a mail, not shown.
    ObjectPtr ReplyOf(const ObjectPtr& mail);

    // True while a mail is asked for its reply, which raises the mail's Reply event.
    bool AsksForReply() const { return asksForReply; }

private:
    bool asksForReply = false;

    PendingError& errors;
    Automation& automation;
    Prefixes& prefixes;
};

}  // namespace tellwick
