// What a message calls a character.
#pragma once

#include "platform/Text.h"

namespace tellwick {

class LanguageTexts;

// The character (one UTF-16 unit, a surrogate pair or a line break) itself or, where it cannot be
// seen, its name: "no-break space", "space (U+2009)", or "U+0301" where there is no name.
Text CharacterName(LanguageTexts& language, TextView character);

}  // namespace tellwick
