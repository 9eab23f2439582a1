// The user's font, resolution and language.
#pragma once

#include <windows.h>

#include "outlook/OutlookTexts.h"

namespace tellwick::standin {

class Look {
public:
    // The language as for OutlookTexts::Speak.
    explicit Look(TextView language);
    ~Look();
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;

    // Outlook's own text for an English one.
    Text Say(TextView english) const { return texts(english); }
    HFONT Font() const { return font; }
    // Height of a line of text in pixels.
    int LineHeight() const { return lineHeight; }
    int TextWidth(const Text& text) const;
    // Pixels for a length given at 96 dots per inch.
    int Scale(int length) const { return MulDiv(length, dotsPerInch, 96); }

private:
    OutlookTexts texts;
    HFONT font;
    int lineHeight = 16;
    int dotsPerInch = 96;
};

}  // namespace tellwick::standin
