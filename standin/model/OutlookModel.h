// The stand-in Outlook: the application with its windows, and the hands that drive it. What the
// driving functions take and give are the model's own objects; only what goes out through a
// handle counts as referenced from outside.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "model/Application.h"
#include "model/Documented.h"
#include "model/Ribbon.h"
#include "model/Stores.h"
#include "model/Windows.h"

namespace tellwick::standin {

using Fields = std::initializer_list<std::pair<TextView, TextView>>;

class OutlookModel {
public:
    // Errors of calls from outside are noted in `errors`. The major version is 9 (2000), 10
    // (2002), 11 (2003), 12 (2007), 14 (2010) or 16. Starts without windows and items.
    OutlookModel(PendingError& errors, std::int32_t majorVersion);
    // Every handle still held fails from then on.
    ~OutlookModel();
    OutlookModel(const OutlookModel&) = delete;
    OutlookModel& operator=(const OutlookModel&) = delete;

    ObjectPtr Application();
    // The same as other programs find it running; it is not trusted.
    ObjectPtr RunningApplication();
    // Adds an add-in to COMAddIns; its handle is what OnConnection gets.
    std::shared_ptr<ComAddIn> AddAddIn(TextView progId, TextView description = {},
                                       TextView guid = {});
    // What Create("Redemption.SafeMailItem") and, for the other classes, Create(
    // "Redemption.SafeDistList") and Create("Redemption.SafeAppointmentItem") give.
    ObjectPtr CreateSafeItem(std::int32_t itemClass);

    // Opens a window: NewExplorer (it counts already, but another one may be the active one), then
    // the events of Display.
    std::shared_ptr<Explorer> OpenExplorer();
    // The same without Display, as Outlook has its first window when it connects its add-ins.
    std::shared_ptr<Explorer> CreateExplorer();
    // Brings the window to the front: Deactivate of the one before, Activate, and the first time
    // the SelectionChange of an explorer. Activate comes in any case, as when the user returns
    // from another program.
    void Activate(const std::shared_ptr<Window>& window);
    // Close (the window still counts), then it is gone and the one below becomes active.
    void CloseExplorer(const std::shared_ptr<Explorer>& explorer);
    // NewInspector, then Open of the item and Activate. Brings the item's inspector to the front
    // when there is one.
    std::shared_ptr<Inspector> OpenInspector(const std::shared_ptr<Item>& item);
    // Null when the item is not open.
    std::shared_ptr<Inspector> InspectorOf(const std::shared_ptr<Item>& item) const;
    void CloseInspector(const std::shared_ptr<Inspector>& inspector);
    // Changes the selection, then SelectionChange.
    void Select(const std::shared_ptr<Explorer>& explorer,
                std::vector<std::shared_ptr<Item>> items);
    // Selects the line of a conversation, whose mails these are; below 2010 that is a group's line,
    // which gives nothing.
    void SelectConversation(const std::shared_ptr<Explorer>& explorer,
                            std::vector<std::shared_ptr<Item>> mails);
    void SwitchFolder(const std::shared_ptr<Explorer>& explorer,
                      const std::shared_ptr<Folder>& folder);
    // Null while there is none. The active one is the one last in front; one that has not been
    // displayed yet lies below the others.
    std::shared_ptr<Explorer> ActiveExplorer() const;
    std::shared_ptr<Inspector> ActiveInspector() const;
    std::shared_ptr<Window> FrontWindow() const { return stack.empty() ? nullptr : stack.back(); }

    struct Answer {
        std::shared_ptr<Item> response;
        bool cancelled;  // by a handler
    };
    // Makes the reply and raises the item's Reply.
    Answer PrepareReply(const std::shared_ptr<Item>& item);
    // Presses Reply on an item. True when Outlook's own reply opens, false when a handler
    // cancelled it.
    bool PressReply(const std::shared_ptr<Item>& item);
    // Clicks a button as a user does; false when that control cannot be clicked.
    bool ClickButton(const std::shared_ptr<CommandBarControl>& control);
    // Closes every window, calls shutDownAddIns unless the end is a quiet one, raises Quit. Opening
    // an explorer afterwards is a new start of the same Outlook, which has forgotten the temporary
    // controls.
    void Quit();

    // Puts an item with these fields into the default folder of its kind, a mail as if it had come
    // in. Any of the item classes.
    std::shared_ptr<Item> AddItem(std::int32_t itemClass, Fields fields = {});
    // Puts an item that lies nowhere into the folder that it was made in, else into the default one
    // of its kind. It is modified now.
    void SaveItem(const std::shared_ptr<Item>& item);
    void MoveItem(const std::shared_ptr<Item>& item, const std::shared_ptr<Folder>& folder);
    void DeleteItem(const std::shared_ptr<Item>& item);
    // As another program or a server changes it.
    void ChangeInStore(const std::shared_ptr<Item>& item, TextView field, TextView value);
    // An inbox for every number that is not the contacts' or the calendar's.
    const std::shared_ptr<Folder>& DefaultFolder(std::int32_t number) const;

    // Whether this Outlook does what the row says: in its versions, as usual or as switched.
    bool Does(Documented behaviour) const;
    void Switch(Documented behaviour, bool on) { switched[behaviour] = on; }

    // A guarded member is used from outside, through a trusted handle or another.
    void AskUser(bool trusted);
    int questions = 0;  // that the user was asked
    // OnStartupComplete has been, or comes next.
    bool startupComplete = false;

    // Lets every use of the member fail with the error; 0 ends that. Class as in TypeName.
    void FailMember(TextView className, TextView member, std::int32_t error);
    std::int32_t FailureOf(TextView className, TextView member) const;
    // Asked before every use from outside, true lets it fail. Sinking events is the member
    // "Advise".
    std::function<bool(TextView className, TextView member)> failUse;
    // Calls a handler of the outside's events.
    std::function<void(const std::function<void()>& handler)> aroundHandler;
    // Handlers that threw something at the host.
    int thrownAtHost = 0;

    struct Referenced {
        Text className;
        std::int32_t count;  // references held
    };
    // The objects still referenced from outside.
    std::vector<Referenced> StillReferenced() const;
    // The sources of the handlers still advised: "Explorer", "CommandBarButton", …
    std::vector<Text> LiveSubscriptions() const;

    std::vector<std::shared_ptr<CommandBarButton>> Buttons() const;
    void Changed() const {
        if (changed) changed();
    }

    PendingError& errors;
    const std::int32_t version;
    // False plays a host whose application object has no events.
    bool applicationHasEvents = true;

    // What surrounds the model; each may be missing.
    std::function<void()> changed;         // windows, items or toolbars may look different
    std::function<void()> quitRequested;   // instead of quitting at once in Application.Quit
    std::function<void()> shutDownAddIns;  // between the last window's Close and Quit
    // COMAddIn.Connect; false when it failed.
    std::function<bool(const std::shared_ptr<ComAddIn>&, bool connect)> connectAddIn;
    std::function<std::uintptr_t()> pasteFace;  // the clipboard's bitmap, the host's own; 0: none

    std::shared_ptr<WindowCollection<Explorer>> explorers;
    std::shared_ptr<WindowCollection<Inspector>> inspectors;
    std::shared_ptr<ComAddIns> comAddIns;
    std::shared_ptr<NameSpace> session;
    Text user = u"Me";  // who uses this Outlook
    // The date, see Value. Every creation moves it on by a second.
    double now = 46000.5;
    // What the user's clock is ahead of the universal time, in days.
    double timeZone = 0;
    // A date in a filter, as the user writes dates; "46000 17:05" unless it is set otherwise.
    std::function<std::optional<double>(TextView)> readDate;
    Text NewEntryId();
    // In any folder; null when there is none.
    std::shared_ptr<Item> FindItem(TextView entryId) const;
    std::shared_ptr<Folder> FindFolder(TextView entryId) const;
    std::uint32_t lastEntry = 0;

    std::vector<std::shared_ptr<Folder>> folders;  // the default ones
    std::vector<std::shared_ptr<Folder>> stores;   // the roots; the default ones lie in the first
    const std::shared_ptr<Folder> deleted;         // for what was deleted from the first store
    const std::shared_ptr<Folder> drafts;          // for mails that are still being written
    std::shared_ptr<Folder> publicFolders;         // of the public store, see AddPublicStore
    std::shared_ptr<NavigationGroups> navigation;  // what the pane shows of contacts

    std::shared_ptr<Folder> AddStore(TextView name);
    // The store of an organisation's public folders; what is in it lies in publicFolders.
    void AddPublicStore();
    // Shows a folder of somebody's own store in the navigation pane.
    std::shared_ptr<Folder> ShareFolder(TextView owner);
    // By a folder of it.
    std::shared_ptr<Store> StoreOf(const Folder& folder);

    // A call from outside reaches the folder's store: a slow one takes its time, a closed one is
    // opened, for which the user may be asked for a password.
    void Touch(const Folder& folder);
    std::function<void(double milliseconds)> pass;  // lets the time pass
    int passwordsAsked = 0;
    // An Exchange server ends the session of a program that has too many folders open.
    void FolderOpened();
    void FolderLetGo() { --foldersOpen; }
    bool sessionEnded = false;

    Ribbons ribbons{*this};

    // Kept by the handles and subscriptions themselves.
    std::set<Reference*> references;
    std::vector<std::weak_ptr<Sink>> sinks;

private:
    std::vector<std::shared_ptr<Folder>> Roots() const;
    const std::shared_ptr<Folder>& FolderFor(const Item& item) const;
    std::shared_ptr<CommandBars> NewBars(const std::shared_ptr<Window>& window);
    template <class Type>
    void CloseWindow(WindowCollection<Type>& windows, const std::shared_ptr<Type>& window);

    std::shared_ptr<ApplicationObject> application;
    std::vector<std::shared_ptr<Window>> stack;  // the window in front is the last
    std::shared_ptr<CommandBars> remembered;     // of the explorer closed last
    std::map<std::pair<Text, Text>, std::int32_t> failures;
    std::map<Documented, bool> switched;
    int foldersOpen = 0;
};

// What every object of Outlook's own has, by the number of its class.
template <class Type>
Members<Type> OutlookMembers(std::int32_t objectClass) {
    Members<Type> members;
    members.Property(u"Application", [](Type& self) { return self.outlook.Application(); })
        .Property(u"Class", [objectClass](Type&) { return objectClass; })
        .Property(u"Session", [](Type& self) { return self.outlook.session->Handle(); });
    return members;
}

}  // namespace tellwick::standin
