// The GSM 7-bit default alphabet with its extension table (3GPP TS 23.038).
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Text.h"

namespace tellwick {

// What a UTF-16 unit takes in the alphabet: 1 septet, 2 with its escape, 0 when it is not in there.
std::int32_t SeptetsOf(char16_t unit);

// The septets of a text, one a byte. A unit that the alphabet lacks becomes "?".
std::string ToSeptets(TextView text);

// The text of septets, one a byte. As phones do it, an escape before a code that the extension
// table lacks does not count: the character of the default alphabet stands there.
Text FromSeptets(std::string_view septets);

}  // namespace tellwick
