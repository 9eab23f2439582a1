#include "compose/FieldMenu.h"

#include "compose/FormSmsSendView.h"
#include "compose/LastRun.h"
#include "compose/MessageText.h"
#include "compose/TextFields.h"
#include "recipients/AppointmentReminders.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

FieldMenu::FieldMenu(const Services& services, FormSmsSendView& view, const TextFields& textFields,
                     const AppointmentReminders& reminders, MessageText& messageText,
                     LastRun& lastRun)
    : Services(services),
      view(view),
      textFields(textFields),
      reminders(reminders),
      messageText(messageText),
      lastRun(lastRun) {}

void FieldMenu::ButtonFields_Click() {
    Procedure procedure{debug, u"ButtonFields_Click"};
    std::vector<Text> entries;
    const auto add = [&](const std::array<Field, 4>& fields) {
        for (const Field field : fields) entries.push_back(u"{" + textFields.Word(field) + u"}");
    };
    add(PersonFields);
    if (reminders.Any()) {
        entries.emplace_back();
        add(AppointmentFields);
    }
    const std::size_t fields = entries.size();
    if (lastRun.Known()) {
        entries.emplace_back();
        entries.push_back(language.TextOrBuiltIn(u"TextFields", u"LastRun"));
    }
    const std::int32_t chosen = view.ButtonFields_Menu(entries);
    if (chosen < 0 || !view.Loaded()) return;
    if (std::size_t(chosen) >= fields) {
        lastRun.Show();
        return;
    }
    messageText.Insert(entries[std::size_t(chosen)]);
    messageText.SetFocus();
}

}  // namespace tellwick
