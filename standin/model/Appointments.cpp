#include "model/Appointments.h"

#include <algorithm>
#include <cmath>

#include "model/OutlookModel.h"

namespace tellwick::standin {

namespace {

// Outlook 2013 has done away with the linking of contacts.
constexpr std::int32_t FirstWithoutLinks = 15;
constexpr std::int32_t FirstWithGetContact = 12;  // Outlook 2007
constexpr double Minute = 1.0 / 1440;

class AddressEntry : public ModelObject {
public:
    AddressEntry(OutlookModel& outlook, Attendee attendee)
        : ModelObject(outlook), attendee(std::move(attendee)) {}
    TextView ClassName() const override { return u"AddressEntry"; }
    const MemberTable& Table() const override {
        static const MemberTable table =
            OutlookMembers<AddressEntry>(8)
                .Property(u"Name", [](AddressEntry& self) { return self.attendee.name; })
                .Default(u"Name")
                .Method(u"GetContact", {},
                        [](AddressEntry& self, const Arguments&) {
                            return HandleOf(self.attendee.contact.lock());
                        })
                .From(FirstWithGetContact);
        return table;
    }

    const Attendee attendee;
};

// Safe ones are the outside library's.
class AttendeeRecipient : public ModelObject {
public:
    AttendeeRecipient(OutlookModel& outlook, Attendee attendee, bool safe)
        : ModelObject(outlook), attendee(std::move(attendee)), safe(safe) {}
    TextView ClassName() const override { return safe ? u"SafeRecipient" : u"Recipient"; }
    const MemberTable& Table() const override {
        static const auto make = [](bool guarded) {
            auto members = OutlookMembers<AttendeeRecipient>(4);
            const auto guard = [&] {
                if (guarded) members.Guarded();
            };
            members.Property(u"Name", [](AttendeeRecipient& self) { return self.attendee.name; });
            guard();
            members.Property(u"Type", [](AttendeeRecipient& self) { return self.attendee.type; });
            guard();
            if (guarded) {
                members.Property(u"AddressEntry", [](AttendeeRecipient& self) {
                    return std::make_shared<AddressEntry>(self.outlook, self.attendee)->Handle();
                });
                guard();
            }
            return members.Default(u"Name");
        };
        static const MemberTable guarded = make(true);
        static const MemberTable free = make(false);
        return safe ? free : guarded;
    }

    const Attendee attendee;
    const bool safe;
};

class Recipients : public ModelObject {
public:
    Recipients(OutlookModel& outlook, const std::vector<Attendee>& attendees, bool safe)
        : ModelObject(outlook), safe(safe) {
        for (const Attendee& attendee : attendees)
            all.push_back(std::make_shared<AttendeeRecipient>(outlook, attendee, safe));
    }
    TextView ClassName() const override { return safe ? u"SafeRecipients" : u"Recipients"; }
    const MemberTable& Table() const override {
        static const MemberTable table = OutlookMembers<Recipients>(17).Collection();
        return table;
    }

    std::vector<std::shared_ptr<AttendeeRecipient>> all;
    const bool safe;
};

class Link : public ModelObject {
public:
    Link(OutlookModel& outlook, std::shared_ptr<Item> contact)
        : ModelObject(outlook), contact(std::move(contact)) {}
    TextView ClassName() const override { return u"Link"; }
    const MemberTable& Table() const override {
        static const MemberTable table =
            OutlookMembers<Link>(76)
                .Property(u"Name", [](Link& self) { return self.contact->Title(); })
                .Default(u"Name")
                .Property(u"Type", [](Link& self) { return self.contact->itemClass; })
                .Property(u"Item", [](Link& self) { return HandleOf(self.contact); });
        return table;
    }

    const std::shared_ptr<Item> contact;
};

class Links : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"Links"; }
    const MemberTable& Table() const override {
        static const MemberTable table = OutlookMembers<Links>(75).Collection();
        return table;
    }

    std::vector<std::shared_ptr<Link>> all;
};

class RecurrencePattern : public ModelObject {
public:
    explicit RecurrencePattern(std::shared_ptr<Item> item)
        : ModelObject(item->outlook), item(std::move(item)) {}
    TextView ClassName() const override { return u"RecurrencePattern"; }
    const MemberTable& Table() const override;
    const Series& Of() const { return item->appointment->series; }

    const std::shared_ptr<Item> item;
};

ObjectPtr OccurrenceOf(const Item& master, double start, std::int32_t state) {
    const auto one = std::make_shared<Item>(master.outlook, master.itemClass);
    one->appointment = std::make_unique<Appointment>(*master.appointment);
    one->appointment->end += start - one->appointment->start;
    one->appointment->start = start;
    one->appointment->recurrence = state;
    one->folder = master.folder;
    for (const TextView field : FieldNames(one->itemClass))
        one->SetField(field, master.Field(field));
    return one->Handle();
}

// The documents do not say that one which was moved is still found by a date.
Value OccurrenceAt(const RecurrencePattern& pattern, double date) {
    const auto isAt = [&](double start) { return std::abs(start - date) < Minute / 2; };
    const Series& series = pattern.Of();
    if (std::ranges::none_of(series.starts, isAt) ||
        std::ranges::any_of(series.changes, isAt, &ChangedOccurrence::original))
        return pattern.Fail(error::Automation);
    return OccurrenceOf(*pattern.item, date, Occurrence);
}

class Exception : public ModelObject {
public:
    Exception(std::shared_ptr<Item> master, const ChangedOccurrence& change)
        : ModelObject(master->outlook), master(std::move(master)), change(change) {}
    TextView ClassName() const override { return u"Exception"; }
    const MemberTable& Table() const override {
        static const MemberTable table =
            OutlookMembers<Exception>(30)
                .Property(u"AppointmentItem",
                          [](Exception& self) -> Value {
                              if (!self.change.start) return self.Fail(error::Automation);
                              return OccurrenceOf(*self.master, *self.change.start, ChangedOne);
                          })
                .Property(u"Deleted", [](Exception& self) { return !self.change.start; })
                // Of one that was deleted it has no time.
                .Property(u"OriginalDate", [](Exception& self) {
                    const double original = self.change.original;
                    return self.change.start ? original : std::floor(original);
                });
        return table;
    }

    const std::shared_ptr<Item> master;
    const ChangedOccurrence change;
};

class Exceptions : public ModelObject {
public:
    explicit Exceptions(const std::shared_ptr<Item>& master) : ModelObject(master->outlook) {
        for (const ChangedOccurrence& change : master->appointment->series.changes)
            all.push_back(std::make_shared<Exception>(master, change));
    }
    TextView ClassName() const override { return u"Exceptions"; }
    const MemberTable& Table() const override {
        static const MemberTable table = OutlookMembers<Exceptions>(29).Collection();
        return table;
    }

    std::vector<std::shared_ptr<Exception>> all;
};

const MemberTable& RecurrencePattern::Table() const {
    static const MemberTable table =
        OutlookMembers<RecurrencePattern>(28)
            .Property(u"RecurrenceType", [](RecurrencePattern& self) { return self.Of().type; })
            .Property(u"DayOfWeekMask",
                      [](RecurrencePattern& self) { return self.Of().daysOfWeek; })
            .Property(u"DayOfMonth", [](RecurrencePattern& self) { return self.Of().dayOfMonth; })
            .Property(u"MonthOfYear", [](RecurrencePattern& self) { return self.Of().monthOfYear; })
            .Property(u"StartTime",
                      [](RecurrencePattern& self) {
                          const double start = self.item->appointment->start;
                          return start - std::floor(start);
                      })
            .Property(
                u"PatternStartDate",
                [](RecurrencePattern& self) { return std::floor(self.item->appointment->start); })
            // Of a series without an end that is far in the future.
            .Property(u"PatternEndDate",
                      [](RecurrencePattern& self) {
                          const Series& series = self.Of();
                          constexpr double FarAway = 949998;
                          return series.endless || series.starts.empty()
                                     ? FarAway
                                     : std::floor(series.starts.back());
                      })
            .Property(u"NoEndDate", [](RecurrencePattern& self) { return self.Of().endless; })
            .Property(u"Exceptions",
                      [](RecurrencePattern& self) {
                          return std::make_shared<Exceptions>(self.item)->Handle();
                      })
            .Method(u"GetOccurrence", {u"StartDate"},
                    [](RecurrencePattern& self, const Arguments& arguments) {
                        return OccurrenceAt(self, AsReal(arguments[0]));
                    });
    return table;
}

// A property of an appointment that can be put.
template <class Type>
void AddField(Members<Item>& members, TextView name, Type Appointment::*field) {
    members.Property(
        name, [field](Item& self) { return Value((*self.appointment).*field); },
        [field](Item& self, const Value& value) {
            if constexpr (std::is_same_v<Type, double>) {
                (*self.appointment).*field = AsReal(value);
            } else if (!Convert(value, (*self.appointment).*field)) {
                self.Fail(error::TypeMismatch);
            }
        });
}

}  // namespace

void AddAppointmentMembers(Members<Item>& members) {
    AddField(members, u"Start", &Appointment::start);
    AddField(members, u"End", &Appointment::end);
    AddField(members, u"AllDayEvent", &Appointment::allDay);
    AddField(members, u"Sensitivity", &Appointment::sensitivity);
    AddField(members, u"MeetingStatus", &Appointment::meetingStatus);
    members.Property(u"RecurrenceState", [](Item& self) { return self.appointment->recurrence; })
        .Property(u"IsRecurring",
                  [](Item& self) { return self.appointment->recurrence != NotRecurring; })
        // Whoever asks a single appointment for its pattern makes it the master of a series.
        .Method(u"GetRecurrencePattern", {},
                [](Item& self, const Arguments&) {
                    auto& recurrence = self.appointment->recurrence;
                    if (recurrence == NotRecurring) recurrence = Master;
                    return std::make_shared<RecurrencePattern>(Self(self))->Handle();
                })
        .Property(u"Recipients",
                  [](Item& self) {
                      return std::make_shared<Recipients>(self.outlook, self.appointment->attendees,
                                                          false)
                          ->Handle();
                  })
        .Guarded()
        .Property(u"Links", [](Item& self) -> Value {
            if (self.outlook.version >= FirstWithoutLinks) return self.Fail(error::NoSuchMember);
            const auto links = std::make_shared<Links>(self.outlook);
            for (const auto& contact : self.appointment->links) {
                if (auto linked = contact.lock())
                    links->all.push_back(std::make_shared<Link>(self.outlook, std::move(linked)));
            }
            return links->Handle();
        });
}

ObjectPtr SafeRecipientsOf(const std::shared_ptr<Item>& appointment) {
    return std::make_shared<Recipients>(appointment->outlook, appointment->appointment->attendees,
                                        true)
        ->Handle();
}

ObjectPtr CurrentUserOf(OutlookModel& outlook) {
    return std::make_shared<AttendeeRecipient>(outlook, Attendee{outlook.user, Required, {}}, false)
        ->Handle();
}

}  // namespace tellwick::standin
