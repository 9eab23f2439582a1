// Outlook's contacts as recipients.
#pragma once

#include <vector>

#include "platform/Object.h"
#include "recipients/AddressList.h"

namespace tellwick {

class Prefixes;

// Every call into Outlook may fail; what it would have given is then left out.
class Contacts {
public:
    Contacts(PendingError& errors, Automation& automation, Prefixes& prefixes);

    // The entries of the default contacts folder, read from Outlook on first use and kept until
    // the release.
    const AddressList& Addresses();

    // The numbers of what is selected in the application's active window, separated by ";". Takes
    // the running Outlook when no application is given.
    Text SelectedRecipients(const ObjectPtr& application);

    // Lets Outlook go.
    void Release();

private:
    Text NumberOf(const ObjectPtr& contact);
    Text NumberForMail(const ObjectPtr& mail);

    ObjectPtr application;
    ObjectPtr nameSpace;
    bool loaded = false;
    AddressList addresses;

    PendingError& errors;
    Automation& automation;
    Prefixes& prefixes;
};

}  // namespace tellwick
