// The hidden timer form: runs a window's toolbar set-up from a timer tick, outside Outlook's event.
#pragma once

#include <memory>

#include "platform/Forms.h"
#include "platform/Timer.h"

namespace tellwick {

class Debug;

// Whoever wants its toolbar set up later.
class MenuRequester {
public:
    virtual ~MenuRequester() = default;
    virtual void SetMenus() = 0;
};

class FormT1 : public Form {
public:
    FormT1(Debug& debug, Forms& forms, Timers& timers);
    ~FormT1() override;

    // Calls the requester's SetMenus once, 200 ms from now. A request still pending is replaced.
    void StartT(std::shared_ptr<MenuRequester> newRequester);

    void Unload() override;

private:
    void Timer1_Timer();

    Debug& debug;
    Forms& forms;
    Timers& timers;
    std::unique_ptr<Timer> timer1;
    std::shared_ptr<MenuRequester> requester;
};

}  // namespace tellwick
