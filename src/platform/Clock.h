// Port: the time of day.
#pragma once

namespace tellwick {

class Clock {
public:
    virtual ~Clock() = default;

    // Seconds since local midnight, in single precision.
    virtual float SecondsSinceMidnight() = 0;
};

}  // namespace tellwick
