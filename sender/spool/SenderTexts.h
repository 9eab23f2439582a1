// The sender's own texts.
#pragma once

#include <vector>

#include "platform/Text.h"

namespace tellwick {
class LanguageTexts;
}

namespace tellwick::sender {

struct SenderTextEntry {
    TextView name;
    TextView text;  // in English; "%d" is what is named or counted
};

// All of them: the reasons by their names, and those of the window.
const std::vector<SenderTextEntry>& SenderTexts();

// The text of that name in section "Sender" of the language file, or the one built in; empty when
// there is neither.
Text SenderText(LanguageTexts& language, TextView name);

}  // namespace tellwick::sender
