// The pictures on buttons: what an add-in put or pasted there, or a drawing of Outlook's own.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "model/CommandBars.h"

namespace tellwick::standin {

// Pixels of one picture, top row first, 0xTTRRGGBB: TT is what shines through of what is behind it,
// from 0 for nothing to 0xFF for all; the colours hold only the rest.
struct Face {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    bool IsEmpty() const { return pixels.empty(); }
};

inline constexpr std::uint32_t Transparent = 0xFF000000;

// Side of a face before it is scaled, in pixels.
inline constexpr int FaceSize = 16;

// A copy of the clipboard's bitmap, as a handle that lives as long as the program; 0 when there is
// none.
std::uintptr_t PasteBitmap();

// The button's pasted face, or its picture without the pixels that are white in its mask, or what
// Outlook draws itself for a button of its own. Empty when it has none.
Face FaceOf(const CommandBarControl& control);

// A picture object of others, with the transparency that it brings along.
Face FaceOfPicture(const ObjectPtr& picture);

// What Outlook draws for a control of its own, by its caption; empty when it has none.
Face OwnFace(const Text& caption);

// Draws the face into a square of `size` pixels, scaled.
void DrawFace(HDC context, const Face& face, int left, int top, int size);

}  // namespace tellwick::standin
