#include "compose/ReminderText.h"

#include <algorithm>

#include "compose/AppointmentValues.h"
#include "compose/TextFields.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

// The keys are the same in the settings and in the language.
TextView KeyOf(const Appointment& appointment) {
    return appointment.cancelled ? u"ReminderTextCancelled"
           : appointment.allDay  ? u"ReminderTextAllDay"
                                 : u"ReminderText";
}

}  // namespace

// Its lines end as in the form, whatever ends them in the file.
Text ReminderText::Template(TextView key) const {
    Text text = FromSetting(inifilesLite.GetIniSetting(u"SMS", key));
    if (text.empty()) text = language.TextOrBuiltIn(u"TextFields", key);
    text = ReplaceAll(ReplaceAll(text, LineBreak, u"\n"), u"\r", u"\n");
    return ReplaceAll(text, u"\n", LineBreak);
}

Text ReminderText::Of(const Appointment& appointment) const {
    const Text text = Template(KeyOf(appointment));
    const AppointmentValues values(locale, appointment);
    return TextFields::FillWith(text, textFields.Find(text, AppointmentFields),
                                [&](Field field) { return values.Of(field); })
        .text.text;
}

Text ReminderText::OfAll(const std::vector<AppointmentReminders::One>& appointments) const {
    Appointment common;
    const auto all = [&](bool Appointment::*what) {
        return !appointments.empty() &&
               std::ranges::all_of(appointments, [&](const AppointmentReminders::One& one) {
                   return (*one.appointment).*what;
               });
    };
    common.cancelled = all(&Appointment::cancelled);
    common.allDay = all(&Appointment::allDay);
    return Template(KeyOf(common));
}

}  // namespace tellwick
