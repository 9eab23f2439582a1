// The DPI context of Outlook's thread: its own while its message loop runs, the system's while an
// add-in is called. Add-ins may change it, but must put it back before they return or call Outlook.
#pragma once

#include <windows.h>

#include <set>

#include "platform/Text.h"

namespace tellwick::standin {

// Before the first window is made: whether the thread's loop is to follow monitors, which calls of
// add-ins never do. Where it is not called, and on systems without such contexts, all runs in the
// process's own one.
void FollowMonitors(bool follow);

// Around every call of an add-in.
class AddInCall {
public:
    explicit AddInCall(TextView what);
    AddInCall(const AddInCall&) = delete;
    AddInCall& operator=(const AddInCall&) = delete;
    ~AddInCall();

private:
    Text what;
    HANDLE before;
    HANDLE expectedBefore;
};

// Outlook is called by the code at an address: an add-in's must leave it the context that it had.
void CheckContext(TextView what, const void* caller);

// What was called, or had returned, in another context.
const std::set<Text>& ContextFaults();

}  // namespace tellwick::standin
