// The one object that holds Outlook for the add-in: its application, its window collections with
// their events, and a wrapper for every explorer window.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "addin/cOlExplorer.h"
#include "platform/Forms.h"
#include "platform/Object.h"
#include "platform/ProcessValues.h"

namespace tellwick {

class Addresses;
class Debug;
class IniFile;
class RecipientLookup;
class RegEdit;
class Ribbon;

class OutlookAddIn : public std::enable_shared_from_this<OutlookAddIn> {
public:
    using ExplorerFactory = std::function<std::shared_ptr<cOlExplorer>()>;

    OutlookAddIn(PendingError& errors, Debug& debug, RegEdit& regEdit, IniFile& iniFile,
                 Addresses& addresses, RecipientLookup& recipientLookup, Forms& forms,
                 SmsReply& smsReply, Ribbon& ribbon, ProcessValues& processValues,
                 ExplorerFactory createExplorer);

    // Takes hold of Outlook and wraps its first explorer, which gets its button at once.
    void Initialise(const ObjectPtr& application, TextView progId);
    // Outlook is ready: in Outlook 2000 it need not have been until now, and then the first
    // explorer gets its button.
    void CompleteStartup();

    // The ribbon's XML for a kind of window; empty when there is none or Outlook has been let go.
    // Explorers that have the ribbon lose button and entry.
    Text GetCustomUI(TextView ribbonId);

    // Lets go of Outlook, unloads the forms, and gives settings that could not be written a last
    // try. Does nothing unless `explorer` is empty.
    void Release(const ObjectPtr& explorer);

    // Empty before the initialisation and after the release.
    ObjectPtr GetOlApp() const { return golApp.Reference(); }

private:
    using Wrappers = std::vector<std::shared_ptr<cOlExplorer>>;

    void colExpl_NewExplorer(const ObjectPtr& explorer);
    void colInsp_NewInspector(const ObjectPtr& inspector);
    void objInsp_Close(const ObjectPtr&);
    void mailInsp_Close(const ObjectPtr&);
    void golApp_Quit(const ObjectPtr&);
    void CleanUpForQuit();
    EventHandler OnEvent(std::int32_t event, void (OutlookAddIn::*handler)(const ObjectPtr&));
    Text TagText() const;

    SunkObject golApp;
    SunkObject colExpl;
    SunkObject colInsp;
    SunkObject objInsp;
    SunkObject objMailItem;  // the last mail that was opened in an inspector
    SunkObject mailInsp;     // that inspector
    Text sProgId;
    // One per explorer window. A wrapper whose window has closed stays until its place is reused.
    Wrappers explorers;

    PendingError& errors;
    Debug& debug;
    RegEdit& regEdit;
    IniFile& iniFile;
    Addresses& addresses;
    RecipientLookup& recipientLookup;
    Forms& forms;
    SmsReply& smsReply;
    Ribbon& ribbon;
    ProcessValues& processValues;
    ExplorerFactory createExplorer;
};

}  // namespace tellwick
