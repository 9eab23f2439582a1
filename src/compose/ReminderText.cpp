#include "compose/ReminderText.h"

#include <vector>

#include "compose/DateText.h"
#include "compose/TextFields.h"
#include "platform/LocalDate.h"
#include "recipients/AppointmentReader.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

// Whatever ends them.
std::vector<Text> LinesOf(TextView text) {
    return Split(ReplaceAll(ReplaceAll(text, LineBreak, u"\n"), u"\r", u"\n"), u"\n");
}

}  // namespace

// The keys are the same in the settings and in the language.
Text ReminderText::Template(const Appointment& appointment) const {
    const TextView key = appointment.cancelled ? TextView(u"ReminderTextCancelled")
                         : appointment.allDay  ? TextView(u"ReminderTextAllDay")
                                               : TextView(u"ReminderText");
    const Text own = FromSetting(inifilesLite.GetIniSetting(u"SMS", key));
    return own.empty() ? language.TextOrBuiltIn(u"TextFields", key) : own;
}

Text ReminderText::Of(const Appointment& appointment) const {
    Text date, time;
    if (appointment.start) {
        const LocalDate start(*appointment.start);
        date = DateText(locale, start);
        if (!appointment.allDay) time = TimeText(locale, start);
    }
    const auto valueOf = [&](Field field) -> TextView {
        switch (field) {
            case Field::Subject:
                return appointment.subject;
            case Field::Date:
                return date;
            case Field::Time:
                return time;
            case Field::Place:
                return appointment.place;
            default:
                return {};
        }
    };
    Text text;
    for (const Text& line : LinesOf(Template(appointment))) {
        const std::vector<FieldPlace> places = textFields.Find(line, AppointmentFields);
        const Text filled = TextFields::FillWith(line, places, valueOf).text.text;
        if (filled.empty() && !line.empty()) continue;
        if (!text.empty()) text += LineBreak;
        text += filled;
    }
    return text;
}

}  // namespace tellwick
