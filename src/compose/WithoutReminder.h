// Who gets no reminder of the appointments that were selected, and why.
#pragma once

#include <vector>

#include "platform/Text.h"

namespace tellwick {

class AppointmentReminders;
class LanguageTexts;
class Locale;

struct WithoutReminder {
    Text named;  // a person and the appointment, or an appointment with nobody in it
    Text why;    // "no number"
};

std::vector<WithoutReminder> WithoutReminderIn(const AppointmentReminders& reminders,
                                               Locale& locale, LanguageTexts& language);

}  // namespace tellwick
