// The add-in object that Outlook creates: the connection events.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Object.h"

namespace tellwick {

class OutlookAddIn;
class Program;

class Connect {
public:
    explicit Connect(Program& program);

    // Does nothing while Outlook has no window at all; otherwise brings the add-in to life.
    void AddinInstance_OnConnection(const ObjectPtr& application, std::int32_t connectMode,
                                    const ObjectPtr& addInInstance);
    void AddinInstance_OnStartupComplete();
    void AddinInstance_OnAddInsUpdate() {}
    void AddinInstance_OnBeginShutdown();
    void AddinInstance_OnDisconnection(std::int32_t removeMode);
    void AddinInstance_Terminate() {}

    // The ribbon's XML for a kind of window; empty where the add-in has nothing, and while it is
    // not connected. A connection without a window gives it, too, from Outlook 2010 on: its buttons
    // work by the window that each click brings.
    Text GetCustomUI(TextView ribbonId);

private:
    void Start(const ObjectPtr& application, const ObjectPtr& addInInstance);
    OutlookAddIn& AddIn();
    void ReleaseAddIn();

    Program& program;
    // Created by whichever handler needs it first.
    std::shared_ptr<OutlookAddIn> outlookAddIn;
    bool withoutWindow = false;  // connected while Outlook had none
};

}  // namespace tellwick
