#include "compose/WithoutReminder.h"

#include "compose/AppointmentValues.h"
#include "recipients/AppointmentReminders.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

std::vector<WithoutReminder> WithoutReminderIn(const AppointmentReminders& reminders,
                                               Locale& locale, LanguageTexts& language) {
    std::vector<WithoutReminder> all;
    const auto add = [&](TextView why, const Appointment& appointment, const Text& person) {
        const Text named = AppointmentValues(locale, appointment).Named();
        Text row = language.TextOrBuiltIn(u"TextFields", why) + u": ";
        if (!person.empty()) row.append(person).append(u", ");
        const Text& subject = appointment.subject;
        all.push_back({!person.empty() ? person : !subject.empty() ? subject : named, row + named});
    };
    for (const AppointmentReminders::One& one : reminders.Taken()) {
        for (const Text& person : one.without) add(u"NoNumber", *one.appointment, person);
        if (one.numbers.empty() && one.without.empty()) add(u"NoNumber", *one.appointment, {});
    }
    for (const AppointmentReminders::One& one : reminders.LeftOut())
        add(u"IsCancelled", *one.appointment, {});
    return all;
}

}  // namespace tellwick
