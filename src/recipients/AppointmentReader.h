// What an SMS can say of an appointment of Outlook's.
#pragma once

#include <optional>

#include "platform/Object.h"

namespace tellwick {

struct Appointment {
    Text subject;  // empty also of a private one, whose subject is nobody else's
    Text place;
    // A date (see Value) in the user's time; of the master of a series that of its next
    // occurrence, empty when none comes within a year.
    std::optional<double> start;
    bool allDay = false;
    bool cancelled = false;

    bool operator==(const Appointment& other) const = default;
};

// What cannot be read is as if it were not there. One whose sensitivity cannot be read is private.
Appointment ReadAppointment(PendingError& errors, const ObjectPtr& item, double now);

}  // namespace tellwick
