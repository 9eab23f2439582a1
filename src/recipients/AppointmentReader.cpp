#include "recipients/AppointmentReader.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/LocalDate.h"

namespace tellwick {

namespace {

constexpr std::int32_t PrivateOnes = 2;  // Sensitivity: private, and confidential
constexpr std::int32_t Cancelled = 5;    // MeetingStatus: by the user,
constexpr std::int32_t CancelledByOrganizer = 7;
constexpr std::int32_t SeriesMaster = 1;  // RecurrenceState

// RecurrenceType.
constexpr std::int32_t Weekly = 1;
constexpr std::int32_t Monthly = 2;
constexpr std::int32_t MonthlyByWeekday = 3;
constexpr std::int32_t Yearly = 5;
constexpr std::int32_t YearlyByWeekday = 6;

constexpr std::int64_t DaysAhead = 366;
// Each is a call that may fail, while Outlook waits.
constexpr std::int32_t MostAsked = 120;
// Months end so early: a later day stands for the last one of a shorter month.
constexpr std::int32_t ShortestMonth = 28;

// Which days a series can have an occurrence on.
class Pattern {
public:
    Pattern(PendingError& errors, const ObjectPtr& object)
        : type(AsNumber(Get(errors, object, u"RecurrenceType"))),
          daysOfWeek(AsNumber(Get(errors, object, u"DayOfWeekMask"))),
          dayOfMonth(AsNumber(Get(errors, object, u"DayOfMonth"))),
          monthOfYear(AsNumber(Get(errors, object, u"MonthOfYear"))) {}

    bool CanHave(std::int64_t day) const {
        const LocalDate date{double(day)};
        const bool byWeekday =
            type == Weekly || type == MonthlyByWeekday || type == YearlyByWeekday;
        if (byWeekday && daysOfWeek != 0 && (daysOfWeek >> date.Weekday() & 1) == 0) return false;
        if ((type == Yearly || type == YearlyByWeekday) && monthOfYear != 0 &&
            monthOfYear != date.Month())
            return false;
        if ((type != Monthly && type != Yearly) || dayOfMonth == 0) return true;
        return dayOfMonth <= ShortestMonth ? date.Day() == dayOfMonth : date.Day() >= ShortestMonth;
    }

private:
    const std::int32_t type, daysOfWeek, dayOfMonth, monthOfYear;
};

// Outlook has no word for the next occurrence. It names those that were changed or deleted, and
// gives any other by its date, or fails. All but the earliest are let go at once: as long as one is
// held Outlook hands out no newer state of the series.
class NextOccurrence {
public:
    NextOccurrence(PendingError& errors, const ObjectPtr& master, double now)
        : errors(errors), now(now) {
        const ObjectPtr pattern = AsObject(Call(errors, master, u"GetRecurrencePattern"));
        LookAtExceptions(AsObject(Get(errors, pattern, u"Exceptions")));
        LookAtDays(pattern);
    }
    // None when none comes within a year.
    const ObjectPtr& Item() const { return item; }
    double Start() const { return start; }

private:
    // Whether it is still to come.
    bool Consider(ObjectPtr occurrence) {
        errors.Clear();
        const double its = AsReal(Get(errors, occurrence, u"Start"));
        if (errors || its < now) return false;
        if (!item || its < start) {
            item = std::move(occurrence);
            start = its;
        }
        return true;
    }

    // The last ones are likely the newest.
    void LookAtExceptions(const ObjectPtr& exceptions) {
        const std::int32_t count = AsNumber(Get(errors, exceptions, u"Count"));
        for (std::int32_t index = count; index > std::max(count - MostAsked, 0); --index) {
            const ObjectPtr exception = AsObject(Call(errors, exceptions, u"Item", {index}));
            changedDays.push_back(DayOf(Get(errors, exception, u"OriginalDate")));
            errors.Clear();
            const bool deleted = AsBoolean(Get(errors, exception, u"Deleted"));
            if (!errors && !deleted) Consider(AsObject(Get(errors, exception, u"AppointmentItem")));
        }
    }

    void LookAtDays(const ObjectPtr& object) {
        const double time = AsReal(Get(errors, object, u"StartTime"));
        const auto minuteOfDay = std::int64_t(std::floor((time - std::floor(time)) * 1440 + 0.5));
        const auto today = std::int64_t(std::floor(now));
        const std::int64_t first = DayOf(Get(errors, object, u"PatternStartDate"));
        std::int64_t last = today + DaysAhead;
        if (!AsBoolean(Get(errors, object, u"NoEndDate"))) {
            errors.Clear();
            const std::int64_t end = DayOf(Get(errors, object, u"PatternEndDate"));
            if (!errors) last = std::min(last, end);
        }
        const Pattern pattern(errors, object);
        int asked = 0;
        for (std::int64_t day = std::max(today, first); day <= last && asked < MostAsked; ++day) {
            const double at = double(day * 1440 + minuteOfDay) / 1440;
            if (item && at >= start) return;
            if (at < now || !pattern.CanHave(day)) continue;
            if (std::ranges::find(changedDays, day) != changedDays.end()) continue;
            ++asked;
            errors.Clear();
            ObjectPtr occurrence = AsObject(Call(errors, object, u"GetOccurrence", {at}));
            if (!errors && occurrence && Consider(std::move(occurrence))) return;
        }
    }

    static std::int64_t DayOf(const Value& date) { return std::int64_t(std::floor(AsReal(date))); }

    PendingError& errors;
    const double now;
    std::vector<std::int64_t> changedDays;
    ObjectPtr item;
    double start = 0;
};

// But for its start.
Appointment ReadOne(PendingError& errors, const ObjectPtr& item) {
    Appointment appointment;
    errors.Clear();
    const std::int32_t sensitivity = AsNumber(Get(errors, item, u"Sensitivity"));
    if (!errors && sensitivity < PrivateOnes)
        appointment.subject = OneLine(AsText(Get(errors, item, u"Subject")));
    appointment.place = OneLine(AsText(Get(errors, item, u"Location")));
    appointment.allDay = AsBoolean(Get(errors, item, u"AllDayEvent"));
    const std::int32_t status = AsNumber(Get(errors, item, u"MeetingStatus"));
    appointment.cancelled = status == Cancelled || status == CancelledByOrganizer;
    return appointment;
}

}  // namespace

Appointment ReadAppointment(PendingError& errors, const ObjectPtr& item, double now) {
    // Asking any other appointment for its pattern would make a series of it.
    if (AsNumber(Get(errors, item, u"RecurrenceState")) == SeriesMaster) {
        const NextOccurrence next(errors, item, now);
        // It may have another place than the others.
        Appointment appointment = ReadOne(errors, next.Item() ? next.Item() : item);
        if (next.Item()) appointment.start = next.Start();
        return appointment;
    }
    Appointment appointment = ReadOne(errors, item);
    errors.Clear();
    const double start = AsReal(Get(errors, item, u"Start"));
    if (!errors) appointment.start = start;
    return appointment;
}

}  // namespace tellwick
