// Who is to come to an appointment: one after the other, the contacts linked to it before its
// attendees.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/Object.h"

namespace tellwick {

class AppointmentPeople {
public:
    AppointmentPeople(PendingError& errors, Automation& automation)
        : errors(errors), automation(automation) {}

    // How attendees can be read without a question to the user: straight from Outlook, which then
    // names their contacts, too, where it can; else only through Redemption.
    enum class Access { Straight, Redemption };
    void Begin(const ObjectPtr& appointment, Access access, std::int32_t outlookVersion);
    void Clear();

    struct One {
        ObjectPtr contact;
        Text name;  // of whom no contact is known
    };
    // The next one, which may be nobody; empty behind the last one. The user himself is nobody.
    std::optional<One> Next();

    // Whether there are any that can be read.
    bool HasAttendees() const { return attendeeCount > 0; }

private:
    One LinkAt(std::int32_t index);
    One AttendeeAt(std::int32_t index);
    void ReadAttendees(const ObjectPtr& appointment, Access access);

    ObjectPtr links, attendees;
    std::int32_t linkCount = 0, attendeeCount = 0;
    std::int32_t next = 0;  // link, and behind the links attendee
    bool straight = false;
    bool namesContacts = false;
    Text user;

    PendingError& errors;
    Automation& automation;
};

}  // namespace tellwick
