// The preview: the text as it arrives, SMS by SMS, what its characters cost, and look-alikes for
// those that cost more or get lost.
#pragma once

#include <optional>
#include <vector>

#include "air/AirCount.h"
#include "compose/FormSmsPreviewView.h"
#include "compose/LookAlikes.h"
#include "compose/PreviewPeople.h"
#include "settings/Services.h"

namespace tellwick {

class AirCountLine;
class AppointmentReminders;
class Locale;
class MessageText;
struct QueueText;

class FormSmsPreview : public Form, public FormSmsPreviewEvents, private Services {
public:
    FormSmsPreview(const Services& services, FormSmsPreviewView& view, Forms& forms,
                   MessageText& messageText, const AirCountLine& airCountLine,
                   const PersonalTexts& personalTexts, const TextFields& textFields,
                   const AppointmentReminders& reminders, Locale& locale);
    ~FormSmsPreview() override;

    void Show();
    void Unload() override;

    // Shows the form's text as it is now, or one person's; nothing while the window is closed.
    void Refresh();

    void ListCharacters_Click() override;
    void ButtonBack_Click() override;
    void ButtonForward_Click() override;
    void ListMissing_Click() override;
    // Both replace at once, in the form's text; the user can undo it there.
    void ButtonReplace_Click() override;
    void ButtonReplaceAll_Click() override;
    void ButtonOK_Click() override;

private:
    struct Row {
        Text character;
        Text cost;                        // what there is to say of it
        std::optional<Text> replacement;  // as it is shown
    };

    void ShowText();
    void ShowParts(const QueueText& through, const AirCount& count);
    std::vector<StyledText::Style> StylesOf(const QueueText& through, const AirCount& count) const;
    void ShowRows();
    bool HasRow(TextView character) const;
    void Enable(Control& button, bool enabled);
    // Rows of what gets lost, of what forces UCS-2, and of what counts twice.
    void FindRows(TextView text, const QueueText& through, const AirCount& count);
    Text CostOf(TextView text, TextView character, std::int64_t without) const;
    std::optional<Text> Replacement(TextView text, TextView character) const;
    void Exchange(TextView only);
    Text FormText(TextView key) const;

    PreviewPeople people;
    std::vector<Row> rows;
    const Usable arrivesAsGsm;

    FormSmsPreviewView& view;
    Forms& forms;
    MessageText& messageText;
    const AirCountLine& airCountLine;
    Locale& locale;
};

}  // namespace tellwick
