#include "windows/ModemLine.h"

namespace tellwick::sender {

namespace {

constexpr std::uint32_t BetweenTries = 3000;  // milliseconds

}  // namespace

ModemLine::ModemLine(Modem& modem, Timers& timers, const MainThread& mainThread)
    : modem(modem), mainThread(mainThread), timer(timers.Create()) {}

ModemLine::~ModemLine() {
    Close();
}

void ModemLine::SetSettings(const SerialSettings& newSettings) {
    if (settings == newSettings) return;
    Close();
    settings = newSettings;
    Open();
}

void ModemLine::Open() {
    if (port || settings.port.empty()) return;
    WindowsSerialPort::Events events;
    events.received = [this](std::string_view bytes) { modem.Received(bytes); };
    // Not at once: a port that fails at the first byte would be opened without end.
    events.gone = [this] {
        Close();
        TryAgain();
    };
    port = WindowsSerialPort::Open(settings, mainThread, std::move(events));
    if (port) {
        timer->Stop();
        modem.Plugged(*port);
    } else {
        TryAgain();
    }
}

void ModemLine::TryAgain() {
    timer->Start(BetweenTries, [this] { Open(); });
}

void ModemLine::Close() {
    timer->Stop();
    if (!port) return;
    modem.Unplugged();
    port.reset();
}

}  // namespace tellwick::sender
