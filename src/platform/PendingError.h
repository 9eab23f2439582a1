// The pending error: what the last failing step of the running procedure left behind.
#pragma once

#include <cstdint>

#include "platform/Text.h"

namespace tellwick {

// Automation error numbers that the program or its surroundings use by name.
namespace error {
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t FileNotFound = 53;
inline constexpr std::int32_t PermissionDenied = 70;
inline constexpr std::int32_t PathFileAccess = 75;
inline constexpr std::int32_t PathNotFound = 76;
inline constexpr std::int32_t ObjectNotSet = 91;
inline constexpr std::int32_t ComponentMissing = 339;
inline constexpr std::int32_t ControlNotLoaded = 372;
inline constexpr std::int32_t ControlNotLoadedHere = 374;
inline constexpr std::int32_t CannotCreateObject = 429;
inline constexpr std::int32_t NoSuchMember = 438;
inline constexpr std::int32_t Automation = 440;
}  // namespace error

// A step that fails notes its error here, and the next step runs. Only want of memory throws.
// A later error replaces an earlier one; every traced procedure clears it on entry.
struct PendingError {
    std::int32_t number = 0;  // 0: no error is pending
    Text description;

    void Note(std::int32_t errorNumber, TextView errorDescription) {
        number = errorNumber;
        description = errorDescription;
    }
    void Clear() {
        number = 0;
        description.clear();
    }
    explicit operator bool() const { return number != 0; }
};

}  // namespace tellwick
