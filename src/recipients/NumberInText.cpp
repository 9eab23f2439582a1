#include "recipients/NumberInText.h"

#include <algorithm>

namespace tellwick {

namespace {

constexpr TextView Digits = u"0123456789";
constexpr TextView InsideNumber = u"0123456789 ()/-.\u00A0";
constexpr std::ptrdiff_t LeastDigits = 6;
constexpr std::ptrdiff_t LeastDigitsAlone = 3;

// Letters, digits, and what holds an address together.
bool IsJoined(char16_t unit) {
    return IsWordUnit(unit) || unit == u'@' || unit == u'_';
}

}  // namespace

bool IsWordUnit(char16_t unit) {
    if (unit < 0x80) return IsDigit(unit) || (LowerCase(unit) >= u'a' && LowerCase(unit) <= u'z');
    const bool punctuation = (unit >= 0x2000 && unit < 0x2C00) || (unit >= 0x3000 && unit < 0x3040);
    return unit >= 0xC0 && unit != 0xD7 && unit != 0xF7 && !punctuation;
}

Text NumberInText(TextView text) {
    const bool alone = text.find_first_not_of(InsideNumber) == TextView::npos;
    std::size_t at = 0;
    while ((at = text.find_first_of(u"+0123456789", at)) != TextView::npos) {
        const std::size_t end = std::min(text.find_first_not_of(InsideNumber, at + 1), text.size());
        const std::size_t length = text.substr(0, end).find_last_of(Digits) + 1 - std::min(at, end);
        const TextView number = text.substr(at, length);
        const auto digits = std::count_if(number.begin(), number.end(), IsDigit);
        const bool separate = (at == 0 || !IsJoined(text[at - 1])) &&
                              (end == text.size() || at + length < end || !IsJoined(text[end]));
        const bool dialled = text[at] == u'+' || text[at] == u'0';
        if (separate && digits >= (alone ? LeastDigitsAlone : LeastDigits) && (dialled || alone)) {
            return Text(number);
        }
        at = std::max(end, at + 1);
    }
    return {};
}

}  // namespace tellwick
