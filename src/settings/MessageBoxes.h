// The one wrapper around the system's message box: every box of the program goes through it.
#pragma once

#include <cstdint>

#include "platform/Dialogs.h"
#include "platform/Text.h"

namespace tellwick {

class MessageBoxes {
public:
    // Style bits of the program's own, which the system's box never sees.
    static constexpr std::uint32_t RememberedAnswer = 0x90000000;
    static constexpr std::uint32_t AffirmativeIsOne = 0x80;

    explicit MessageBoxes(Dialogs& dialogs) : dialogs(dialogs) {}

    // Shows the part of the message before its first "|". An empty title becomes the
    // application's and is handed back.
    Answer MsgBoxEx(TextView message, std::uint32_t flags, Text& title);
    Answer MsgBoxEx(TextView message, std::uint32_t flags);

protected:
    static TextView ShownPart(TextView message);

    Dialogs& dialogs;
};

}  // namespace tellwick
