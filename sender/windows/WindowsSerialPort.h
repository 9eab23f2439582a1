// A serial port of the system's, open.
#pragma once

#include <functional>
#include <memory>

#include "carrier/BytePort.h"
#include "delivery/SenderSettings.h"
#include "windows/MainThread.h"

namespace tellwick::sender {

// A thread of its own reads and writes; what it has to say comes in the main thread.
class WindowsSerialPort : public BytePort {
public:
    struct Events {
        std::function<void(std::string_view bytes)> received;
        // Pulled out, or switched off. Nothing comes behind it.
        std::function<void()> gone;
    };

    // Null when there is no such port, or another program has it.
    static std::unique_ptr<WindowsSerialPort> Open(const SerialSettings& settings,
                                                   const MainThread& mainThread, Events events);
    WindowsSerialPort(const WindowsSerialPort&) = delete;
    WindowsSerialPort& operator=(const WindowsSerialPort&) = delete;
    // Closes the port. Nothing comes any more.
    ~WindowsSerialPort() override;

    void Write(std::string_view bytes) override;
    std::size_t Unsent() const override;

private:
    struct Line;
    WindowsSerialPort(std::shared_ptr<Line> line, windows::Handle thread);

    std::shared_ptr<Line> line;
    windows::Handle thread;
};

}  // namespace tellwick::sender
