// The text that reminds people of an appointment.
#pragma once

#include "platform/Text.h"

namespace tellwick {

class InifilesLite;
class LanguageTexts;
class Locale;
class TextFields;
struct Appointment;

class ReminderText {
public:
    ReminderText(LanguageTexts& language, InifilesLite& inifilesLite, Locale& locale,
                 const TextFields& textFields)
        : language(language), inifilesLite(inifilesLite), locale(locale), textFields(textFields) {}

    // From the template for such an appointment: the user's own, section "SMS", or the language's.
    // Lines of which nothing is left are left out. Fields of persons stay as they are.
    Text Of(const Appointment& appointment) const;

private:
    Text Template(const Appointment& appointment) const;

    LanguageTexts& language;
    InifilesLite& inifilesLite;
    Locale& locale;
    const TextFields& textFields;
};

}  // namespace tellwick
