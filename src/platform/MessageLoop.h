// Port: the thread's message loop and the windows of other programs.
#pragma once

#include <cstdint>

namespace tellwick {

inline constexpr std::uint32_t WindowMessageKeyUp = 0x0101;

class MessageLoop {
public:
    virtual ~MessageLoop() = default;

    // Lets pending window messages run and returns when there are none left.
    virtual void DoEvents() = 0;

    // Whether the user or another window has sent something that waits to be handled.
    virtual bool Waiting() = 0;

    virtual void Sleep(std::uint32_t milliseconds) = 0;

    // Puts a message into the queue of another program's window. False when there is no such
    // window.
    virtual bool Post(std::uint64_t window, std::uint32_t message, std::uint64_t first,
                      std::uint64_t second) = 0;
};

}  // namespace tellwick
