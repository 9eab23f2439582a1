#include "windows/WindowsClock.h"

#include "windows/Com.h"

namespace tellwick::windows {

float WindowsClock::SecondsSinceMidnight() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return float(now.wHour * 3600 + now.wMinute * 60 + now.wSecond) +
           float(now.wMilliseconds) / 1000;
}

double WindowsClock::Now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    double date = 0;
    SystemTimeToVariantTime(&now, &date);
    return date;
}

double WindowsClock::Milliseconds() {
    LARGE_INTEGER frequency, now;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return double(now.QuadPart) * 1000 / double(frequency.QuadPart);
}

}  // namespace tellwick::windows
