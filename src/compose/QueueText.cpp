#include "compose/QueueText.h"

#include "air/AirCount.h"
#include "compose/LookAlikes.h"
#include "platform/Locale.h"

namespace tellwick {

namespace {

Text Arriving(TextView text, Locale& locale) {
    return locale.FromAnsi(locale.ToAnsi(text));
}

}  // namespace

bool SurvivesQueue(TextView character, Locale& locale) {
    return (character.size() == 1 && character[0] < 0x80) ||
           Arriving(character, locale) == character;
}

QueueText ThroughQueue(TextView text, Locale& locale) {
    QueueText through{Arriving(text, locale), {}};
    if (through.arrives == text) return through;
    through.arrives.clear();
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); at += length) {
        length = CharacterLength(text, at);
        const TextView character = text.substr(at, length);
        const std::size_t position = through.arrives.size();
        if (character[0] < 0x80) {
            through.arrives += character;
            continue;
        }
        const Text arrives = Arriving(character, locale);
        through.arrives += arrives;
        if (arrives != character && !OnlyTypography(character, arrives)) {
            through.lost.push_back({Text(character), arrives, position});
        }
    }
    return through;
}

}  // namespace tellwick
