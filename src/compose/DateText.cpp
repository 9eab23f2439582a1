#include "compose/DateText.h"

#include <cstdint>

#include "platform/LocalDate.h"
#include "platform/Locale.h"

namespace tellwick {

namespace {

// Of Windows.
constexpr std::uint32_t UserDefault = 0x0400;
constexpr std::uint32_t ShortDate = 0x1F;
constexpr std::uint32_t TimeFormat = 0x1003;
constexpr std::uint32_t BeforeNoon = 0x28;
constexpr std::uint32_t AfterNoon = 0x29;
// Each the first of several: days begin with Monday.
constexpr std::uint32_t DayName = 0x2A;
constexpr std::uint32_t ShortDayName = 0x31;
constexpr std::uint32_t MonthName = 0x38;
constexpr std::uint32_t ShortMonthName = 0x44;

Text Information(Locale& locale, std::uint32_t type) {
    return Text(CutAtNul(locale.LocaleInfo(UserDefault, type).value_or(Text())));
}

Text Padded(int number, std::size_t digits) {
    Text text = NumberText(number);
    if (text.size() < digits) text.insert(0, digits - text.size(), u'0');
    return text;
}

// What a letter of a format stands for, repeated so many times; empty for seconds.
Text PartOf(Locale& locale, char16_t letter, std::size_t times, const LocalDate& date) {
    const auto name = [&](std::uint32_t whole, std::uint32_t shortOne, int index) {
        return Information(locale, (times == 3 ? shortOne : whole) + std::uint32_t(index));
    };
    switch (letter) {
        case u'd':
            return times > 2 ? name(DayName, ShortDayName, (date.Weekday() + 6) % 7)
                             : Padded(date.Day(), times);
        case u'M':
            return times > 2 ? name(MonthName, ShortMonthName, date.Month() - 1)
                             : Padded(date.Month(), times);
        case u'y':
            return times > 2 ? Padded(date.Year(), 4) : Padded(date.Year() % 100, times);
        case u'h':
            return Padded((date.Hour() + 11) % 12 + 1, times);
        case u'H':
            return Padded(date.Hour(), times);
        case u'm':
            return Padded(date.Minute(), times);
        case u't': {
            const Text half = Information(locale, date.Hour() < 12 ? BeforeNoon : AfterNoon);
            return times == 1 ? half.substr(0, 1) : half;
        }
        default:
            return {};
    }
}

bool IsLetter(char16_t unit) {
    return TextView(u"dMyhHmst").find(unit) != TextView::npos;
}

// What stands between quotation marks is text. Seconds are left out with what is before them.
Text Formatted(Locale& locale, TextView format, const LocalDate& date) {
    Text text;
    std::size_t endOfPart = 0;  // in the text
    for (std::size_t at = 0; at < format.size();) {
        const char16_t unit = format[at];
        if (unit == u'\'') {
            const std::size_t end = format.find(u'\'', at + 1);
            text += format.substr(at + 1, end == TextView::npos ? end : end - at - 1);
            at = end == TextView::npos ? format.size() : end + 1;
            continue;
        }
        std::size_t end = at + 1;
        if (!IsLetter(unit)) {
            text += unit;
        } else {
            while (end < format.size() && format[end] == unit) ++end;
            if (unit == u's') {
                text.resize(endOfPart);
            } else {
                text += PartOf(locale, unit, end - at, date);
                endOfPart = text.size();
            }
        }
        at = end;
    }
    return Trimmed(text);
}

Text FormattedBy(Locale& locale, std::uint32_t type, TextView otherwise, const LocalDate& date) {
    const Text format = Information(locale, type);
    return Formatted(locale, format.empty() ? otherwise : TextView(format), date);
}

}  // namespace

Text DateText(Locale& locale, const LocalDate& date) {
    return FormattedBy(locale, ShortDate, u"yyyy-MM-dd", date);
}

Text TimeText(Locale& locale, const LocalDate& date) {
    return FormattedBy(locale, TimeFormat, u"HH:mm", date);
}

}  // namespace tellwick
