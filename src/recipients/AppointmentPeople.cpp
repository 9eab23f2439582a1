#include "recipients/AppointmentPeople.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

constexpr std::int32_t FirstWithoutLinks = 15;    // Outlook 2013
constexpr std::int32_t FirstNamingContacts = 12;  // Outlook 2007
constexpr std::int32_t MostPeople = 200;
// Recipient.Type.
constexpr std::int32_t Organizer = 0;
constexpr std::int32_t Resource = 3;

// "Anna Berger (anna@example.org)", "Berger, Anna" as "Anna Berger".
Text PlainName(TextView name) {
    Text plain = Trimmed(OneLine(name.substr(0, name.find_first_of(u"(<["))));
    std::erase_if(plain, [](char16_t unit) { return unit == u'"' || unit == u'\''; });
    const std::size_t comma = plain.find(u',');
    if (comma == Text::npos) return plain;
    return Trimmed(Trimmed(TextView(plain).substr(comma + 1)) + u" " +
                   Trimmed(TextView(plain).substr(0, comma)));
}

}  // namespace

void AppointmentPeople::Begin(const ObjectPtr& appointment, Access access,
                              std::int32_t outlookVersion) {
    Clear();
    namesContacts = outlookVersion >= FirstNamingContacts;
    if (outlookVersion < FirstWithoutLinks) links = AsObject(Get(errors, appointment, u"Links"));
    if (links) linkCount = std::min(AsNumber(Get(errors, links, u"Count")), MostPeople);
    ReadAttendees(appointment, access);
    if (attendees) attendeeCount = std::min(AsNumber(Get(errors, attendees, u"Count")), MostPeople);
}

void AppointmentPeople::ReadAttendees(const ObjectPtr& appointment, Access access) {
    straight = access == Access::Straight;
    if (straight) {
        attendees = AsObject(Get(errors, appointment, u"Recipients"));
        const ObjectPtr session = AsObject(Get(errors, appointment, u"Session"));
        const ObjectPtr self = AsObject(Get(errors, session, u"CurrentUser"));
        user = PlainName(AsText(Get(errors, self, u"Name")));
        return;
    }
    const ObjectPtr safe = automation.Create(u"Redemption.SafeAppointmentItem");
    if (!safe) return;
    Put(errors, safe, u"Item", appointment);
    attendees = AsObject(Get(errors, safe, u"Recipients"));
}

void AppointmentPeople::Clear() {
    links.reset();
    attendees.reset();
    linkCount = attendeeCount = next = 0;
    user.clear();
}

std::optional<AppointmentPeople::One> AppointmentPeople::Next() {
    if (next >= linkCount + attendeeCount) return {};
    const std::int32_t at = next++;
    return at < linkCount ? LinkAt(at + 1) : AttendeeAt(at - linkCount + 1);
}

AppointmentPeople::One AppointmentPeople::LinkAt(std::int32_t index) {
    const ObjectPtr link = AsObject(Call(errors, links, u"Item", {index}));
    return {AsObject(Get(errors, link, u"Item")), {}};
}

AppointmentPeople::One AppointmentPeople::AttendeeAt(std::int32_t index) {
    const ObjectPtr attendee = AsObject(Call(errors, attendees, u"Item", {index}));
    errors.Clear();
    const std::int32_t type = AsNumber(Get(errors, attendee, u"Type"));
    const bool typeKnown = !errors;
    // A room is no person. Through Redemption nobody says who the user is; he is the organizer of
    // most appointments that he writes to people about.
    if (type == Resource || (typeKnown && type == Organizer && !straight)) return {};
    One one{nullptr, PlainName(AsText(Get(errors, attendee, u"Name")))};
    if (!user.empty() && EqualFolded(one.name, user)) return {};
    if (straight && namesContacts) {
        const ObjectPtr entry = AsObject(Get(errors, attendee, u"AddressEntry"));
        one.contact = AsObject(Call(errors, entry, u"GetContact"));
    }
    return one;
}

}  // namespace tellwick
