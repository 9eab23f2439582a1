// The sender application: is it running, is it switched on, and does it know of the new entry.
#pragma once

#include "platform/MessageLoop.h"
#include "platform/Programs.h"

namespace tellwick {

class Debug;
class Process;
class QuestionBox;
class RegEdit;

class Tellwick {
public:
    Tellwick(Debug& debug, RegEdit& regEdit, Process& process, QuestionBox& questionBox,
             Programs& programs, MessageLoop& messageLoop);

    // Starts the sender application when it does not run (asking first unless quiet), or switches
    // it on (asking first), and tells its window that the queue has a new entry, waiting about
    // 2.5 seconds at most for that window. Reports nothing.
    void StartSenderApplication(bool quiet);

private:
    void NotifyWindow();

    Debug& debug;
    RegEdit& regEdit;
    Process& process;
    QuestionBox& questionBox;
    Programs& programs;
    MessageLoop& messageLoop;
};

}  // namespace tellwick
