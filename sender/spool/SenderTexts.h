// The sender's own texts.
#pragma once

#include <vector>

#include "platform/Text.h"

namespace tellwick {
class FormView;
class LanguageTexts;
}  // namespace tellwick

namespace tellwick::sender {

struct SenderTextEntry {
    // Where it is to be seen: of access keys there is one for each letter in a place. What is in
    // Settings is there together with one of the two behind it.
    enum Place { Said, Window, Settings, ModemSettings, GatewaySettings, Pin };

    TextView name;
    TextView text;  // in English; "%d" is what is named or counted
    Place place = Said;
};

// All of them: the reasons by their names, and those of the windows; a control's by its name.
const std::vector<SenderTextEntry>& SenderTexts();

// The text of that name in section "Sender" of the language file, or the one built in; empty when
// there is neither.
Text SenderText(LanguageTexts& language, TextView name);

// Gives a form the caption of that name, and each of its controls that of the control's name.
void SetSenderTexts(LanguageTexts& language, TextView caption, FormView& view);

}  // namespace tellwick::sender
