#include "addin/Program.h"

#include "addin/OutlookAddIn.h"
#include "compose/FormSmsSendView.h"

namespace tellwick {

Program::Program(const Platform& platform, FormSmsSendView& formSmsSendView,
                 FormSmsSelectAddressView& formSmsSelectAddressView,
                 FormOptionsView& formOptionsView, FormSmsPreviewView& formSmsPreviewView,
                 FormSupportView& formSupportView)
    : errors(platform.errors),
      clock(platform.clock),
      timers(platform.timers),
      messageBoxes(platform.dialogs),
      errorBoxes(messageBoxes),
      debug(errors, platform.registry, errorBoxes, platform.fileSystem, platform.clock,
            platform.locale),
      regEdit(platform.registry, debug),
      paths(regEdit, platform.programs),
      files(errors, debug, messageBoxes, platform.fileSystem, platform.locale),
      iniFile(debug, files, platform.fileSystem, platform.locks, platform.locale),
      policies(platform.registry, debug),
      inifilesLite(debug, regEdit, iniFile, policies),
      phoneModels(iniFile, inifilesLite),
      language(debug, regEdit, iniFile, inifilesLite, paths, messageBoxes, platform.fileSystem,
               platform.locale),
      questionBox(debug, language, inifilesLite, platform.dialogs),
      traceSwitch(debug, regEdit, inifilesLite, paths, language, questionBox, platform.fileSystem,
                  platform.programs, platform.locale),
      settingsLocator(debug, regEdit, inifilesLite, files, paths, language, questionBox,
                      platform.fileSystem),
      services{debug, inifilesLite, language, questionBox},
      documents(debug, regEdit, platform.programs),
      helpViewer(services, documents, platform.fileSystem, platform.programs),
      prefixes(debug, inifilesLite, language),
      addresses(services, {errors, platform.automation, prefixes, platform.locale, platform.clock},
                platform.fileSystem, platform.timers, platform.messageLoop),
      contacts(errors, platform.automation, prefixes),
      recipientPeople(addresses),
      recipientLookup(errors, debug, platform.automation, processValues, contacts, addresses,
                      recipientPeople, reminders, platform.clock, platform.timers,
                      platform.messageLoop),
      process(debug, platform.programs),
      tellwick(debug, regEdit, process, questionBox, platform.programs, platform.messageLoop),
      smsQueue(regEdit, files, platform.fileSystem, platform.locks),
      messageText(services, formSmsSendView, platform.locale),
      recipientField(
          services, prefixes, addresses, recipientPeople, formSmsSendView.TextTo(),
          formSmsSendView.ListBoxNumbers(), formSmsSendView.StatusBar1(),
          formSmsSendView.ProgressBar1(),
          [&formSmsSendView](std::int32_t rows) { formSmsSendView.PlaceListBoxNumbers(rows); }),
      textFields(language),
      personalTexts(textFields, messageText, recipientField, recipientPeople, reminders,
                    platform.locale),
      airCountLine(services, formSmsSendView, recipientField, personalTexts, platform.locale),
      awaitedRecipients(services, recipientLookup, reminders, recipientField, formSmsSendView,
                        platform.locale),
      textTemplates(services, formSmsSendView.ComboBoxTextbausteine(),
                    [this](TextView text) { messageText.Insert(text); }),
      lostCharacters(services, messageText, platform.locale),
      lastRun(services, platform.fileSystem, platform.clock, documents),
      fieldMenu(services, formSmsSendView, textFields, reminders, messageText, lastRun),
      personalSubmission(services, formSmsSendView, textFields, lostCharacters, lastRun, smsQueue,
                         platform.messageLoop, platform.clock, platform.locale),
      draft(services, platform.fileSystem, platform.locale, platform.timers,
            [this, &formSmsSendView] {
                return Draft::Contents{formSmsSendView.TextTo().GetText(), messageText.MeantText()};
            }),
      // The form is made after its parts; what they are handed of it they only keep.
      submission(services, formSmsSend, formSmsSendView, recipientField, awaitedRecipients,
                 messageText, lostCharacters, personalTexts, personalSubmission, draft,
                 platform.messageLoop, smsQueue, tellwick),
      formSmsSelectAddress(services, formSmsSelectAddressView, forms, prefixes, addresses,
                           recipientPeople, recipientField, platform.clock, platform.timers),
      supportFile(errors, debug, regEdit, inifilesLite, platform.fileSystem, platform.programs,
                  [this] {
                      const std::shared_ptr<OutlookAddIn> addIn = outlookAddIn.lock();
                      return addIn ? addIn->GetOlApp() : nullptr;
                  }),
      formSupport(services, formSupportView, forms, supportFile),
      formOptions(services, formOptionsView, forms, platform.locale, traceSwitch, formSupport,
                  [this] {
                      prefixes.Forget();
                      formSmsSend.ApplySettings();
                      addresses.ApplySettings();
                  }),
      firstUse(regEdit, formOptions),
      formSmsPreview(services, formSmsPreviewView, forms, messageText, airCountLine, personalTexts,
                     textFields, reminders, platform.locale),
      formSmsSend(services, formSmsSendView, forms,
                  {submission, messageText, recipientField, textTemplates, fieldMenu}, draft,
                  airCountLine, awaitedRecipients, formSmsPreview, formSmsSelectAddress,
                  formOptions, helpViewer),
      formSmsSendRouter(formSmsSendView, formSmsSend,
                        {submission, messageText, recipientField, textTemplates, fieldMenu}),
      formT1(debug, forms, platform.timers),
      smsReply(errors, debug, processValues, platform.messageLoop, contacts, formSmsSend,
               recipientField, messageText),
      smsForward(errors, contacts, formSmsSend, formSmsSendView, messageText),
      reminderText(language, inifilesLite, platform.locale, textFields),
      smsReminder(errors, platform.automation, processValues, platform.clock, recipientLookup,
                  reminders, reminderText, formSmsSend, messageText),
      ribbon(errors, debug, language, platform.bitmaps, recipientLookup, smsReply, smsForward,
             smsReminder, formSmsSend),
      olButtons(errors, regEdit, platform.bitmaps, platform.messageLoop) {
    recipientPeople.SetListener([this] { formSmsSend.People_Change(); });
}

std::shared_ptr<OutlookAddIn> Program::CreateOutlookAddIn() {
    const auto openSms = [this](const ObjectPtr& application) {
        if (!smsReminder.OpenSelected(application))
            formSmsSend.Open(recipientLookup.LookInSelection(application));
    };
    const auto createExplorer = [this, openSms] {
        return std::make_shared<cOlExplorer>(errors, debug, language, olButtons, formT1, smsReply,
                                             processValues, ribbon, clock, timers, openSms);
    };
    auto created =
        std::make_shared<OutlookAddIn>(errors, debug, regEdit, iniFile, addresses, recipientLookup,
                                       forms, smsReply, ribbon, processValues, createExplorer);
    outlookAddIn = created;
    return created;
}

}  // namespace tellwick
