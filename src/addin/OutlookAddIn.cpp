#include "addin/OutlookAddIn.h"

#include <algorithm>
#include <utility>

#include "addin/Ribbon.h"
#include "platform/Outlook.h"
#include "platform/OutlookEvents.h"
#include "platform/Product.h"
#include "recipients/Addresses.h"
#include "recipients/RecipientLookup.h"
#include "settings/Debug.h"
#include "settings/IniFile.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr std::int32_t FirstWithoutOwnQuit = 10;     // Outlook 2002
constexpr std::int32_t FirstReadyAtConnection = 10;  // with its command bars

}  // namespace

OutlookAddIn::OutlookAddIn(PendingError& errors, Debug& debug, RegEdit& regEdit, IniFile& iniFile,
                           Addresses& addresses, RecipientLookup& recipientLookup, Forms& forms,
                           SmsReply& smsReply, Ribbon& ribbon, ProcessValues& processValues,
                           ExplorerFactory createExplorer)
    : errors(errors),
      debug(debug),
      regEdit(regEdit),
      iniFile(iniFile),
      addresses(addresses),
      recipientLookup(recipientLookup),
      forms(forms),
      smsReply(smsReply),
      ribbon(ribbon),
      processValues(processValues),
      createExplorer(std::move(createExplorer)) {}

// Calls the handler with the first argument, an object, when its event arrives.
EventHandler OutlookAddIn::OnEvent(std::int32_t wanted,
                                   void (OutlookAddIn::*handler)(const ObjectPtr&)) {
    return [weak = weak_from_this(), wanted, handler](std::int32_t event,
                                                      std::vector<Value>& arguments) {
        const auto self = weak.lock();
        if (!self || event != wanted) return;
        self->debug.Guarded(
            [&] { ((*self).*handler)(arguments.empty() ? nullptr : AsObject(arguments[0])); });
    };
}

Text OutlookAddIn::TagText() const {
    return processValues.applicationTitle + u".Main";
}

void OutlookAddIn::Initialise(const ObjectPtr& application, TextView progId) {
    const outlook::Application outlookApplication(errors, application);
    processValues.outlookVersion = outlookApplication.MajorVersion();

    golApp.Set(errors, application, outlook::ApplicationEvents,
               OnEvent(outlook::event::ApplicationQuit, &OutlookAddIn::golApp_Quit));
    addresses.SetApplication(application);
    sProgId = progId;
    if (golApp) {
        colExpl.Set(errors, outlookApplication.Explorers().Reference(), outlook::ExplorersEvents,
                    OnEvent(outlook::event::NewExplorer, &OutlookAddIn::colExpl_NewExplorer));
        colInsp.Set(errors, outlookApplication.Inspectors().Reference(), outlook::InspectorsEvents,
                    OnEvent(outlook::event::NewInspector, &OutlookAddIn::colInsp_NewInspector));
    }

    const std::shared_ptr<cOlExplorer> first = createExplorer();
    explorers.assign(1, first);
    const ObjectPtr window = outlookApplication.Explorers().Item(1).Reference();
    if (golApp) {
        first->OpenItem(window, sProgId, TagText());
        first->SetMenus(nullptr);
    } else {
        first->OpenItemOl20(window, sProgId, TagText());
    }
}

void OutlookAddIn::CompleteStartup() {
    if (processValues.outlookVersion >= FirstReadyAtConnection || !golApp || explorers.empty())
        return;
    const std::shared_ptr<cOlExplorer> first = explorers.front();
    first->CompleteMenus();
}

Text OutlookAddIn::GetCustomUI(TextView ribbonId) {
    if (!golApp) return {};
    // Held here: the calls into Outlook may bring events that change the array.
    const Wrappers wrapped = explorers;
    Text xml = ribbon.GetCustomUI(ribbonId, processValues.outlookVersion, Ribbon::Connection::Live);
    if (ribbon.InExplorers()) {
        for (const std::shared_ptr<cOlExplorer>& wrapper : wrapped) wrapper->GiveWay();
    }
    return xml;
}

void OutlookAddIn::colExpl_NewExplorer(const ObjectPtr& explorer) {
    const auto closed =
        std::find_if(explorers.begin(), explorers.end(),
                     [](const std::shared_ptr<cOlExplorer>& wrapper) { return !wrapper->bOpen; });
    // The wrappers behind a place that is used again are dropped, though windows may be open.
    // Deliberate: "A place that is used again".
    const std::size_t index = std::size_t(closed - explorers.begin());
    const std::shared_ptr<cOlExplorer> wrapper = createExplorer();
    explorers.resize(index + 1);
    explorers[index] = wrapper;
    wrapper->OpenItem(explorer, sProgId, TagText());
}

void OutlookAddIn::colInsp_NewInspector(const ObjectPtr& inspector) {
    objInsp.Set(errors, inspector, outlook::InspectorEvents,
                OnEvent(outlook::event::InspectorClose, &OutlookAddIn::objInsp_Close));
    const bool follows =
        smsReply.Follow(objMailItem, outlook::Inspector(errors, objInsp.Reference()).CurrentItem(),
                        SmsReply::Place::Inspector);
    if (!follows) return;
    mailInsp.Set(errors, inspector, outlook::InspectorEvents,
                 OnEvent(outlook::event::InspectorClose, &OutlookAddIn::mailInsp_Close));
}

// An item that is held is not read anew from the store.
void OutlookAddIn::mailInsp_Close(const ObjectPtr&) {
    objMailItem.Clear();
    mailInsp.Clear();
}

void OutlookAddIn::objInsp_Close(const ObjectPtr&) {
    // The closing inspector still counts. With no window left Outlook is about to end.
    if (outlook::Inspectors(errors, colInsp.Reference()).Count() < 2 &&
        !outlook::Application(errors, golApp.Reference()).ActiveExplorer()) {
        Release(nullptr);
    }
    objInsp.Clear();
}

void OutlookAddIn::golApp_Quit(const ObjectPtr&) {
    Release(nullptr);
    CleanUpForQuit();
}

void OutlookAddIn::CleanUpForQuit() {
    explorers.clear();
    addresses.Release();
}

// Whatever a step throws, the ones behind it run: nothing of Outlook's may be kept.
void OutlookAddIn::Release(const ObjectPtr& explorer) {
    if (explorer) return;
    // Every window still wrapped loses its button and its entry. Held here: the calls into Outlook
    // may bring events that change the array.
    debug.Guarded([this] {
        const Wrappers wrapped = explorers;
        for (const std::shared_ptr<cOlExplorer>& wrapper : wrapped) {
            if (wrapper->bOpen) wrapper->Leave();
        }
    });
    ribbon.Release();
    recipientLookup.Stop();
    // Outlook 2000 has its clean-up for Quit here. It must not lead back into the release.
    if (processValues.outlookVersion < FirstWithoutOwnQuit) CleanUpForQuit();
    addresses.Release();

    // The collection shrinks while forms unload. Deliberate: "Every other form".
    for (std::int32_t index = 0, count = forms.Count(); index < count; ++index) {
        if (Form* form = forms.Item(index)) debug.Guarded([form] { form->Unload(); });
    }

    objInsp.Clear();
    colInsp.Clear();
    colExpl.Clear();
    golApp.Clear();
    objMailItem.Clear();
    mailInsp.Clear();
    regEdit.WriteValue(Hive::CurrentUser, RootKey, u"OlAddInActive", u"");
    debug.Guarded([this] { iniFile.Flush(); });
}

}  // namespace tellwick
