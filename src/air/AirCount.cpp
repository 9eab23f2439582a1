#include "air/AirCount.h"

namespace tellwick {

namespace {

// Units of an SMS that is alone, and of each of several.
struct Limits {
    std::int32_t single, part;
};
constexpr Limits GsmLimits{160, 153};
constexpr Limits UnicodeLimits{70, 67};

bool In(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

bool IsHighSurrogate(char16_t unit) {
    return In(unit, 0xD800, 0xDBFF);
}

bool IsLowSurrogate(char16_t unit) {
    return In(unit, 0xDC00, 0xDFFF);
}

char32_t CharacterAt(TextView text, std::size_t position) {
    if (CharacterLength(text, position) == 1) return text[position];
    return 0x10000 + (char32_t(text[position] - 0xD800) << 10) + (text[position + 1] - 0xDC00);
}

// The character that ends before a position above 0.
char32_t CharacterBefore(TextView text, std::size_t position) {
    const bool pair = position >= 2 && CharacterLength(text, position - 2) == 2;
    return CharacterAt(text, position - (pair ? 2 : 1));
}

constexpr char32_t Joiner = 0x200D;

// Marks and signs that change the character before them.
bool Extends(char32_t character) {
    return character == Joiner || In(character, 0x0300, 0x036F) || In(character, 0x0483, 0x0489) ||
           In(character, 0x0591, 0x05BD) || In(character, 0x0610, 0x061A) ||
           In(character, 0x064B, 0x065F) || character == 0x0670 || In(character, 0x093A, 0x093C) ||
           In(character, 0x093E, 0x094D) || In(character, 0x0E31, 0x0E31) ||
           In(character, 0x0E34, 0x0E3A) || In(character, 0x0E47, 0x0E4E) ||
           In(character, 0x1AB0, 0x1AFF) || In(character, 0x1DC0, 0x1DFF) ||
           In(character, 0x20D0, 0x20FF) || In(character, 0xFE00, 0xFE0F) ||
           In(character, 0x1F3FB, 0x1F3FF) || In(character, 0xE0020, 0xE007F);
}

// Two of these are the flag of a country.
bool IsFlagLetter(char32_t character) {
    return In(character, 0x1F1E6, 0x1F1FF);
}

// How many of them stand before a position, without a gap.
std::size_t FlagLettersBefore(TextView text, std::size_t position) {
    std::size_t count = 0;
    for (; position >= 2 && IsFlagLetter(CharacterBefore(text, position)); position -= 2) ++count;
    return count;
}

}  // namespace

std::size_t CharacterLength(TextView text, std::size_t position) {
    const bool pair = IsHighSurrogate(text[position]) && position + 1 < text.size() &&
                      IsLowSurrogate(text[position + 1]);
    return pair ? 2 : 1;
}

bool CutsCharacter(TextView text, std::size_t position) {
    if (position == 0 || position >= text.size()) return false;
    const char32_t before = CharacterBefore(text, position);
    const char32_t behind = CharacterAt(text, position);
    // Behind a line break a mark stands alone; a joiner joins pictures only.
    if (Extends(behind)) return before != LineFeed;
    if (before == Joiner) return behind >= 0x2190;
    return IsFlagLetter(behind) && FlagLettersBefore(text, position) % 2 == 1;
}

AirCount CountOnAir(TextView text, ConcatReference reference) {
    AirCount count;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::int32_t septets = SeptetsOf(text[at]);
        count.units += septets;
        if (septets > 0) continue;
        count.forcing.push_back(at);
        at += CharacterLength(text, at) - 1;
    }
    const bool unicode = !count.forcing.empty();
    if (unicode) {
        count.encoding = AirEncoding::Ucs2;
        count.units = std::int32_t(text.size());
    }
    Limits limits = unicode ? UnicodeLimits : GsmLimits;
    if (reference == ConcatReference::Bits16) --limits.part;
    if (count.units <= limits.single) {
        count.parts.push_back({0, text.size(), count.units});
        count.free = limits.single - count.units;
        return count;
    }
    AirPart part;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = unicode ? CharacterLength(text, at) : 1;
        const std::int32_t units = unicode ? std::int32_t(length) : SeptetsOf(text[at]);
        if (part.units + units > limits.part) {
            count.parts.push_back(part);
            part = {at, 0, 0};
        }
        part.length += length;
        part.units += units;
        at += length;
    }
    count.parts.push_back(part);
    count.free = limits.part - part.units;
    return count;
}

}  // namespace tellwick
