// The user's font and resolution.
#pragma once

#include <windows.h>

#include "platform/Text.h"

namespace tellwick::standin {

class Look {
public:
    Look();
    ~Look();
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;

    HFONT Font() const { return font; }
    // Height of a line of text in pixels.
    int LineHeight() const { return lineHeight; }
    int TextWidth(const Text& text) const;
    // Pixels for a length given at 96 dots per inch.
    int Scale(int length) const { return MulDiv(length, dotsPerInch, 96); }

private:
    HFONT font;
    int lineHeight = 16;
    int dotsPerInch = 96;
};

}  // namespace tellwick::standin
