// Passwords: they stand in the settings, encrypted by the system for this user alone.
#pragma once

#include "platform/Text.h"

namespace tellwick {
class InifilesLite;
}

namespace tellwick::sender {

namespace secret {
inline constexpr TextView Password = u"Password";  // of the gateway
inline constexpr TextView Pin = u"Pin";            // of the SIM
}  // namespace secret

class Secrets {
public:
    explicit Secrets(InifilesLite& inifilesLite) : inifilesLite(inifilesLite) {}

    // Empty when there is none, or none that this user can read. One that stands there in plain
    // letters, as an administrator writes it, is encrypted when it is read.
    Text Read(TextView name);

    // An empty secret removes it. False when it cannot be encrypted or written.
    bool Write(TextView name, TextView value);

private:
    InifilesLite& inifilesLite;
};

}  // namespace tellwick::sender
