// Who gets no reminder of the appointments that were selected.
#pragma once

#include <vector>

#include "platform/Text.h"

namespace tellwick {

class AppointmentReminders;
class LanguageTexts;
class Locale;

struct WithoutReminder {
    Text brief;  // a person, or an appointment with nobody in it
    Text named;  // the person and the appointment, and why: "no number: ..."
};

std::vector<WithoutReminder> WithoutReminderIn(const AppointmentReminders& reminders,
                                               Locale& locale, LanguageTexts& language);

}  // namespace tellwick
