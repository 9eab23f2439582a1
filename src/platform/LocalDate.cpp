#include "platform/LocalDate.h"

#include <chrono>
#include <cmath>

namespace tellwick {

LocalDate::LocalDate(double date) {
    using namespace std::chrono;
    constexpr std::int64_t MinutesADay = 1440;
    const sys_days start = std::chrono::year(1899) / December / std::chrono::day(30);
    const auto minutes = std::int64_t(std::floor(date * MinutesADay + 0.5));
    const auto moment = sys_time<std::chrono::minutes>(start) + std::chrono::minutes(minutes);
    const auto dayOf = floor<days>(moment);
    const year_month_day parts(dayOf);
    year = int(parts.year());
    month = int(unsigned(parts.month()));
    day = int(unsigned(parts.day()));
    weekday = int(std::chrono::weekday(dayOf).c_encoding());
    const auto ofDay = int((moment - dayOf).count());
    hour = ofDay / 60;
    minute = ofDay % 60;
}

}  // namespace tellwick
