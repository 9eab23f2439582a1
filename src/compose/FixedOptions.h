// The fields of the settings window that an administrator has fixed: grey, with a word why.
#pragma once

namespace tellwick {

class FormOptionsView;
class InifilesLite;
class LanguageTexts;

class FixedOptions {
public:
    FixedOptions(FormOptionsView& view, InifilesLite& inifilesLite, LanguageTexts& language);

    // Disables the fields of what is fixed, and enables none.
    void Show();

private:
    FormOptionsView& view;
    InifilesLite& inifilesLite;
    LanguageTexts& language;
};

}  // namespace tellwick
