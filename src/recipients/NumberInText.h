// Telephone numbers in running text.
#pragma once

#include "platform/Text.h"

namespace tellwick {

// The first telephone number in a text such as "SMS from +49 170 1234567" or "0171/234567 <...>",
// as it is written there; empty when there is none. A number begins with "+" or "0" and has six
// digits or more; a text that is nothing but a number may be any number of three digits or more,
// as services have them. Digits that are part of a word or of an address are no number.
Text NumberInText(TextView text);

// Whether the unit can be part of a word: a letter or a digit.
bool IsWordUnit(char16_t unit);

}  // namespace tellwick
