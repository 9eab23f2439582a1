// The windows on the screen, kept equal to the model's.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "model/OutlookModel.h"
#include "outlook/Dispatcher.h"
#include "outlook/Frame.h"
#include "outlook/Look.h"

namespace tellwick::standin {

class Desk {
public:
    // The language as for OutlookTexts::Speak.
    Desk(OutlookModel& outlook, Dispatcher& dispatcher, TextView language);
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // Opens, closes, refreshes windows as the model has them now. Happens by itself after a
    // change; asks Outlook to quit when the last window has gone.
    void Synchronise();
    // Null for a window that is not displayed.
    Frame* FrameOf(const std::shared_ptr<Window>& window) const;
    // Keys that the windows have for themselves: Tab and accelerators. True when used up.
    bool Translate(MSG& message) const;
    // As the system's function does, and times it. `ansi`: as a host of that kind.
    void Dispatch(const MSG& message, bool ansi = false) const;
    // Milliseconds of the longest message of a timer since this was last asked.
    double TakeLongestTick() { return std::exchange(longestTick, 0); }
    // Runs the message loop until so many milliseconds are over or, with 0, the queue is empty.
    void RunMessages(DWORD milliseconds) const;

private:
    void Show(const std::shared_ptr<Window>& window);

    OutlookModel& outlook;
    Dispatcher& dispatcher;
    const Look look;
    std::vector<std::unique_ptr<Frame>> frames;
    std::weak_ptr<Window> front;  // when last looked
    HACCEL accelerators;
    bool synchronisePosted = false;
    bool hadWindows = false;
    mutable double longestTick = 0;
};

}  // namespace tellwick::standin
