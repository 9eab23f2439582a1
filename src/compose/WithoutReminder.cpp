#include "compose/WithoutReminder.h"

#include "compose/AppointmentValues.h"
#include "recipients/AppointmentReminders.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

std::vector<WithoutReminder> WithoutReminderIn(const AppointmentReminders& reminders,
                                               Locale& locale, LanguageTexts& language) {
    std::vector<WithoutReminder> all;
    const Text noNumber = language.TextOrBuiltIn(u"TextFields", u"NoNumber");
    for (const AppointmentReminders::One& one : reminders.Taken()) {
        const Text appointment = AppointmentValues(locale, *one.appointment).Named();
        for (const Text& person : one.without)
            all.push_back({Text(person).append(u", ").append(appointment), noNumber});
        if (one.numbers.empty() && one.without.empty()) all.push_back({appointment, noNumber});
    }
    const Text cancelled = language.TextOrBuiltIn(u"TextFields", u"IsCancelled");
    for (const AppointmentReminders::One& one : reminders.LeftOut())
        all.push_back({AppointmentValues(locale, *one.appointment).Named(), cancelled});
    return all;
}

}  // namespace tellwick
