// One run of Outlook in this process, from its start to its end. Another one may follow it.
#pragma once

#include "outlook/AddInLoader.h"
#include "outlook/Desk.h"
#include "outlook/Dispatcher.h"

namespace tellwick::standin {

class Session {
public:
    // With `stay` the process outlives the end of a session.
    Session(OutlookModel& outlook, AddInLoader& loader, Desk& desk, Dispatcher& dispatcher,
            bool stay);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Opens the first window, if there is to be one, and connects the add-ins unless that is left
    // for later.
    void Start(bool window, bool late);
    bool Running() const { return running; }
    // Ends the session from the message loop; the process, too, unless it stays. When there is no
    // session the process ends.
    void RequestEnd();
    // Ends both.
    void RequestExit();

private:
    void End();

    OutlookModel& outlook;
    AddInLoader& loader;
    Desk& desk;
    Dispatcher& dispatcher;
    bool stay;
    bool running = false;
    bool ending = false;
};

}  // namespace tellwick::standin
