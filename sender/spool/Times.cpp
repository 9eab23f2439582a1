#include "spool/Times.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace tellwick::sender {

namespace {

constexpr std::chrono::sys_days DayZero =
    std::chrono::year{1899} / std::chrono::December / std::chrono::day{30};
constexpr std::int64_t MillisecondsPerDay = 24LL * 60 * 60 * 1000;

}  // namespace

std::int64_t MillisecondsOf(double time) {
    return std::llround(time * double(MillisecondsPerDay));
}

double FromMilliseconds(std::int64_t milliseconds) {
    return double(milliseconds) / double(MillisecondsPerDay);
}

double TimeOf(int year, unsigned month, unsigned day, std::int64_t milliseconds) {
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month},
                                           std::chrono::day{day}};
    if (!date.ok()) return 0;
    const auto days = std::int64_t((std::chrono::sys_days{date} - DayZero).count());
    return FromMilliseconds(days * MillisecondsPerDay + milliseconds);
}

std::string TimeStamp(double time) {
    const std::int64_t whole = MillisecondsOf(time);
    const std::int64_t days = whole / MillisecondsPerDay;
    const auto rest = int(whole % MillisecondsPerDay);
    const std::chrono::year_month_day date{DayZero + std::chrono::days{days}};
    char stamp[80];
    std::snprintf(stamp, sizeof stamp, "%04d-%02u-%02u %02d:%02d:%02d.%03d", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), rest / 3600000, rest / 60000 % 60,
                  rest / 1000 % 60, rest % 1000);
    return stamp;
}

double FromTimeStamp(std::string_view stamp) {
    int year = 0, hour = 0, minute = 0, second = 0, millisecond = 0;
    unsigned month = 0, day = 0;
    if (std::sscanf(std::string(stamp).c_str(), "%4d-%2u-%2u %2d:%2d:%2d.%3d", &year, &month, &day,
                    &hour, &minute, &second, &millisecond) != 7) {
        return 0;
    }
    return TimeOf(year, month, day, ((hour * 60LL + minute) * 60 + second) * 1000 + millisecond);
}

}  // namespace tellwick::sender
