#include "platform/Text.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace tellwick {

namespace {

bool In(char16_t unit, char16_t first, char16_t last) {
    return unit >= first && unit <= last;
}

// Blocks in which capital and small letters alternate, the capital at an even or an odd code.
bool EvenCapitals(char16_t unit) {
    return In(unit, 0x0100, 0x0137) || In(unit, 0x014A, 0x0177) || In(unit, 0x01DE, 0x01EF) ||
           In(unit, 0x01F8, 0x021F) || In(unit, 0x0222, 0x0233) || In(unit, 0x0460, 0x0481) ||
           In(unit, 0x048A, 0x04BF) || In(unit, 0x04D0, 0x052F) || In(unit, 0x1E00, 0x1E95) ||
           In(unit, 0x1EA0, 0x1EFF);
}

bool OddCapitals(char16_t unit) {
    return In(unit, 0x0139, 0x0148) || In(unit, 0x0179, 0x017E) || In(unit, 0x01CD, 0x01DC) ||
           In(unit, 0x04C1, 0x04CE);
}

bool IsSpace(char16_t unit) {
    return unit == u' ' || unit == Tab || unit == LineFeed || unit == CarriageReturn;
}

}  // namespace

char16_t LowerCaseBeyondAscii(char16_t unit) {
    if (unit < 0x100) {
        return In(unit, 0xC0, 0xDE) && unit != 0xD7 ? char16_t(unit + 32) : unit;
    }
    switch (unit) {
        case 0x0130:
            return u'i';
        case 0x0178:
            return 0x00FF;
        case 0x0386:
            return 0x03AC;
        case 0x038C:
            return 0x03CC;
        case 0x1E9E:
            return 0x00DF;
        default:
            break;
    }
    if (In(unit, 0x0388, 0x038A)) return char16_t(unit + 37);
    if (In(unit, 0x038E, 0x038F)) return char16_t(unit + 63);
    if (In(unit, 0x0391, 0x03AB) && unit != 0x03A2) return char16_t(unit + 32);
    if (In(unit, 0x0400, 0x040F)) return char16_t(unit + 80);
    if (In(unit, 0x0410, 0x042F)) return char16_t(unit + 32);
    if (In(unit, 0x0531, 0x0556)) return char16_t(unit + 48);
    if (EvenCapitals(unit) && unit % 2 == 0) return char16_t(unit + 1);
    if (OddCapitals(unit) && unit % 2 == 1) return char16_t(unit + 1);
    return unit;
}

Text LowerCase(TextView text) {
    Text lower(text);
    for (char16_t& unit : lower) unit = LowerCase(unit);
    return lower;
}

bool EqualFolded(TextView left, TextView right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char16_t a, char16_t b) { return LowerCase(a) == LowerCase(b); });
}

bool LessFolded(TextView left, TextView right) {
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(),
        [](char16_t a, char16_t b) { return LowerCase(a) < LowerCase(b); });
}

std::size_t FindFolded(TextView text, TextView what, std::size_t start) {
    if (start > text.size()) return TextView::npos;
    const auto found =
        std::search(text.begin() + std::ptrdiff_t(start), text.end(), what.begin(), what.end(),
                    [](char16_t a, char16_t b) { return LowerCase(a) == LowerCase(b); });
    if (found == text.end() && !what.empty()) return TextView::npos;
    return std::size_t(found - text.begin());
}

bool StartsWith(TextView text, TextView prefix) {
    return text.starts_with(prefix);
}

bool EndsWith(TextView text, TextView suffix) {
    return text.ends_with(suffix);
}

bool StartsWithFolded(TextView text, TextView prefix) {
    return text.size() >= prefix.size() && EqualFolded(text.substr(0, prefix.size()), prefix);
}

bool EndsWithFolded(TextView text, TextView suffix) {
    return text.size() >= suffix.size() &&
           EqualFolded(text.substr(text.size() - suffix.size()), suffix);
}

bool Contains(TextView text, TextView what) {
    return text.find(what) != TextView::npos;
}

Text ReplaceAll(TextView text, TextView what, TextView with) {
    Text result;
    if (what.empty()) return Text(text);
    std::size_t start = 0;
    for (;;) {
        const std::size_t found = text.find(what, start);
        if (found == TextView::npos) break;
        result.append(text, start, found - start);
        result.append(with);
        start = found + what.size();
    }
    result.append(text, start);
    return result;
}

Text OneLine(TextView text) {
    Text line;
    OneLine(text, line);
    return line;
}

void OneLine(TextView text, Text& line) {
    const auto isBlank = [](char16_t unit) { return unit <= u' '; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), std::reverse_iterator(first), isBlank).base();
    line.assign(first, last);
    for (char16_t& unit : line) unit = std::max(unit, u' ');
}

Text Trimmed(TextView text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == TextView::npos) return {};
    return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

TextView CutAtNul(TextView text) {
    return text.substr(0, text.find(u'\0'));
}

std::vector<Text> Split(TextView text, TextView separator) {
    std::vector<Text> pieces;
    std::size_t start = 0;
    for (;;) {
        const std::size_t found = text.find(separator, start);
        pieces.emplace_back(text.substr(start, found - start));
        if (found == TextView::npos || separator.empty()) return pieces;
        start = found + separator.size();
    }
}

std::int64_t LeadingNumber(TextView text) {
    constexpr std::int64_t Max = std::numeric_limits<std::int64_t>::max();
    std::size_t at = 0;
    while (at < text.size() && IsSpace(text[at])) ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) ++at;
    std::int64_t number = 0;
    for (; at < text.size() && In(text[at], u'0', u'9'); ++at) {
        const std::int64_t digit = text[at] - u'0';
        number = number > (Max - digit) / 10 ? Max : number * 10 + digit;
    }
    return negative ? -number : number;
}

std::int32_t LeadingNumber32(TextView text) {
    const std::int64_t number = LeadingNumber(text);
    return number == std::int32_t(number) ? std::int32_t(number) : 0;
}

Text NumberText(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return Text(digits.begin(), digits.end());
}

Text HexText(std::uint32_t number) {
    Text digits;
    do {
        digits.insert(digits.begin(), u"0123456789ABCDEF"[number & 15]);
        number >>= 4;
    } while (number != 0);
    return digits;
}

}  // namespace tellwick
