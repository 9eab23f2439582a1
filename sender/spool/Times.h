// Local times as people read them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tellwick::sender {

// Milliseconds since the end of 1899, of a time in days since then.
std::int64_t MillisecondsOf(double time);
double FromMilliseconds(std::int64_t milliseconds);

// Of a day and the milliseconds since its beginning; 0 where there is no such day.
double TimeOf(int year, unsigned month, unsigned day, std::int64_t milliseconds);

// "2026-11-22 13:07:00.250".
std::string TimeStamp(double time);

// 0 for what is no such text.
double FromTimeStamp(std::string_view stamp);

}  // namespace tellwick::sender
