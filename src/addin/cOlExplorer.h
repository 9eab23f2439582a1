// One Outlook explorer window: its events, and the add-in's button and drop-down entry in it.
#pragma once

#include <functional>
#include <memory>

#include "addin/FormT1.h"
#include "addin/OlButtons.h"
#include "addin/SmsReply.h"
#include "platform/Object.h"
#include "platform/ProcessValues.h"
#include "platform/Timer.h"
#include "recipients/Conversation.h"

namespace tellwick {

class Clock;
class Debug;
class LanguageTexts;
class Ribbon;

// Opens the SMS form for what is selected in the given Outlook application, or in the running one
// when none is given.
using SmsOpener = std::function<void(const ObjectPtr& application)>;

class cOlExplorer : public MenuRequester, public std::enable_shared_from_this<cOlExplorer> {
public:
    cOlExplorer(PendingError& errors, Debug& debug, LanguageTexts& language, OlButtons& olButtons,
                FormT1& formT1, SmsReply& smsReply, const ProcessValues& processValues,
                Ribbon& ribbon, Clock& clock, Timers& timers, SmsOpener openSms);

    // True from the initialisation until the window's Close.
    bool bOpen = false;

    // Wraps a window and sinks its events. The button is added later.
    void OpenItem(const ObjectPtr& explorer, TextView progId, TextView tag);

    // For a host whose application has no events: wraps nothing, adds the button at once.
    void OpenItemOl20(const ObjectPtr& explorer, TextView progId, TextView tag);

    // Adds the entry and the button to a window: to the explorer given, to the active one of the
    // application given, or, given nothing, to the active one of this window's application.
    void SetMenus(const ObjectPtr& target);
    void SetMenus() override { SetMenus(nullptr); }
    // The same where the window was not ready for its button at the connection.
    void CompleteMenus();

    // Takes both controls away wherever they stand.
    void GiveWay();

    // Deletes this add-in's button from the "Standard" bar of the explorer.
    void RemoveMenus(const ObjectPtr& explorer);

    // Opens a new SMS for what is selected in this window's Outlook.
    void NewSMS();

    // The window is closing: takes the button away and lets everything of Outlook's go.
    void objExplorer_Close();
    // The add-in goes while the window stays: likewise, with both controls wherever they stand.
    void Leave();

private:
    using ClickHandler = void (cOlExplorer::*)(std::vector<Value>& arguments);

    void OnExplorerEvent(std::int32_t event);
    void objExplorer_Activate();
    void objExplorer_SelectionChange();
    void FollowConversation();
    void ForgetSelected();
    void ButtonSMSNew_Click(std::vector<Value>& arguments);
    void MenuSMSNew_Click(std::vector<Value>& arguments);
    void Click(std::vector<Value>& arguments);
    void SinkClicks(SunkObject& button, const outlook::CommandBarControl& control,
                    ClickHandler handler);

    SunkObject objExplorer;
    SunkObject objMailItem;              // the first selected item, when that is a mail
    NewestOfConversations conversation;  // else that of the selected one
    std::unique_ptr<Timer> timer;        // while it is looked for
    SunkObject ButtonSMSNew;
    SunkObject MenuSMSNew;
    bool bMenusSet = false;
    Text sProgId;
    Text sTag;

    PendingError& errors;
    Debug& debug;
    LanguageTexts& language;
    OlButtons& olButtons;
    FormT1& formT1;
    SmsReply& smsReply;
    const ProcessValues& processValues;
    Ribbon& ribbon;
    Clock& clock;
    Timers& timers;
    SmsOpener openSms;
};

}  // namespace tellwick
