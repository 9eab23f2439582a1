// The user's font for messages at a screen's resolution, and the sizes that follow from it.
#pragma once

#include <vector>

#include "windows/Com.h"

#include "platform/Controls.h"

namespace tellwick::windows {

// Dots per inch: of the monitor that the window is on where the host follows monitors, else of the
// system, as for no window.
int ResolutionOf(HWND window);

// The size of a window around a client area, with its frame at its resolution.
SIZE SizeAround(HWND window, SIZE client);

// Names of the installed fonts that letters can be written in, in alphabetical order.
std::vector<Text> InstalledFonts();

// Sizes in pixels that follow the user's font.
struct FontMetrics {
    int lineHeight = 0;
    int averageWidth = 0;
    int Horizontal(int dialogUnits) const { return dialogUnits * averageWidth / 4; }
    int Vertical(int dialogUnits) const { return dialogUnits * lineHeight / 8; }
};

class MessageFont {
public:
    explicit MessageFont(int resolution = ResolutionOf(nullptr));
    HFONT Get() const { return static_cast<HFONT>(font.get()); }
    const FontMetrics& Metrics() const { return metrics; }
    int Resolution() const { return resolution; }
    // A length given in pixels at 96 dots per inch.
    int Pixels(int at96) const { return MulDiv(at96, resolution, 96); }
    // Width that a button, a check box or a label needs for its caption.
    int CaptionWidth(TextView caption) const {
        return Measure(caption).cx + metrics.Horizontal(12);
    }
    // Width that a drop-down list needs for its items.
    int DropDownWidth(const ItemList& list) const;
    // Size of a text, mnemonic marks left out; `width` above 0 wraps it.
    SIZE Measure(TextView text, int width = 0) const;

private:
    int resolution;
    struct ContextDeleter {
        using pointer = HDC;
        void operator()(HDC context) const { DeleteDC(context); }
    };

    GdiObject font;
    // Has the font, for as long as both live: to measure must be cheap. Goes first.
    std::unique_ptr<HDC__, ContextDeleter> context;
    FontMetrics metrics;
};

}  // namespace tellwick::windows
