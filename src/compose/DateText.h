// Dates and times as the user has Windows write them.
#pragma once

#include "platform/Text.h"

namespace tellwick {

class LocalDate;
class Locale;

// In the short format, "23.11.2026".
Text DateText(Locale& locale, const LocalDate& date);
// Without seconds, "10:00", "9:30 PM".
Text TimeText(Locale& locale, const LocalDate& date);

}  // namespace tellwick
