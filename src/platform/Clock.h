// Port: the time.
#pragma once

namespace tellwick {

class Clock {
public:
    virtual ~Clock() = default;

    // Seconds since local midnight, in single precision.
    virtual float SecondsSinceMidnight() = 0;

    // Local date and time, as automation counts: days since the end of 1899.
    virtual double Now() = 0;

    // Milliseconds since some moment, finely divided; never goes back.
    virtual double Milliseconds() = 0;
};

}  // namespace tellwick
