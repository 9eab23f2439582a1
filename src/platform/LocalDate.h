// A date as automation counts it (see Value), taken apart by the calendar.
#pragma once

#include <cstdint>

namespace tellwick {

class LocalDate {
public:
    // To the nearest minute.
    explicit LocalDate(double date);

    int Year() const { return year; }
    int Month() const { return month; }
    int Day() const { return day; }
    int Weekday() const { return weekday; }  // 0 is Sunday
    int Hour() const { return hour; }
    int Minute() const { return minute; }

private:
    int year, month, day, weekday, hour, minute;
};

}  // namespace tellwick
