#include "recipients/AppointmentReader.h"

#include <algorithm>
#include <cmath>

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
constexpr int MostAsked = 120;
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

// Outlook has no word for the next occurrence: it gives one by its date, or fails. Each is let go
// at once, as long as one is held Outlook hands out no newer state of the series.
std::optional<double> NextStart(PendingError& errors, const ObjectPtr& master, double now) {
    const ObjectPtr object = AsObject(Call(errors, master, u"GetRecurrencePattern"));
    const double time = AsReal(Get(errors, object, u"StartTime"));
    const auto minuteOfDay = std::int64_t(std::floor((time - std::floor(time)) * 1440 + 0.5));
    const auto today = std::int64_t(std::floor(now));
    const auto first = std::int64_t(AsReal(Get(errors, object, u"PatternStartDate")));
    std::int64_t last = today + DaysAhead;
    if (!AsBoolean(Get(errors, object, u"NoEndDate"))) {
        errors.Clear();
        const auto end = std::int64_t(AsReal(Get(errors, object, u"PatternEndDate")));
        if (!errors) last = std::min(last, end);
    }
    const Pattern pattern(errors, object);
    int asked = 0;
    for (std::int64_t day = std::max(today, first); day <= last && asked < MostAsked; ++day) {
        const double start = double(day * 1440 + minuteOfDay) / 1440;
        if (start < now || !pattern.CanHave(day)) continue;
        ++asked;
        errors.Clear();
        const ObjectPtr occurrence = AsObject(Call(errors, object, u"GetOccurrence", {start}));
        if (errors || !occurrence) continue;
        const double its = AsReal(Get(errors, occurrence, u"Start"));
        if (!errors) return its;
    }
    return {};
}

std::optional<double> StartOf(PendingError& errors, const ObjectPtr& item, double now) {
    // Asking any other appointment for its pattern would make a series of it.
    if (AsNumber(Get(errors, item, u"RecurrenceState")) == SeriesMaster)
        return NextStart(errors, item, now);
    errors.Clear();
    const double start = AsReal(Get(errors, item, u"Start"));
    if (errors) return {};
    return start;
}

}  // namespace

Appointment ReadAppointment(PendingError& errors, const ObjectPtr& item, double now) {
    Appointment appointment;
    errors.Clear();
    const std::int32_t sensitivity = AsNumber(Get(errors, item, u"Sensitivity"));
    if (!errors && sensitivity < PrivateOnes)
        appointment.subject = OneLine(AsText(Get(errors, item, u"Subject")));
    appointment.place = OneLine(AsText(Get(errors, item, u"Location")));
    appointment.allDay = AsBoolean(Get(errors, item, u"AllDayEvent"));
    const std::int32_t status = AsNumber(Get(errors, item, u"MeetingStatus"));
    appointment.cancelled = status == Cancelled || status == CancelledByOrganizer;
    appointment.start = StartOf(errors, item, now);
    return appointment;
}

}  // namespace tellwick
