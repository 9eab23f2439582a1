// Who is reminded of which appointment, where several were selected: each person of each of them
// gets an SMS of their own.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "recipients/AppointmentReader.h"

namespace tellwick {

using AppointmentPtr = std::shared_ptr<const Appointment>;

class AppointmentReminders {
public:
    // One that was read, and whom it concerns.
    struct One {
        AppointmentPtr appointment;
        std::vector<Text> numbers;  // of everybody who has one,
        std::vector<Text> without;  // and who has none, by name
    };

    // Hears that a selection has been read.
    void SetListener(std::function<void()> newListener) { listener = std::move(newListener); }

    // Takes a selection over that has been read to its end. Where some are cancelled and others
    // are not the former are left out, since no text goes for both. Returns the numbers of the
    // others, each once.
    std::vector<Text> Take(std::vector<One> read);

    // What the one with this number is reminded of, each once, in the order of the selection.
    const std::vector<AppointmentPtr>& Of(TextView number) const;
    // As they were taken over last, but for those that were left out:
    const std::vector<One>& Taken() const { return taken; }
    // which are these.
    const std::vector<One>& LeftOut() const { return leftOut; }
    bool Any() const { return !byNumber.empty(); }

    // The form goes, and what was selected for it.
    void Forget();

private:
    std::vector<One> taken, leftOut;
    std::map<Text, std::vector<AppointmentPtr>, std::less<>> byNumber;
    std::function<void()> listener = [] {};
};

}  // namespace tellwick
