// Countries, and how their mobile numbers are written at home.
#pragma once

#include "platform/Text.h"

namespace tellwick {

// The beginning of no number: where the settings name this prefix alone, numbers stay
// international.
constexpr TextView NoNumbersPrefix = u"+999";

// The prefix to propose in a country, by the two letters of ISO 3166 in any letter case: "+49",
// whose numbers are then written with a 0 in its place, or NoNumbersPrefix where that would not
// give national mobile numbers. Empty for a country that is not known.
Text ProposedPrefix(TextView country);

}  // namespace tellwick
