#include "addin/SmsReminder.h"

#include <utility>

#include "compose/FormSmsSend.h"
#include "compose/MailExcerpt.h"
#include "compose/MessageText.h"
#include "compose/ReminderText.h"
#include "platform/Clock.h"
#include "platform/OutlookEvents.h"
#include "recipients/AppointmentReader.h"

namespace tellwick {

namespace {
constexpr std::int32_t FirstWithOwnButton = 12;  // Outlook 2007: in an appointment's window
}  // namespace

SmsReminder::SmsReminder(PendingError& errors, Automation& automation,
                         const ProcessValues& processValues, Clock& clock,
                         RecipientLookup& recipientLookup, const ReminderText& reminderText,
                         FormSmsSend& formSmsSend, MessageText& messageText)
    : errors(errors),
      automation(automation),
      processValues(processValues),
      clock(clock),
      recipientLookup(recipientLookup),
      reminderText(reminderText),
      formSmsSend(formSmsSend),
      messageText(messageText) {}

void SmsReminder::Open(ObjectPtr appointment, RecipientLookup::Origin origin) {
    if (!appointment) {
        formSmsSend.Open({});
        return;
    }
    const Appointment read = ReadAppointment(errors, appointment, clock.Now());
    const Text recipients = recipientLookup.LookInAppointment(appointment, origin);
    appointment.reset();
    formSmsSend.Open(recipients, FormSmsSend::Remembered::Forget);
    const Text text = reminderText.Of(read);
    messageText.Replace(CutToFit(text, [this](TextView cut) { return messageText.Fits(cut); }));
}

bool SmsReminder::OpenSelected(const ObjectPtr& application) {
    ObjectPtr appointment = Selected(application);
    if (!appointment) return false;
    Open(std::move(appointment), application ? RecipientLookup::Origin::Connection
                                             : RecipientLookup::Origin::RunningObject);
    return true;
}

ObjectPtr SmsReminder::Selected(const ObjectPtr& application) {
    const outlook::Application outlook(
        errors, application ? application : automation.Running(u"Outlook.Application"));
    const outlook::Selection selection = outlook.ActiveExplorer().Selection();
    outlook::Item item(errors, nullptr);
    if (selection.Count() != 0) {
        item = selection.Item(1);
    } else if (processValues.outlookVersion < FirstWithOwnButton) {
        item = outlook.ActiveInspector().CurrentItem();
    }
    if (!item || item.Class() != outlook::AppointmentClass) return nullptr;
    return item.Reference();
}

}  // namespace tellwick
