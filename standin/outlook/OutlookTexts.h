// What Outlook's own windows say in the languages that the add-in has. Buttons stay English in the
// object model, so that scripts and tests name them in one way.
#pragma once

#include "platform/Text.h"

namespace tellwick::standin {

class OutlookTexts {
public:
    // A language as its file in `lang` is named. False for one that there is none of; what was
    // spoken before, English at first, stays.
    bool Speak(TextView language);
    // The text for an English one, which may have access keys ("&") and a key behind a tab; English
    // where Outlook's own windows have no such text.
    Text operator()(TextView english) const;

private:
    std::size_t column = 0;
};

}  // namespace tellwick::standin
