// The text that reminds people of an appointment.
#pragma once

#include <vector>

#include "platform/Text.h"
#include "recipients/AppointmentReminders.h"

namespace tellwick {

class InifilesLite;
class LanguageTexts;
class Locale;
class TextFields;

class ReminderText {
public:
    ReminderText(LanguageTexts& language, InifilesLite& inifilesLite, Locale& locale,
                 const TextFields& textFields)
        : language(language), inifilesLite(inifilesLite), locale(locale), textFields(textFields) {}

    // From the template for such an appointment: the user's own, section "SMS", or the language's.
    // Fields of persons stay as they are.
    Text Of(const Appointment& appointment) const;
    // The template that goes for all of several: that of cancelled ones, or of those that last all
    // day, if they all are. All fields stay as they are.
    Text OfAll(const std::vector<AppointmentReminders::One>& appointments) const;

private:
    Text Template(TextView key) const;

    LanguageTexts& language;
    InifilesLite& inifilesLite;
    Locale& locale;
    const TextFields& textFields;
};

}  // namespace tellwick
