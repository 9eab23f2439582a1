// The thread belongs to Outlook, which calls its add-ins in the system's DPI context, whatever its
// own message loop runs in. The add-in's windows follow the monitor that they are on; so everything
// that makes, measures or moves one happens in the per-monitor context, and Outlook finds its own
// again. Before Windows 10 there is nothing to change.
#pragma once

#include "windows/Com.h"

namespace tellwick::windows {

// In every entry from outside: the per-monitor context, until it ends.
class MonitorAware {
public:
    // Who enters: a call of Outlook's, its message loop with a hook or a timer, or the system with
    // a message for a window of the add-in's, in that window's context.
    enum Entry { Call, Loop, Window };
    explicit MonitorAware(Entry entry = Call);
    MonitorAware(const MonitorAware&) = delete;
    MonitorAware& operator=(const MonitorAware&) = delete;
    ~MonitorAware();

private:
    HANDLE before;
    HANDLE outlooksBefore;
};

// Around every call of Outlook: the context that it had when it called, until the call returns.
// Nothing in a thread that Outlook never called.
class OutlooksContext {
public:
    OutlooksContext();
    OutlooksContext(const OutlooksContext&) = delete;
    OutlooksContext& operator=(const OutlooksContext&) = delete;
    ~OutlooksContext();

private:
    bool called;
    HANDLE outlooksBefore;
    HANDLE before;
};

}  // namespace tellwick::windows
