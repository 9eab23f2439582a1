// The German texts the program falls back on where the language file has none.
#pragma once

#include <span>

#include "platform/Text.h"

namespace tellwick {

// Section and key are the language file's. The text is ready for use: line breaks are carriage
// returns.
struct BuiltInTextEntry {
    TextView section;
    TextView key;
    TextView text;
};

std::span<const BuiltInTextEntry> BuiltInTexts();

// Empty when there is none.
TextView BuiltInText(TextView section, TextView key);

}  // namespace tellwick
