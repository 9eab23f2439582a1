// Port: bitmaps of the library's resources, pictures made of them, and the clipboard.
#pragma once

#include <cstdint>

#include "platform/Object.h"

namespace tellwick {

// A bitmap handle of the system; 0 is none.
using BitmapHandle = std::uintptr_t;

// Indexes of the system's colours.
enum class SystemColour : std::int32_t { Number0 = 0, Menu = 4 };

// A failure notes 440 (or the system's own number) and yields 0, an empty object, or nothing.
class Bitmaps {
public:
    virtual ~Bitmaps() = default;

    // Resource bitmap with light grey (192, 192, 192) replaced by a system colour.
    virtual BitmapHandle CreateMapped(std::int32_t resource, SystemColour lightGrey) = 0;

    // Resource bitmap as it is.
    virtual BitmapHandle Load(std::int32_t resource) = 0;

    // A picture object for the bitmap, which it owns from then on, failed or not.
    virtual ObjectPtr CreatePicture(BitmapHandle bitmap) = 0;

    // A picture object, with transparency, of a resource icon: a square of that many pixels at 96
    // dots per inch, made for the resolution below.
    virtual ObjectPtr CreateIconPicture(std::int32_t resource, std::int32_t size) = 0;

    // Dots per inch where the active window is; the system's while there is none.
    virtual std::int32_t Resolution() = 0;

    virtual void ClearClipboard() = 0;

    // Puts a copy of the picture on the clipboard as a bitmap.
    virtual void PutOnClipboard(const ObjectPtr& picture) = 0;
};

}  // namespace tellwick
