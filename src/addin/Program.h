// The program: every module once, each given the modules it uses.
#pragma once

#include <memory>

#include "addin/FirstUse.h"
#include "addin/FormT1.h"
#include "addin/OlButtons.h"
#include "addin/Ribbon.h"
#include "addin/SmsForward.h"
#include "addin/SmsReminder.h"
#include "addin/SmsReply.h"
#include "compose/AirCountLine.h"
#include "compose/AwaitedRecipients.h"
#include "compose/Draft.h"
#include "compose/FieldMenu.h"
#include "compose/FormOptions.h"
#include "compose/FormSmsPreview.h"
#include "compose/FormSmsSelectAddress.h"
#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendRouter.h"
#include "compose/FormSupport.h"
#include "compose/LastRun.h"
#include "compose/LostCharacters.h"
#include "compose/MessageText.h"
#include "compose/PersonalSubmission.h"
#include "compose/PersonalTexts.h"
#include "compose/Process.h"
#include "compose/ReminderText.h"
#include "compose/SmsQueue.h"
#include "compose/Submission.h"
#include "compose/Tellwick.h"
#include "compose/TextFields.h"
#include "language/Language.h"
#include "platform/Platform.h"
#include "platform/ProcessValues.h"
#include "recipients/Addresses.h"
#include "recipients/AppointmentReminders.h"
#include "recipients/Contacts.h"
#include "recipients/Prefixes.h"
#include "recipients/RecipientField.h"
#include "recipients/RecipientLookup.h"
#include "recipients/RecipientPeople.h"
#include "recipients/TextTemplates.h"
#include "settings/Debug.h"
#include "settings/Documents.h"
#include "settings/ErrorBoxes.h"
#include "settings/Files.h"
#include "settings/HelpViewer.h"
#include "settings/IniFile.h"
#include "settings/InifilesLite.h"
#include "settings/MessageBoxes.h"
#include "settings/Paths.h"
#include "settings/PhoneModels.h"
#include "settings/Policies.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"
#include "settings/SettingsLocator.h"
#include "settings/SupportFile.h"
#include "settings/TraceSwitch.h"

namespace tellwick {

class FormSmsSendView;
class OutlookAddIn;

class Program {
public:
    Program(const Platform& platform, FormSmsSendView& formSmsSendView,
            FormSmsSelectAddressView& formSmsSelectAddressView, FormOptionsView& formOptionsView,
            FormSmsPreviewView& formSmsPreviewView, FormSupportView& formSupportView);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The object that holds Outlook for one connection.
    std::shared_ptr<OutlookAddIn> CreateOutlookAddIn();

    PendingError& errors;
    Clock& clock;
    Timers& timers;
    ProcessValues processValues;
    MessageBoxes messageBoxes;
    ErrorBoxes errorBoxes;
    Debug debug;
    RegEdit regEdit;
    Paths paths;
    Files files;
    IniFile iniFile;
    Policies policies;
    InifilesLite inifilesLite;
    PhoneModels phoneModels;
    Language language;
    QuestionBox questionBox;
    TraceSwitch traceSwitch;
    SettingsLocator settingsLocator;
    const Services services;
    Documents documents;
    HelpViewer helpViewer;
    Prefixes prefixes;
    Addresses addresses;
    Contacts contacts;
    RecipientPeople recipientPeople;
    AppointmentReminders reminders;
    RecipientLookup recipientLookup;
    Process process;
    Tellwick tellwick;
    SmsQueue smsQueue;
    Forms forms;
    MessageText messageText;
    RecipientField recipientField;
    TextFields textFields;
    PersonalTexts personalTexts;
    AirCountLine airCountLine;
    AwaitedRecipients awaitedRecipients;
    TextTemplates textTemplates;
    LostCharacters lostCharacters;
    LastRun lastRun;
    FieldMenu fieldMenu;
    PersonalSubmission personalSubmission;
    Draft draft;
    Submission submission;
    FormSmsSelectAddress formSmsSelectAddress;
    SupportFile supportFile;
    FormSupport formSupport;
    FormOptions formOptions;
    FirstUse firstUse;
    FormSmsPreview formSmsPreview;
    FormSmsSend formSmsSend;
    FormSmsSendRouter formSmsSendRouter;
    FormT1 formT1;
    SmsReply smsReply;
    SmsForward smsForward;
    ReminderText reminderText;
    SmsReminder smsReminder;
    Ribbon ribbon;
    OlButtons olButtons;

private:
    std::weak_ptr<OutlookAddIn> outlookAddIn;  // the one made last
};

}  // namespace tellwick
