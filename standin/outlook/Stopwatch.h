// Times for the measurements: of what runs here, and until the add-in has queued a message.
#pragma once

#include <windows.h>

#include <optional>

namespace tellwick::standin {

class Stopwatch {
public:
    // Starts, and begins to look at the queue's registry key.
    Stopwatch();
    ~Stopwatch();
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

    // Milliseconds since the start.
    double Elapsed() const;
    // Milliseconds from the start to the first change in the queue's key; empty when there was
    // none.
    std::optional<double> Queued();

private:
    static DWORD WINAPI Watch(void* self);
    LONGLONG Now() const;

    LARGE_INTEGER frequency{};
    LONGLONG start = 0;
    LONGLONG queued = 0;  // 0: not yet
    HKEY queue = nullptr;
    HANDLE changed = nullptr;
    HANDLE over = nullptr;
    HANDLE watcher = nullptr;
};

}  // namespace tellwick::standin
