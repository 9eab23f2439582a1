// What of a text gets through the queue: its files are in the system's code page.
#pragma once

#include <vector>

#include "platform/Text.h"

namespace tellwick {

class Locale;

// A character that arrives as another one.
struct LostCharacter {
    Text character;
    Text arrives;              // "?", or what the system takes for the nearest
    std::size_t position = 0;  // in the text that arrives
};

struct QueueText {
    Text arrives;
    // In the order of the text, every one of several that are the same. What differs from the
    // character in its typography only is no loss.
    std::vector<LostCharacter> lost;
};

QueueText ThroughQueue(TextView text, Locale& locale);

// Whether a character arrives as it is.
bool SurvivesQueue(TextView character, Locale& locale);

}  // namespace tellwick
