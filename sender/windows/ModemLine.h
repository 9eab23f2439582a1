// The line to the modem: opened as the settings say, and again whenever it comes back.
#pragma once

#include <memory>

#include "carrier/Modem.h"
#include "windows/WindowsSerialPort.h"

namespace tellwick::sender {

class ModemLine {
public:
    ModemLine(Modem& modem, Timers& timers, const MainThread& mainThread);
    ModemLine(const ModemLine&) = delete;
    ModemLine& operator=(const ModemLine&) = delete;
    ~ModemLine();

    // An empty port closes it.
    void SetSettings(const SerialSettings& newSettings);

    // The system has got, or lost, a device.
    void DevicesChanged() { Open(); }

private:
    void Open();
    void TryAgain();
    void Close();

    Modem& modem;
    MainThread mainThread;
    std::unique_ptr<Timer> timer;  // while it is not open
    SerialSettings settings;
    std::unique_ptr<WindowsSerialPort> port;
};

}  // namespace tellwick::sender
