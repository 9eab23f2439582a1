#include "delivery/PinKeeper.h"

namespace tellwick::sender {

namespace {

constexpr std::uint32_t BetweenLooks = 3000;  // milliseconds

}  // namespace

PinKeeper::PinKeeper(Modem& modem, SecretStore& secrets, Timers& timers)
    : modem(modem), secrets(secrets), timer(timers.Create()) {}

void PinKeeper::Watch(bool on) {
    asks = false;
    if (on) {
        timer->Start(BetweenLooks, [this] { Look(); });
    } else {
        timer->Stop();
    }
}

void PinKeeper::Look() {
    // A modem that has one to try does not say so.
    const Text away = modem.Away().name;
    const bool wanted = away == reason::NeedsPin || away == reason::WrongPin;
    const bool right = !tried.empty() && modem.AcceptedPin() == tried;
    if (right) secrets.Write(secret::Pin, tried);
    if (right || wanted) tried.clear();
    asks = wanted;
    if (!asks) return;
    // Where it cannot be taken out the next start would try it once more.
    const Text kept = secrets.Read(secret::Pin);
    if (!kept.empty() && secrets.Write(secret::Pin, {})) Enter(kept);
}

bool PinKeeper::Enter(TextView pin) {
    if (!modem.SetPin(pin)) return false;
    tried = pin;
    asks = false;
    return true;
}

}  // namespace tellwick::sender
