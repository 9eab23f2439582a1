#include "addin/OutlookAddIn.h"

#include <algorithm>
#include <utility>

#include "platform/Outlook.h"
#include "platform/OutlookEvents.h"
#include "platform/Product.h"
#include "recipients/Contacts.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr std::int32_t FirstWithoutOwnQuit = 10;  // Outlook 2002

// Calls the member function with the first argument, an object, when its event arrives.
template <class Self>
EventHandler OnEvent(std::weak_ptr<Self> weak, std::int32_t wanted,
                     void (Self::*handler)(const ObjectPtr&)) {
    return [=](std::int32_t event, std::vector<Value>& arguments) {
        const auto self = weak.lock();
        if (!self || event != wanted) return;
        ((*self).*handler)(arguments.empty() ? nullptr : AsObject(arguments[0]));
    };
}

}  // namespace

OutlookAddIn::OutlookAddIn(PendingError& errors, RegEdit& regEdit, Contacts& contacts, Forms& forms,
                           SmsReply& smsReply, ProcessValues& processValues,
                           ExplorerFactory createExplorer)
    : errors(errors),
      regEdit(regEdit),
      contacts(contacts),
      forms(forms),
      smsReply(smsReply),
      processValues(processValues),
      createExplorer(std::move(createExplorer)) {}

Text OutlookAddIn::TagText() const {
    return processValues.applicationTitle + u".Main";
}

void OutlookAddIn::Initialise(const ObjectPtr& application, TextView progId) {
    const outlook::Application outlookApplication(errors, application);
    processValues.outlookVersion = LeadingNumber32(outlookApplication.Version().substr(0, 2));

    golApp.Set(
        errors, application, outlook::ApplicationEvents,
        OnEvent(weak_from_this(), outlook::event::ApplicationQuit, &OutlookAddIn::golApp_Quit));
    sProgId = progId;
    if (golApp) {
        colExpl.Set(errors, outlookApplication.Explorers().Reference(), outlook::ExplorersEvents,
                    OnEvent(weak_from_this(), outlook::event::NewExplorer,
                            &OutlookAddIn::colExpl_NewExplorer));
        colInsp.Set(errors, outlookApplication.Inspectors().Reference(), outlook::InspectorsEvents,
                    OnEvent(weak_from_this(), outlook::event::NewInspector,
                            &OutlookAddIn::colInsp_NewInspector));
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

void OutlookAddIn::colExpl_NewExplorer(const ObjectPtr& explorer) {
    const auto closed =
        std::find_if(explorers.begin(), explorers.end(),
                     [](const std::shared_ptr<cOlExplorer>& wrapper) { return !wrapper->bOpen; });
    // A reused place cuts the array off behind it, on purpose: the wrappers behind it are dropped
    // even while their windows are open.
    const std::size_t index = std::size_t(closed - explorers.begin());
    const std::shared_ptr<cOlExplorer> wrapper = createExplorer();
    explorers.resize(index + 1);
    explorers[index] = wrapper;
    wrapper->OpenItem(explorer, sProgId, TagText());
}

void OutlookAddIn::colInsp_NewInspector(const ObjectPtr& inspector) {
    objInsp.Set(
        errors, inspector, outlook::InspectorEvents,
        OnEvent(weak_from_this(), outlook::event::InspectorClose, &OutlookAddIn::objInsp_Close));
    smsReply.Follow(objMailItem, outlook::Inspector(errors, objInsp.Reference()).CurrentItem(),
                    SmsReply::Place::Inspector);
}

void OutlookAddIn::objInsp_Close(const ObjectPtr&) {
    // The closing inspector still counts. With no window left Outlook is about to end.
    if (outlook::Inspectors(errors, colInsp.Reference()).Count() < 2 &&
        !outlook::Application(errors, golApp.Reference()).ActiveExplorer()) {
        Release(nullptr);
    }
}

void OutlookAddIn::golApp_Quit(const ObjectPtr&) {
    Release(nullptr);
    CleanUpForQuit();
}

void OutlookAddIn::CleanUpForQuit() {
    explorers.clear();
    contacts.Release();
}

void OutlookAddIn::Release(const ObjectPtr& explorer) {
    if (explorer) return;
    // Every window still wrapped loses its button, as if it closed.
    const std::vector<std::shared_ptr<cOlExplorer>> wrapped = explorers;
    for (const std::shared_ptr<cOlExplorer>& wrapper : wrapped) {
        if (wrapper->bOpen) wrapper->objExplorer_Close();
    }
    // Outlook 2000 has its clean-up for Quit here. It must not lead back into the release.
    if (processValues.outlookVersion < FirstWithoutOwnQuit) CleanUpForQuit();
    contacts.Release();

    // The collection shrinks while forms unload, so this unloads every other form; deliberate.
    for (std::int32_t index = 0, count = forms.Count(); index < count; ++index) {
        if (Form* form = forms.Item(index)) form->Unload();
    }

    objInsp.Clear();
    colInsp.Clear();
    colExpl.Clear();
    golApp.Clear();
    objMailItem.Clear();
    regEdit.WriteValue(Hive::CurrentUser, RootKey, u"OlAddInActive", u"");
}

}  // namespace tellwick
