// The menu of the button beside the templates: puts fields into the message, and shows the last run
// of SMS with fields.
#pragma once

#include "settings/Services.h"

namespace tellwick {

class AppointmentReminders;
class FormSmsSendView;
class LastRun;
class MessageText;
class TextFields;

class FieldMenu : private Services {
public:
    FieldMenu(const Services& services, FormSmsSendView& view, const TextFields& textFields,
              const AppointmentReminders& reminders, MessageText& messageText, LastRun& lastRun);

    void ButtonFields_Click();

private:
    FormSmsSendView& view;
    const TextFields& textFields;
    const AppointmentReminders& reminders;
    MessageText& messageText;
    LastRun& lastRun;
};

}  // namespace tellwick
