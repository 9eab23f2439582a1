// Port: timers that tick in the thread's message loop.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace tellwick {

class Timer {
public:
    virtual ~Timer() = default;

    // Ticks every `milliseconds` until stopped; starting again restarts the interval. The tick
    // may stop, start or destroy the timer.
    virtual void Start(std::uint32_t milliseconds, std::function<void()> tick) = 0;
    virtual void Stop() = 0;
};

class Timers {
public:
    virtual ~Timers() = default;
    virtual std::unique_ptr<Timer> Create() = 0;
};

}  // namespace tellwick
