// The DPI context of Outlook's thread: its own while its message loop runs, the system's while an
// add-in is called. Add-ins may change it, but must put it back before they return or call Outlook.
#pragma once

#include <windows.h>

#include <set>

#include "platform/Text.h"

namespace tellwick::standin {

// Before the first window is made: whether the thread's loop is to follow monitors, which calls of
// add-ins never do. Does nothing on systems without such contexts.
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

// An add-in calls Outlook: its context must be the one that Outlook had.
void CheckContext(TextView what);

// What was called, or had returned, in another context.
const std::set<Text>& ContextFaults();

}  // namespace tellwick::standin
