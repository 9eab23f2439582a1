// What the settings modules need of the language: the lookup of texts and the load.
#pragma once

#include "platform/Text.h"

namespace tellwick {

class LanguageTexts {
public:
    virtual ~LanguageTexts() = default;

    // The text of key in section (with or without brackets); empty when there is none. With warn
    // a missing text is shown to the user.
    virtual Text GetLanguageString(TextView section, TextView key, bool warn = false) = 0;

    // The same text, or the one built into the program where the language file has none.
    virtual Text TextOrBuiltIn(TextView section, TextView key) = 0;

    // Chooses and loads the language file; only the first call does anything.
    virtual void LoadLanguageFile() = 0;
};

}  // namespace tellwick
