#include "compose/AppointmentValues.h"

#include "compose/DateText.h"
#include "platform/LocalDate.h"
#include "recipients/AppointmentReader.h"

namespace tellwick {

AppointmentValues::AppointmentValues(Locale& locale, const Appointment& appointment)
    : subject(appointment.subject), place(appointment.place) {
    if (appointment.start) date = DateText(locale, LocalDate(*appointment.start));
    if (appointment.allDay) {
        time.emplace();
    } else if (appointment.start) {
        time = TimeText(locale, LocalDate(*appointment.start));
    }
}

std::optional<TextView> AppointmentValues::Of(Field field) const {
    switch (field) {
        case Field::Subject:
            return subject;
        case Field::Date:
            return date;
        case Field::Time:
            return time;
        case Field::Place:
            return place;
        default:
            return {};
    }
}

Text AppointmentValues::Named() const {
    Text named;
    for (const Text& part : {date.value_or(Text()), time.value_or(Text()), subject}) {
        if (!named.empty() && !part.empty()) named += u' ';
        named += part;
    }
    return named;
}

}  // namespace tellwick
