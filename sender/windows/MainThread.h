// The thread of the windows, and what other threads leave for it.
#pragma once

#include "windows/Com.h"

#include <functional>

namespace tellwick::sender {

// Made in the thread of the windows. Copies speak for the same thread, and may be kept longer.
class MainThread {
public:
    // From any thread: the action runs in a later round of the message loop, in the order of the
    // calls. It is dropped where that loop has ended.
    void Post(std::function<void()> action) const;

protected:
    HWND window = nullptr;
};

// The one that the others are copies of.
class MainThreadWindow : public MainThread {
public:
    MainThreadWindow();
    MainThreadWindow(const MainThreadWindow&) = delete;
    MainThreadWindow& operator=(const MainThreadWindow&) = delete;
    ~MainThreadWindow();
};

// A lock among the threads of this program, for std::lock_guard.
class CriticalSection {
public:
    CriticalSection() { InitializeCriticalSection(&section); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;
    ~CriticalSection() { DeleteCriticalSection(&section); }
    void lock() { EnterCriticalSection(&section); }
    void unlock() { LeaveCriticalSection(&section); }

private:
    CRITICAL_SECTION section{};
};

// Runs the work in a thread of its own. Null when the system has none left.
windows::Handle StartThread(std::function<void()> work);

}  // namespace tellwick::sender
