// Passwords: they stand in the settings, encrypted by the system for this user alone.
#pragma once

#include "delivery/SecretStore.h"

namespace tellwick {
class InifilesLite;
}

namespace tellwick::sender {

class Secrets : public SecretStore {
public:
    explicit Secrets(InifilesLite& inifilesLite) : inifilesLite(inifilesLite) {}

    // One that stands there in plain letters, as an administrator writes it, is encrypted when it
    // is read.
    Text Read(TextView name) override;
    bool Write(TextView name, TextView value) override;

private:
    InifilesLite& inifilesLite;
};

}  // namespace tellwick::sender
