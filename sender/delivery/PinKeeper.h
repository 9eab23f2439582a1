// Gives the modem the PIN that its SIM asks for: the one that was right last time, else the user's.
//
// The third wrong PIN locks the SIM. So each is tried once: before that it is taken out of the
// store, and put in again when it has proved right, so that no later start tries a wrong one again.
#pragma once

#include <memory>

#include "carrier/Modem.h"
#include "delivery/SecretStore.h"

namespace tellwick::sender {

class PinKeeper {
public:
    PinKeeper(Modem& modem, SecretStore& secrets, Timers& timers);

    // While a modem is used.
    void Watch(bool on);

    // Whether only the user can help: the SIM asks, and nothing is left to be tried.
    bool Asks() const { return asks; }
    // What he entered; tried once. False for what no PIN can be.
    bool Enter(TextView pin);

private:
    void Look();

    Modem& modem;
    SecretStore& secrets;
    std::unique_ptr<Timer> timer;
    Text tried;  // and neither right nor wrong yet
    bool asks = false;
};

}  // namespace tellwick::sender
