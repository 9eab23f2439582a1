// Outlook's contacts as recipients.
#pragma once

#include <vector>

#include "platform/Object.h"
#include "platform/ProcessValues.h"

namespace tellwick {

class Addresses;
class Prefixes;

// Every call into Outlook may fail; what it would have given is then left out.
class Contacts {
public:
    Contacts(PendingError& errors, Automation& automation, const ProcessValues& processValues,
             Prefixes& prefixes, Addresses& addresses);

    // The numbers of what is selected in the application's active window, each once, separated by
    // ";". Attaches to the running Outlook when no application is given.
    Text SelectedRecipients(const ObjectPtr& application);

    // The same of a collection of items, such as a selection.
    Text RecipientsIn(const ObjectPtr& items);

    // The number of one item: a contact's, or that of the sender of a mail; empty when there is
    // none.
    Text RecipientOf(const ObjectPtr& item);

    // A mail's sender and body for whoever reads them without a question to the user: Redemption's
    // view of it; empty where that is not installed.
    ObjectPtr SafeMail(const ObjectPtr& mail);

    // The reply that Outlook prepares for a mail, not shown.
    ObjectPtr ReplyOf(const ObjectPtr& mail);

    // True while a mail is asked for its reply, which raises the mail's Reply event.
    bool AsksForReply() const { return asksForReply; }

private:
    // Whether Outlook trusts the program with what it reaches from there.
    enum class Origin { Connection, RunningObject };

    Text RecipientsFrom(const ObjectPtr& items, Origin origin);
    Text RecipientFrom(const ObjectPtr& item, Origin origin);
    Text Dialable(TextView number);
    Text NumberForMail(const ObjectPtr& mail, Origin origin);
    Text NumberOfPersonIn(TextView text);
    void LendApplicationOf(const ObjectPtr& object);

    bool asksForReply = false;

    PendingError& errors;
    Automation& automation;
    const ProcessValues& processValues;
    Prefixes& prefixes;
    Addresses& addresses;
};

}  // namespace tellwick
