// Port: the system's message box and the program's own small dialogs. All are modal and return
// when the user has answered.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

// Buttons, icons and answers by the system's own values.
namespace box {
inline constexpr std::uint32_t Ok = 0;
inline constexpr std::uint32_t OkCancel = 1;
inline constexpr std::uint32_t YesNo = 4;
inline constexpr std::uint32_t ButtonMask = 0x0F;
inline constexpr std::uint32_t IconError = 16;
inline constexpr std::uint32_t IconQuestion = 32;
inline constexpr std::uint32_t IconExclamation = 48;
inline constexpr std::uint32_t IconInformation = 64;
inline constexpr std::uint32_t IconMask = 0xF0;
}  // namespace box

enum class Answer : std::int32_t { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

// An answer on offer.
struct Choice {
    Answer answer;
    Text caption;
};

class Dialogs {
public:
    virtual ~Dialogs() = default;

    // The system's box. `flags` holds only values that box knows.
    virtual Answer MessageBox(TextView text, std::uint32_t flags, TextView title) = 0;

    // A box with a check box under its text and a button for each choice; the first one is the
    // default button. `icon` is one of the icons or 0. `checked` is the state of the check box,
    // before and after; its caption is `checkBoxText`, and without one there is none. Closing the
    // box without an answer gives the last choice and leaves it unchecked.
    virtual Answer CheckedMessageBox(TextView text, const std::vector<Choice>& choices,
                                     std::uint32_t icon, TextView title, TextView checkBoxText,
                                     bool& checked) = 0;

    // A box with a text field, and the system's own OK and Cancel: it is also shown before it is
    // known which language the user has chosen. Cancel gives the empty text.
    virtual Text InputBox(TextView prompt, TextView title) = 0;
};

}  // namespace tellwick
