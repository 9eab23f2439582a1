// What a text says of an appointment, dates and times as the user writes them.
#pragma once

#include <optional>

#include "compose/TextFields.h"
#include "platform/Text.h"

namespace tellwick {

class Locale;
struct Appointment;

class AppointmentValues {
public:
    AppointmentValues(Locale& locale, const Appointment& appointment);

    // Nothing where it is not known, as the date of a series that does not go on. What the
    // appointment has none of is empty: the subject of a private one, the time of one that lasts
    // all day.
    std::optional<TextView> Of(Field field) const;

    // "11.12.2025 10:00 Dentist": which one it is.
    Text Named() const;

private:
    Text subject, place;
    std::optional<Text> date, time;
};

}  // namespace tellwick
