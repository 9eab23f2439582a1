// Text inside the program: UTF-16, as Outlook, COM and the windows speak it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tellwick {

using Text = std::u16string;
using TextView = std::u16string_view;

inline constexpr char16_t Tab = 9;
inline constexpr char16_t LineFeed = 10;
inline constexpr char16_t CarriageReturn = 13;
inline constexpr TextView LineBreak = u"\r\n";

char16_t LowerCaseBeyondAscii(char16_t unit);  // for LowerCase

// Lower case of one UTF-16 code unit: Latin, Greek, Cyrillic and Armenian letters; every other
// unit comes back as it is. Independent of the user's locale.
inline char16_t LowerCase(char16_t unit) {
    if (unit >= 0x80) return LowerCaseBeyondAscii(unit);
    return unit >= u'A' && unit <= u'Z' ? char16_t(unit + 32) : unit;
}
Text LowerCase(TextView text);

// Equal without regard to letter case (by LowerCase).
bool EqualFolded(TextView left, TextView right);

// Before in alphabetical order without regard to letter case (by LowerCase).
bool LessFolded(TextView left, TextView right);

// Position of the first occurrence at or after start; TextView::npos when there is none.
std::size_t FindFolded(TextView text, TextView what, std::size_t start = 0);

bool StartsWith(TextView text, TextView prefix);
bool EndsWith(TextView text, TextView suffix);
bool StartsWithFolded(TextView text, TextView prefix);
bool EndsWithFolded(TextView text, TextView suffix);
bool Contains(TextView text, TextView what);

// Replaces every occurrence, left to right, not looking again at what was put in. An empty `what`
// changes nothing.
Text ReplaceAll(TextView text, TextView what, TextView with);

// On one line: control characters as blanks, none at the ends.
Text OneLine(TextView text);
void OneLine(TextView text, Text& line);

// Without leading and trailing blanks (code 32 only).
Text Trimmed(TextView text);

// Cut before the first NUL character; whole when there is none.
TextView CutAtNul(TextView text);

// The pieces between the separators; one piece, the whole text, when there is no separator in it.
std::vector<Text> Split(TextView text, TextView separator);

// The number a text begins with, after leading blanks, tabs and line ends: an optional sign,
// decimal digits, and a fraction that is cut off. "3x" gives 3, "x" and "" give 0.
// Saturates at the limits of 64 bits.
std::int64_t LeadingNumber(TextView text);

// LeadingNumber for a 32-bit field: 0 when the number does not fit.
std::int32_t LeadingNumber32(TextView text);

// Decimal text, "-" in front of a negative number, nothing else.
Text NumberText(std::int64_t number);

// Upper-case hexadecimal text without leading zeros.
Text HexText(std::uint32_t number);

}  // namespace tellwick
