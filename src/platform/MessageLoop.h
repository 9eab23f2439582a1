// Port: the thread's message loop and the windows of other programs.
#pragma once

#include <cstdint>

#include "platform/Meanwhile.h"

namespace tellwick {

inline constexpr std::uint32_t WindowMessageKeyUp = 0x0101;

class MessageLoop {
public:
    virtual ~MessageLoop() = default;

    // Lets pending window messages run and returns when there are none left. Of a timer that is due
    // again and again one tick runs.
    void DoEvents() {
        const Meanwhile running(inDoEvents, true);
        RunPending();
    }
    // Whether somebody waits in DoEvents for what is pending: work that can wait rests meanwhile.
    bool InDoEvents() const { return inDoEvents; }

    // Whether the user or another window has sent something that waits to be handled.
    virtual bool Waiting() = 0;

    virtual void Sleep(std::uint32_t milliseconds) = 0;

    // Puts a message into the queue of another program's window. False when there is no such
    // window.
    virtual bool Post(std::uint64_t window, std::uint32_t message, std::uint64_t first,
                      std::uint64_t second) = 0;

protected:
    virtual void RunPending() = 0;

private:
    bool inDoEvents = false;
};

}  // namespace tellwick
