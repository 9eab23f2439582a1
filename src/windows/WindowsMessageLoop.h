// The thread's messages, and those for other programs' windows.
#pragma once

#include "platform/MessageLoop.h"
#include "windows/Com.h"

namespace tellwick::windows {

class WindowsMessageLoop : public MessageLoop {
public:
    bool Waiting() override;
    void Sleep(std::uint32_t milliseconds) override { ::Sleep(milliseconds); }
    bool Post(std::uint64_t window, std::uint32_t message, std::uint64_t first,
              std::uint64_t second) override;

protected:
    void RunPending() override;
};

}  // namespace tellwick::windows
