// What an appointment has beside its texts: when it is, who comes, and when it comes again.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "model/ModelObject.h"

namespace tellwick::standin {

class Item;

// Values of Sensitivity, MeetingStatus, RecurrenceState, and Recipient.Type.
inline constexpr std::int32_t Private = 2;
inline constexpr std::int32_t MeetingCanceled = 5;
inline constexpr std::int32_t NotRecurring = 0;
inline constexpr std::int32_t Master = 1;
inline constexpr std::int32_t Occurrence = 2;
inline constexpr std::int32_t ChangedOne = 3;
inline constexpr std::int32_t Organizer = 0;
inline constexpr std::int32_t Required = 1;
inline constexpr std::int32_t Resource = 3;

// Values of RecurrenceType.
inline constexpr std::int32_t Daily = 0;
inline constexpr std::int32_t Weekly = 1;
inline constexpr std::int32_t Monthly = 2;

struct Attendee {
    Text name;
    std::int32_t type = Required;
    std::weak_ptr<Item> contact;  // whose address it is
};

// An occurrence of a series that was moved, or deleted.
struct ChangedOccurrence {
    double original;              // a date, see Value
    std::optional<double> start;  // now; none when it was deleted
};

// How a series goes on. Where there is an occurrence the test or the demo says by its dates.
struct Series {
    std::int32_t type = Weekly;
    std::int32_t daysOfWeek = 0;  // Sunday 1, Monday 2, Tuesday 4, ...
    std::int32_t dayOfMonth = 0;
    std::int32_t monthOfYear = 0;
    std::vector<double> starts;  // dates, see Value
    bool endless = true;
    std::vector<ChangedOccurrence> changes = {};
};

struct Appointment {
    double start = 0, end = 0;  // dates, see Value; local time
    bool allDay = false;
    std::int32_t sensitivity = 0;
    std::int32_t meetingStatus = 0;
    std::int32_t recurrence = NotRecurring;
    Series series;
    std::vector<Attendee> attendees;
    std::vector<std::weak_ptr<Item>> links;  // contacts
};

void AddAppointmentMembers(Members<Item>& members);
// Of an appointment as the outside library gives them: nobody is asked for them.
ObjectPtr SafeRecipientsOf(const std::shared_ptr<Item>& appointment);
// The user, as NameSpace.CurrentUser gives him.
ObjectPtr CurrentUserOf(OutlookModel& outlook);

}  // namespace tellwick::standin
