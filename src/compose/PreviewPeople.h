// The people in the preview: whose text it shows, and who lacks what.
#pragma once

#include <cstddef>
#include <vector>

#include "compose/PersonalTexts.h"
#include "settings/Services.h"

namespace tellwick {

class AppointmentReminders;
class FormSmsPreviewView;
class Locale;

class PreviewPeople : private Services {
public:
    PreviewPeople(const Services& services, FormSmsPreviewView& view,
                  const PersonalTexts& personalTexts, const TextFields& textFields,
                  const AppointmentReminders& reminders, Locale& locale);

    // Text or recipients have changed.
    void Refresh();
    // Whose text is to be seen; null where it is the same for everybody.
    const PersonalText* Shown() const { return texts.empty() ? nullptr : &texts[shown]; }
    // Whether there is somebody so far on.
    bool Has(std::ptrdiff_t step) const { return shown + std::size_t(step) < texts.size(); }
    // False when there is nobody.
    bool Move(std::ptrdiff_t step);
    // Goes to the person chosen in the list of those who lack something.
    void MoveToChosen();
    // The window has closed: it opens with the first one.
    void Forget();

private:
    void MoveTo(std::size_t index);

    std::vector<PersonalText> texts;
    std::size_t shown = 0;
    // Of the texts; a row each, before those of who gets none.
    std::vector<std::size_t> lacking;

    FormSmsPreviewView& view;
    const PersonalTexts& personalTexts;
    const TextFields& textFields;
    const AppointmentReminders& reminders;
    Locale& locale;
};

}  // namespace tellwick
