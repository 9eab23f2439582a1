// Countries, their codes, and how their mobile numbers are written at home.
#pragma once

#include <optional>

#include "platform/Text.h"

namespace tellwick {

// The beginning of no number: where the settings name this prefix alone, numbers stay
// international.
constexpr TextView NoNumbersPrefix = u"+999";

// The prefix to propose in a country, by the two letters of ISO 3166 in any letter case: "+49",
// whose numbers are then written with a 0 in its place, or NoNumbersPrefix where that would not
// give national mobile numbers. Empty for a country that is not known.
Text ProposedPrefix(TextView country);

// Country codes as users type them, the way the settings have them: "+49 +43" for " 0049, (43)".
// Nothing where none is there, or anything else is: a code is one to four digits, the first not 0.
std::optional<Text> CountryCodes(TextView typed);

}  // namespace tellwick
