// The form in which the user writes one SMS: its life from load to unload, its keys and its size.
// What stands in its fields belongs to the modules behind them.
#pragma once

#include <cstdint>

#include "compose/SmsSettings.h"
#include "platform/Forms.h"
#include "settings/LanguageTexts.h"
#include "settings/Services.h"

namespace tellwick {

class AirCountLine;
class AwaitedRecipients;
class Draft;
enum class BarButton;
class FormOptions;
class FormSmsPreview;
class FormSmsSelectAddress;
class FormSmsSendView;
class FieldMenu;
class HelpViewer;
class MessageText;
class RecipientField;
class Submission;
class TextTemplates;

// The owners of the rules behind the form's controls.
struct FormSmsSendParts {
    Submission& submission;
    MessageText& messageText;
    RecipientField& recipientField;
    TextTemplates& textTemplates;
    FieldMenu& fieldMenu;
};

// There is one; its window comes and goes, its fields stay.
class FormSmsSend : public Form, private Services {
public:
    // Of the form in the language file.
    static constexpr TextView Name = FormSmsSendTexts;

    FormSmsSend(const Services& services, FormSmsSendView& view, Forms& forms,
                const FormSmsSendParts& parts, Draft& draft, AirCountLine& airCountLine,
                AwaitedRecipients& awaitedRecipients, FormSmsPreview& formSmsPreview,
                FormSmsSelectAddress& formSmsSelectAddress, FormOptions& formOptions,
                HelpViewer& helpViewer);
    ~FormSmsSend() override;

    // Shows the form, initialised anew. The recipients, unless empty, take the place of the
    // remembered ones; in a form that is open already they join those in the field, and nothing
    // that stands in it changes. Those that are still looked up follow when they are found, unless
    // the user has changed the field meanwhile. Recipients that are not to get what the form is
    // opened for are forgotten, not remembered from the last time.
    enum class Remembered { Keep, Forget };
    void Open(TextView recipients, Remembered remembered = Remembered::Keep);

    // Resets the form's state, reads its settings and lists, and restores the last texts, or those
    // of a form that an Outlook before did not come to close. Lists and texts of a form that was
    // initialised since it was loaded stay as they are.
    void Form_Initialize_();

    // Takes over settings that were changed while the form is open.
    void ApplySettings();

    // Saves the form's state and takes the window away. Nothing when it is not loaded.
    void Unload() override;

    // As last read by the initialisation.
    const SmsSettings& Settings() const { return settings; }
    // Whether the activation step has run since the form was loaded.
    bool Activated() const { return !activationMarker.empty(); }

    // The window was activated, or is about to be submitted without having been.
    void Form_Activate();
    // The user goes on elsewhere, or the system ends.
    void Form_Deactivate();
    // The user closed the window by its frame.
    void Form_Close();
    void Form_Resize();
    // Message or recipients have changed, whoever did it. Comes after their owners have heard it.
    void Contents_Change();
    // Somebody is known now who was not, or another: a text with fields is another one for them.
    void People_Change();
    // The form's own keys; true when the key was used up.
    bool Form_KeyDown(std::int32_t keyCode, std::int32_t shift);
    void ButtonTo_Click();
    void FormSMSSend_Button_Click(BarButton button);
    void ButtonHelp_Click();
    // Opens the settings at what the status bar speaks of, if it speaks of one.
    void StatusBar1_Click();
    // A click on the status bar's own pane: shows what goes on air.
    void AirCount_Click();
    // Closes the form, unless a submission runs.
    void ButtonOK_Click();
    void ButtonExpand_Click();
    void ButtonOptions_Click();

private:
    void OpenAnew(TextView recipients, Remembered remembered);
    void Form_Load();
    void Form_SetLanguage();
    void LoadBackGround();
    void SetButtons();
    void FillBoxExpires();
    void Form_Unload();
    void SetMessageFont();
    void ReadSettings();
    void RestoreTexts();
    void SayRestored();
    void ExpandIt();

    bool initialised = false;  // since the form was loaded
    bool restored = false;     // what was typed into a form that was never closed
    bool expanded = false;
    Text activationMarker;  // empty until the activation step has run
    Text textAttachment;    // appended to the last text, for as long as it ends with it
    SmsSettings settings;

    FormSmsSendView& view;
    Forms& forms;
    FormSmsSendParts parts;
    Draft& draft;
    AirCountLine& airCountLine;
    AwaitedRecipients& awaitedRecipients;
    FormSmsPreview& formSmsPreview;
    FormSmsSelectAddress& formSmsSelectAddress;
    FormOptions& formOptions;
    HelpViewer& helpViewer;
};

}  // namespace tellwick
