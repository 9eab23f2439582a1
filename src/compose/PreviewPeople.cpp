#include "compose/PreviewPeople.h"

#include <algorithm>

#include "compose/FormSmsPreviewView.h"
#include "compose/WithoutReminder.h"
#include "recipients/AppointmentReminders.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

PreviewPeople::PreviewPeople(const Services& services, FormSmsPreviewView& view,
                             const PersonalTexts& personalTexts, const TextFields& textFields,
                             const AppointmentReminders& reminders, Locale& locale)
    : Services(services),
      view(view),
      personalTexts(personalTexts),
      textFields(textFields),
      reminders(reminders),
      locale(locale) {}

void PreviewPeople::Refresh() {
    texts.clear();
    if (personalTexts.Wanted()) texts = personalTexts.All();
    view.SetPersonal(!texts.empty());
    lacking.clear();
    std::vector<Text> rows;
    for (std::size_t at = 0; at < texts.size(); ++at) {
        const std::vector<Field>& missing = texts[at].filled.missing;
        if (missing.empty()) continue;
        lacking.push_back(at);
        const Text words = textFields.Words(missing);
        // With an appointment the first column would reach into the second.
        rows.push_back(texts[at].appointment.empty() ? texts[at].Named() + u"\t" + words
                                                     : words + u": " + texts[at].Named());
    }
    const bool reminding = std::ranges::any_of(
        texts, [](const PersonalText& each) { return !each.appointment.empty(); });
    if (reminding) {
        for (const WithoutReminder& one : WithoutReminderIn(reminders, locale, language))
            rows.push_back(one.named);
    }
    view.ListMissing().SetItems(rows);
    MoveTo(shown);
}

bool PreviewPeople::Move(std::ptrdiff_t step) {
    const bool has = Has(step);
    if (has) MoveTo(shown + std::size_t(step));
    return has;
}

void PreviewPeople::MoveToChosen() {
    const auto row = std::size_t(view.ListMissing().SelectedIndex());
    if (row < lacking.size()) MoveTo(lacking[row]);
}

void PreviewPeople::Forget() {
    texts.clear();
    lacking.clear();
    shown = 0;
}

void PreviewPeople::MoveTo(std::size_t index) {
    if (texts.empty()) return;
    shown = std::min(index, texts.size() - 1);
    Text caption = language.TextOrBuiltIn(u"FormSmsPreview", u"Person");
    caption = ReplaceAll(caption, u"%n", NumberText(std::int64_t(shown) + 1));
    caption = ReplaceAll(caption, u"%m", NumberText(std::int64_t(texts.size())));
    view.LabelPerson().SetCaption(ReplaceAll(caption, u"%c", texts[shown].Named()));
    const auto row = std::ranges::find(lacking, shown);
    view.ListMissing().SetSelectedIndex(row == lacking.end() ? -1
                                                             : std::int32_t(row - lacking.begin()));
}

}  // namespace tellwick
