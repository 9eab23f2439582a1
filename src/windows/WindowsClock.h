// Date and time.
#pragma once

#include "platform/Clock.h"

namespace tellwick::windows {

class WindowsClock : public Clock {
public:
    float SecondsSinceMidnight() override;
    double Now() override;
    double Milliseconds() override;
};

}  // namespace tellwick::windows
