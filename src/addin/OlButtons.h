// Command-bar work: the add-in's button and drop-down entry in Outlook's toolbars.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/Bitmaps.h"
#include "platform/MessageLoop.h"
#include "platform/Outlook.h"

namespace tellwick {

class RegEdit;

// What a button's values default to where the user's placement record has none.
struct ButtonDefaults {
    bool beginGroup;
    std::int32_t style;     // an Office button style number
    std::int32_t position;  // 1-based index of the control to stand before; below 1: at the end
};

class OlButtons {
public:
    OlButtons(PendingError& errors, RegEdit& regEdit, Bitmaps& bitmaps, MessageLoop& messageLoop);

    // The action text by which the add-in knows its own controls.
    static Text ActionText(TextView progId);

    // Deletes every control for which `isOwn` holds, of those that are not built in.
    static void DeleteControls(const outlook::CommandBarControls& controls,
                               const std::function<bool(const outlook::CommandBarControl&)>& isOwn);

    // Adds the temporary button to the bar that the placement record names ("Standard" by
    // default), after removing this add-in's leftovers from that bar. Every failing step is
    // skipped; an empty view when Office adds no control.
    outlook::CommandBarControl AddButton(const outlook::Explorer& explorer, std::int32_t identifier,
                                         TextView progId, TextView caption, TextView tag,
                                         const ButtonDefaults& defaults);

    // Adds a temporary entry at the end of the parent's drop-down. A face number below 0 sets no
    // face, a picture identifier of 0 no picture.
    outlook::CommandBarControl AddMenuItem(const outlook::CommandBarControl& parent,
                                           TextView progId, TextView caption,
                                           std::int32_t faceNumber, TextView tag,
                                           std::int32_t picture, bool beginGroup);

    // A picture object that owns the bitmap; empty when the system makes none.
    ObjectPtr BitmapToPicture(BitmapHandle bitmap);

private:
    void SetFace(const outlook::CommandBarControl& control, std::int32_t picture,
                 SystemColour lightGrey);

    PendingError& errors;
    RegEdit& regEdit;
    Bitmaps& bitmaps;
    MessageLoop& messageLoop;
};

}  // namespace tellwick
