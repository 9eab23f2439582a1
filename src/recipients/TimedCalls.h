// Calls into Outlook that are timed: Outlook waits as long as they take.
#pragma once

#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/Object.h"

namespace tellwick {

class TimedCalls {
public:
    TimedCalls(PendingError& errors, Clock& clock) : errors(errors), clock(clock) {}

    // A step begins, and with it the time.
    void Begin() {
        last = clock.Milliseconds();
        slow = false;
    }
    // True after a call that took longer than anybody should have to wait. Until the next step no
    // other is made; they fail at once.
    bool Slow() const { return slow; }

    // As the functions of the same name, which see.
    Value Get(const ObjectPtr& object, TextView member, const std::vector<Value>& arguments = {}) {
        Value value;
        if (MayCall()) value = tellwick::Get(errors, object, member, arguments);
        Look();
        return value;
    }
    Value Call(const ObjectPtr& object, TextView member, const std::vector<Value>& arguments = {}) {
        Value value;
        if (MayCall()) value = tellwick::Call(errors, object, member, arguments);
        Look();
        return value;
    }
    void Put(const ObjectPtr& object, TextView member, const Value& value) {
        if (MayCall()) tellwick::Put(errors, object, member, value);
        Look();
    }

    PendingError& errors;

private:
    bool MayCall() {
        if (slow) errors.Note(error::Automation, u"The store is too slow");
        return !slow;
    }
    void Look() {
        constexpr double Longest = 500;  // milliseconds
        const double now = clock.Milliseconds();
        if (now - std::exchange(last, now) > Longest) slow = true;
    }

    Clock& clock;
    double last = 0;
    bool slow = false;
};

}  // namespace tellwick
