#include "addin/SmsReminder.h"

#include <utility>

#include "compose/FormSmsSend.h"
#include "compose/MailExcerpt.h"
#include "compose/MessageText.h"
#include "compose/ReminderText.h"
#include "platform/Clock.h"
#include "platform/OutlookEvents.h"
#include "recipients/AppointmentReader.h"
#include "recipients/AppointmentReminders.h"

namespace tellwick {

namespace {
constexpr std::int32_t FirstWithOwnButton = 12;  // Outlook 2007: in an appointment's window
}  // namespace

SmsReminder::SmsReminder(PendingError& errors, Automation& automation,
                         const ProcessValues& processValues, Clock& clock,
                         RecipientLookup& recipientLookup, AppointmentReminders& reminders,
                         const ReminderText& reminderText, FormSmsSend& formSmsSend,
                         MessageText& messageText)
    : errors(errors),
      automation(automation),
      processValues(processValues),
      clock(clock),
      recipientLookup(recipientLookup),
      reminders(reminders),
      reminderText(reminderText),
      formSmsSend(formSmsSend),
      messageText(messageText) {
    reminders.SetListener([this] { Reminders_Read(); });
}

void SmsReminder::Open(ObjectPtr appointment, RecipientLookup::Origin origin) {
    if (!appointment) {
        formSmsSend.Open({});
        return;
    }
    const Appointment read = ReadAppointment(errors, appointment, clock.Now());
    const Text recipients = recipientLookup.LookInAppointment(appointment, origin);
    appointment.reset();
    formSmsSend.Open(recipients, FormSmsSend::Remembered::Forget);
    messageText.Replace(Fitting(reminderText.Of(read)));
}

bool SmsReminder::OpenItems(ObjectPtr& items, RecipientLookup::Origin origin) {
    ObjectPtr first;
    bool several = false;
    {
        const outlook::Selection selection(errors, items);
        const outlook::Item item = selection.Item(1);
        if (!item || item.Class() != outlook::AppointmentClass) return false;
        several = selection.Count() > 1;
        first = item.Reference();
    }
    if (several) {
        first.reset();
        OpenAll(std::move(items), origin);
    } else {
        items.reset();
        Open(std::move(first), origin);
    }
    return true;
}

void SmsReminder::OpenAll(ObjectPtr items, RecipientLookup::Origin origin) {
    recipientLookup.LookInAppointments(items, origin);
    items.reset();
    formSmsSend.Open({}, FormSmsSend::Remembered::Forget);
    messageText.Replace(Fitting(reminderText.OfAll({})));
}

void SmsReminder::Reminders_Read() {
    messageText.ReplaceAgain(Fitting(reminderText.OfAll(reminders.Taken())));
    formSmsSend.People_Change();
}

Text SmsReminder::Fitting(TextView text) const {
    return CutToFit(text, [this](TextView cut) { return messageText.Fits(cut); });
}

bool SmsReminder::OpenSelected(const ObjectPtr& application) {
    const auto origin =
        application ? RecipientLookup::Origin::Connection : RecipientLookup::Origin::RunningObject;
    ObjectPtr selected, opened;
    {
        const outlook::Application outlook(
            errors, application ? application : automation.Running(u"Outlook.Application"));
        const outlook::Selection selection = outlook.ActiveExplorer().Selection();
        if (selection.Count() != 0) {
            selected = selection.Reference();
        } else if (processValues.outlookVersion < FirstWithOwnButton) {
            const outlook::Item item = outlook.ActiveInspector().CurrentItem();
            if (item && item.Class() == outlook::AppointmentClass) opened = item.Reference();
        }
    }
    if (selected) return OpenItems(selected, origin);
    if (!opened) return false;
    Open(std::move(opened), origin);
    return true;
}

}  // namespace tellwick
