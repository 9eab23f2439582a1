#include "recipients/AppointmentReminders.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tellwick {

std::vector<Text> AppointmentReminders::Take(std::vector<One> read) {
    leftOut.clear();
    const auto firstCancelled = std::stable_partition(
        read.begin(), read.end(), [](const One& one) { return !one.appointment->cancelled; });
    if (firstCancelled != read.begin()) {
        leftOut.assign(std::make_move_iterator(firstCancelled),
                       std::make_move_iterator(read.end()));
        read.erase(firstCancelled, read.end());
    }
    taken = std::move(read);
    std::vector<Text> numbers;
    for (const One& one : taken) {
        for (const Text& number : one.numbers) {
            if (std::ranges::find(numbers, number) == numbers.end()) numbers.push_back(number);
            auto& theirs = byNumber[number];
            // One that was selected before is another object, which says the same.
            const auto same = [&](const AppointmentPtr& other) {
                return *other == *one.appointment;
            };
            if (std::ranges::none_of(theirs, same)) theirs.push_back(one.appointment);
        }
    }
    listener();
    return numbers;
}

const std::vector<AppointmentPtr>& AppointmentReminders::Of(TextView number) const {
    static const std::vector<AppointmentPtr> none;
    const auto found = byNumber.find(number);
    return found == byNumber.end() ? none : found->second;
}

void AppointmentReminders::Forget() {
    taken.clear();
    leftOut.clear();
    byNumber.clear();
}

}  // namespace tellwick
