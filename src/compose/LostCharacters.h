// The question before a text goes into the queue that would not get through it whole.
#pragma once

#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class Locale;
class MessageText;

class LostCharacters : private Services {
public:
    LostCharacters(const Services& services, MessageText& messageText, Locale& locale);

    // Whether the text goes into the queue: when nothing of it gets lost, or the user sends it as
    // it is or has the lost characters replaced. Those are then replaced in `text` and in the form;
    // where that has no room for them the user is told, and nothing goes.
    bool Settle(Text& text);

private:
    MessageText& messageText;
    Locale& locale;
};

}  // namespace tellwick
