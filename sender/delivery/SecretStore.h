// Port: where passwords are kept, readable for this user alone.
#pragma once

#include "platform/Text.h"

namespace tellwick::sender {

namespace secret {
inline constexpr TextView Password = u"Password";  // of the gateway
inline constexpr TextView Pin = u"Pin";            // of the SIM
}  // namespace secret

class SecretStore {
public:
    virtual ~SecretStore() = default;

    // Empty when there is none, or none that this user can read.
    virtual Text Read(TextView name) = 0;

    // An empty secret removes it. False when it cannot be kept safely.
    virtual bool Write(TextView name, TextView value) = 0;
};

}  // namespace tellwick::sender
