#include "windows/MonitorAwareness.h"

#include <atomic>

#include "windows/SystemFunction.h"

namespace tellwick::windows {

namespace {

// Handles that stand for contexts, newer than the headers used. The second kind also scales frames
// and standard dialogs, from Windows 10 1703 on.
const auto PerMonitor = reinterpret_cast<HANDLE>(INT_PTR(-3));
const auto PerMonitorSecond = reinterpret_cast<HANDLE>(INT_PTR(-4));

std::atomic<DWORD> outlooksThread = 0;
HANDLE outlooks = nullptr;  // Outlook's context while the add-in runs in another one
HANDLE loops = nullptr;     // the one that Outlook's message loop had last

// The context before; null where there are none.
HANDLE SetContext(HANDLE context) {
    static const auto set =
        SystemFunction<HANDLE(WINAPI*)(HANDLE)>(L"user32.dll", "SetThreadDpiAwarenessContext");
    return set && context ? set(context) : nullptr;
}

HANDLE SetPerMonitor() {
    const HANDLE before = SetContext(PerMonitorSecond);
    return before ? before : SetContext(PerMonitor);
}

}  // namespace

MonitorAware::MonitorAware(Entry entry) : before(SetPerMonitor()), outlooksBefore(outlooks) {
    // In a box or a wait of the add-in's own only Outlook's calls come in a context of Outlook's.
    if (outlooks && entry != Call) return;
    outlooksThread = GetCurrentThreadId();
    if (entry == Loop) loops = before;
    outlooks = entry == Window ? loops : before;
}

MonitorAware::~MonitorAware() {
    outlooks = outlooksBefore;
    SetContext(before);
}

OutlooksContext::OutlooksContext()
    : called(outlooksThread == GetCurrentThreadId()),
      outlooksBefore(called ? std::exchange(outlooks, nullptr) : nullptr),
      before(SetContext(outlooksBefore)) {}

OutlooksContext::~OutlooksContext() {
    if (!called) return;
    SetContext(before);
    outlooks = outlooksBefore;
}

}  // namespace tellwick::windows
