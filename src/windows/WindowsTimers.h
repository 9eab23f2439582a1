// Timers of the thread's message loop.
#pragma once

#include "platform/Timer.h"

namespace tellwick::windows {

class WindowsTimers : public Timers {
public:
    std::unique_ptr<Timer> Create() override;
};

}  // namespace tellwick::windows
