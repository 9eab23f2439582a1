// Reminders of appointments by SMS.
#pragma once

#include "platform/Outlook.h"
#include "platform/ProcessValues.h"
#include "recipients/RecipientLookup.h"

namespace tellwick {

class AppointmentReminders;
class Clock;
class FormSmsSend;
class MessageText;
class ReminderText;

class SmsReminder {
public:
    SmsReminder(PendingError& errors, Automation& automation, const ProcessValues& processValues,
                Clock& clock, RecipientLookup& recipientLookup, AppointmentReminders& reminders,
                const ReminderText& reminderText, FormSmsSend& formSmsSend,
                MessageText& messageText);

    // Opens the form with the text about the appointment and with whoever is to come to it. A form
    // that was open already keeps its recipients; a new one has no others.
    void Open(ObjectPtr appointment, RecipientLookup::Origin origin);

    // The same of a selection. Where it has several items, each appointment becomes an SMS for each
    // of its people: the form's text has fields for what is another in each, and the recipients
    // follow when all have been read. False when the first one is no appointment; else the
    // reference is gone.
    bool OpenItems(ObjectPtr& items, RecipientLookup::Origin origin);

    // The same of what is selected in the active window of the application, or of the running
    // Outlook; in the versions whose appointments have no button of their own, with nothing
    // selected, of the appointment that is open.
    bool OpenSelected(const ObjectPtr& application);

private:
    void OpenAll(ObjectPtr items, RecipientLookup::Origin origin);
    void Reminders_Read();
    Text Fitting(TextView text) const;

    PendingError& errors;
    Automation& automation;
    const ProcessValues& processValues;
    Clock& clock;
    RecipientLookup& recipientLookup;
    AppointmentReminders& reminders;
    const ReminderText& reminderText;
    FormSmsSend& formSmsSend;
    MessageText& messageText;
};

}  // namespace tellwick
