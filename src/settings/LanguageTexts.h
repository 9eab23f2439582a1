// The language as its users know it: the lookup of texts, the texts of whole forms, and the load.
#pragma once

#include <vector>

#include "platform/Text.h"

namespace tellwick {

class FormView;

// The section of the texts of the window in which an SMS is written; also its name.
inline constexpr TextView FormSmsSendTexts = u"FormSmsSend";

// Where the user's manual is, in the language chosen. Full paths; empty before the language is
// loaded.
struct ManualPlaces {
    Text helpFile;          // the compiled help to open
    Text languageHelpFile;  // the one that the chosen language would have
    Text folder;            // of the pages; ends in "\"
};

struct LanguageChoice {
    Text name;     // can stand in the setting "Language" of section "Settings"
    Text ownName;  // as its speakers write it; the name where the file does not say
};

class LanguageTexts {
public:
    virtual ~LanguageTexts() = default;

    // The text of key in section (with or without brackets); empty when there is none. With warn
    // a missing text is shown to the user.
    virtual Text GetLanguageString(TextView section, TextView key, bool warn = false) = 0;

    // The same text, or the one built into the program where the language file has none.
    virtual Text TextOrBuiltIn(TextView section, TextView key) = 0;

    // Gives a form and its controls their captions and tool tips from the section named as the
    // form: keys "Caption", the control's name, and the control's name + ".ToolTip". What neither
    // the file nor the built-in texts have is left as it is.
    virtual void GetLanguageStringsForForm(TextView formName, FormView& view) = 0;

    // The languages that there are files for, in the alphabetical order of their own names.
    virtual std::vector<LanguageChoice> Languages() = 0;

    // The name of the one of them that a value of that setting chooses; empty when it chooses none.
    virtual Text LanguageName(TextView setting) = 0;

    // Chooses and loads the language file; only the first call does anything.
    virtual void LoadLanguageFile() = 0;

    virtual const ManualPlaces& Manual() const = 0;
};

}  // namespace tellwick
