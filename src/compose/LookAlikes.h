// Characters that a reader takes for the same: a typographic quote and a straight one, a letter
// with an accent and the one without.
#pragma once

#include <functional>
#include <optional>

#include "platform/Text.h"

namespace tellwick {

// Whether a character (one UTF-16 unit or a surrogate pair) can be used as it is.
using Usable = std::function<bool(TextView character)>;

// What stands for a character that cannot be used: the nearest look-alike of usable characters.
// Empty where the character can be left out; nothing where there is none.
std::optional<Text> LookAlike(TextView character, const Usable& usable);

// Whether `plainer` in place of the character changes nothing but the typography: "-" for a dash, a
// blank for one that does not break. For letters it never does: with "l" for "ł" a word is another.
bool OnlyTypography(TextView character, TextView plainer);

// The text with look-alikes for all characters that cannot be used, or for `only` that one. A
// character without a look-alike stays. A letter and the accent that follows it become one letter,
// where there is one that can be used.
Text WithLookAlikes(TextView text, const Usable& usable, TextView only = {});

}  // namespace tellwick
