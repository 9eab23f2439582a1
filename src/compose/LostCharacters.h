// The question before a text goes into the queue that would not get through it whole.
#pragma once

#include <vector>

#include "platform/Dialogs.h"
#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class Locale;
class MessageText;
struct LostCharacter;

class LostCharacters : private Services {
public:
    LostCharacters(const Services& services, MessageText& messageText, Locale& locale);

    // Whether the text goes into the queue: when nothing of it gets lost, or the user sends it as
    // it is or has the lost characters replaced. Those are then replaced in `text` and in the form;
    // where that has no room for them the user is told, and nothing goes.
    bool Settle(Text& text);

    // The same for texts that are filled already: what is replaced is so in all of them, and not in
    // the form.
    bool SettleFilled(const std::vector<Text*>& texts);

private:
    Answer Ask(const std::vector<LostCharacter>& lost, bool replaceable);

    MessageText& messageText;
    Locale& locale;
};

}  // namespace tellwick
