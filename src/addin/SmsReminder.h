// Reminders of appointments by SMS.
#pragma once

#include "platform/Outlook.h"
#include "platform/ProcessValues.h"
#include "recipients/RecipientLookup.h"

namespace tellwick {

class Clock;
class FormSmsSend;
class MessageText;
class ReminderText;

class SmsReminder {
public:
    SmsReminder(PendingError& errors, Automation& automation, const ProcessValues& processValues,
                Clock& clock, RecipientLookup& recipientLookup, const ReminderText& reminderText,
                FormSmsSend& formSmsSend, MessageText& messageText);

    // Opens the form with the text about the appointment and with whoever is to come to it. A form
    // that was open already keeps its recipients; a new one has no others.
    void Open(ObjectPtr appointment, RecipientLookup::Origin origin);

    // The same of the appointment that is selected in the active window of the application, or of
    // the running Outlook; in the versions whose appointments have no button of their own, with
    // nothing selected, of the one that is open. False when there is none.
    // Of several selected items the first one counts: each SMS is about one appointment.
    bool OpenSelected(const ObjectPtr& application);

private:
    ObjectPtr Selected(const ObjectPtr& application);

    PendingError& errors;
    Automation& automation;
    const ProcessValues& processValues;
    Clock& clock;
    RecipientLookup& recipientLookup;
    const ReminderText& reminderText;
    FormSmsSend& formSmsSend;
    MessageText& messageText;
};

}  // namespace tellwick
