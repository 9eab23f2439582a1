#include "model/OutlookModel.h"

#include <algorithm>
#include <type_traits>

#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

// Any number but CustomId makes a control one of Outlook's own.
constexpr std::int32_t OwnId = 2;

template <class Type>
std::shared_ptr<Type> TopOf(const std::vector<std::shared_ptr<Window>>& stack) {
    for (auto at = stack.rbegin(); at != stack.rend(); ++at) {
        if (auto window = std::dynamic_pointer_cast<Type>(*at)) return window;
    }
    return nullptr;
}

}  // namespace

OutlookModel::OutlookModel(PendingError& errors, std::int32_t majorVersion)
    : errors(errors),
      version(majorVersion),
      explorers(std::make_shared<WindowCollection<Explorer>>(*this)),
      inspectors(std::make_shared<WindowCollection<Inspector>>(*this)),
      comAddIns(std::make_shared<ComAddIns>(*this)),
      session(std::make_shared<NameSpace>(*this)),
      folders{std::make_shared<Folder>(*this, u"Inbox", InboxFolder),
              std::make_shared<Folder>(*this, u"Calendar", CalendarFolder),
              std::make_shared<Folder>(*this, u"Contacts", ContactsFolder)},
      stores{std::make_shared<Folder>(*this, u"Personal Folders", 0)},
      deleted(std::make_shared<Folder>(*this, u"Deleted Items", DeletedFolder)),
      drafts(std::make_shared<Folder>(*this, u"Drafts", DraftsFolder)),
      navigation(std::make_shared<NavigationGroups>(*this)),
      application(std::make_shared<ApplicationObject>(*this)) {
    stores[0]->folders->all = folders;
    stores[0]->folders->all.push_back(drafts);
    stores[0]->folders->all.push_back(deleted);
    for (const auto& folder : stores[0]->folders->all) folder->store = stores[0]->store;
    const auto mine =
        std::make_shared<NavigationGroup>(*this, u"My Contacts", NavigationGroup::Mine);
    mine->folders->all.push_back(
        std::make_shared<NavigationFolder>(*this, u"Contacts", DefaultFolder(ContactsFolder)));
    navigation->all = {mine, std::make_shared<NavigationGroup>(*this, u"People's Contacts",
                                                               NavigationGroup::OfPeople)};
    readDate = [](TextView text) -> std::optional<double> {
        const std::size_t blank = text.find(u' ');
        const std::size_t colon = text.find(u':');
        if (blank == TextView::npos || colon == TextView::npos) return {};
        return double(LeadingNumber(text)) + (double(LeadingNumber(text.substr(blank + 1))) * 60 +
                                              double(LeadingNumber(text.substr(colon + 1)))) /
                                                 1440;
    };
}

OutlookModel::~OutlookModel() {
    changed = nullptr;
    const std::set<Reference*> held = references;
    for (Reference* reference : held) reference->Disconnect();
}

ObjectPtr OutlookModel::Application() {
    return application->Handle();
}

ObjectPtr OutlookModel::RunningApplication() {
    return application->Handle(false);
}

std::shared_ptr<ComAddIn> OutlookModel::AddAddIn(TextView progId, TextView description,
                                                 TextView guid) {
    auto addIn = std::make_shared<ComAddIn>(*this);
    addIn->progId = progId;
    addIn->description = description;
    addIn->guid = guid;
    comAddIns->all.push_back(addIn);
    return addIn;
}

std::shared_ptr<CommandBars> OutlookModel::NewBars(const std::shared_ptr<Window>& window) {
    auto bars = std::make_shared<CommandBars>(*this);
    bars->window = window;
    const auto menuBar = bars->AddBar(u"Menu Bar");
    for (const TextView caption : {u"&File", u"&Edit", u"&View", u"&Tools", u"&Help"}) {
        menuBar->AddPopup(caption, OwnId);
    }
    const auto standard = bars->AddBar(u"Standard");
    if (std::dynamic_pointer_cast<Explorer>(window)) {
        const auto create = standard->AddPopup(u"&New", OwnId);
        for (const TextView caption : {u"&Mail Message", u"&Appointment", u"&Contact"}) {
            create->Menu()->AddButton(caption, OwnId);
        }
        for (const TextView caption : {u"&Print", u"&Delete"}) standard->AddButton(caption, OwnId);
    }
    standard->AddButton(u"&Reply", OwnId)->beginGroup = true;
    return bars;
}

std::shared_ptr<Explorer> OutlookModel::CreateExplorer() {
    auto explorer = std::make_shared<Explorer>(*this);
    explorer->folder = DefaultFolder(InboxFolder);
    explorer->commandBars = NewBars(explorer);
    if (remembered) explorer->commandBars->TakeOver(*remembered);
    explorers->all.push_back(explorer);
    stack.insert(stack.begin(), explorer);
    Arguments arguments{explorer->Handle()};
    explorers->Raise(event::NewExplorer, arguments);
    Changed();
    return explorer;
}

std::shared_ptr<Explorer> OutlookModel::OpenExplorer() {
    auto explorer = CreateExplorer();
    Activate(explorer);
    return explorer;
}

void OutlookModel::Activate(const std::shared_ptr<Window>& window) {
    if (!window || window->closed) return;
    const std::shared_ptr<Window> before = stack.empty() ? nullptr : stack.back();
    std::erase(stack, window);
    stack.push_back(window);
    const bool isFirst = !window->displayed;
    window->displayed = true;
    Changed();
    if (isFirst) ribbons.Open(*window);
    if (before && before != window && before->displayed) before->RaiseDeactivate();
    if (window->closed) return;
    window->RaiseActivate();
    const auto explorer = std::dynamic_pointer_cast<Explorer>(window);
    if (!isFirst || !explorer || explorer->closed) return;
    const auto& items = explorer->folder->items->all;
    if (explorer->selection.empty() && !items.empty()) explorer->selection = {items[0]};
    explorer->Raise(event::ExplorerSelectionChange);
}

template <class Type>
void OutlookModel::CloseWindow(WindowCollection<Type>& windows,
                               const std::shared_ptr<Type>& window) {
    window->RaiseClose();
    if (window->closed) return;  // a handler was faster
    window->closed = true;
    if constexpr (std::is_same_v<Type, Explorer>) {
        const auto bars = NewBars(window);
        bars->TakeOver(*window->commandBars);
        remembered = bars;
    }
    window->commandBars->Close();
    const bool wasInFront = !stack.empty() && stack.back() == window;
    std::erase(windows.all, window);
    std::erase(stack, window);
    Changed();
    if (wasInFront && !stack.empty()) Activate(std::shared_ptr<Window>(stack.back()));
}

void OutlookModel::CloseExplorer(const std::shared_ptr<Explorer>& explorer) {
    if (!explorer || explorer->closed) return;
    CloseWindow(*explorers, explorer);
}

std::shared_ptr<Inspector> OutlookModel::OpenInspector(const std::shared_ptr<Item>& item) {
    if (!item || item->deleted) return nullptr;
    if (const auto open = InspectorOf(item)) {
        Activate(open);
        return open;
    }
    auto inspector = std::make_shared<Inspector>(*this);
    inspector->item = item;
    inspector->commandBars = NewBars(inspector);
    inspectors->all.push_back(inspector);
    stack.insert(stack.begin(), inspector);
    Arguments arguments{inspector->Handle()};
    inspectors->Raise(event::NewInspector, arguments);
    Arguments cancel{false};
    item->Raise(event::ItemOpen, cancel);
    Activate(inspector);
    return inspector;
}

std::shared_ptr<Inspector> OutlookModel::InspectorOf(const std::shared_ptr<Item>& item) const {
    const auto& all = inspectors->all;
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& open) { return open->item == item; });
    return found == all.end() ? nullptr : *found;
}

void OutlookModel::CloseInspector(const std::shared_ptr<Inspector>& inspector) {
    if (!inspector || inspector->closed) return;
    Arguments cancel{false};
    inspector->item->Raise(event::ItemClose, cancel);
    CloseWindow(*inspectors, inspector);
}

void OutlookModel::Select(const std::shared_ptr<Explorer>& explorer,
                          std::vector<std::shared_ptr<Item>> items) {
    if (!explorer || explorer->closed) return;
    explorer->selection = std::move(items);
    explorer->conversations.clear();
    Changed();
    explorer->Raise(event::ExplorerSelectionChange);
}

void OutlookModel::SelectConversation(const std::shared_ptr<Explorer>& explorer,
                                      std::vector<std::shared_ptr<Item>> mails) {
    if (!explorer || explorer->closed) return;
    explorer->selection.clear();
    explorer->conversations.assign(1,
                                   std::make_shared<ConversationHeader>(*this, std::move(mails)));
    Changed();
    explorer->Raise(event::ExplorerSelectionChange);
}

void OutlookModel::SwitchFolder(const std::shared_ptr<Explorer>& explorer,
                                const std::shared_ptr<Folder>& folder) {
    if (!explorer || explorer->closed || !folder) return;
    explorer->folder = folder;
    explorer->Raise(event::ExplorerFolderSwitch);
    std::vector<std::shared_ptr<Item>> first;
    if (!folder->items->all.empty()) first.push_back(folder->items->all[0]);
    Select(explorer, std::move(first));
}

std::shared_ptr<Explorer> OutlookModel::ActiveExplorer() const {
    if (!startupComplete && Does(Documented::BarsAfterStartup)) return nullptr;
    return TopOf<Explorer>(stack);
}

std::shared_ptr<Inspector> OutlookModel::ActiveInspector() const {
    return TopOf<Inspector>(stack);
}

bool OutlookModel::ClickButton(const std::shared_ptr<CommandBarControl>& control) {
    const auto button = std::dynamic_pointer_cast<CommandBarButton>(control);
    if (!button || button->deleted || !button->visible || !button->enabled) return false;
    button->Click();
    return true;
}

void OutlookModel::Quit() {
    while (!inspectors->all.empty()) CloseInspector(inspectors->all.back());
    while (!explorers->all.empty()) CloseExplorer(explorers->all.back());
    if (shutDownAddIns && !Does(Documented::QuietEnd)) shutDownAddIns();
    application->Raise(event::ApplicationQuit);
}

std::shared_ptr<Folder> OutlookModel::AddStore(TextView name) {
    stores.push_back(std::make_shared<Folder>(*this, Text(name), 0));
    return stores.back();
}

void OutlookModel::AddPublicStore() {
    const auto root = AddStore(u"Public Folders");
    root->store->exchangeType = StoreState::PublicFolders;
    publicFolders = std::make_shared<Folder>(*this, u"All Public Folders", PublicFoldersFolder);
    publicFolders->store = root->store;
    root->folders->all.push_back(publicFolders);
}

std::shared_ptr<Folder> OutlookModel::ShareFolder(TextView owner) {
    const auto root = std::make_shared<Folder>(*this, u"Mailbox - " + Text(owner), 0);
    root->store->exchangeType = 1;
    auto folder = root->Add(u"Contacts", ContactItem);
    navigation->all.back()->folders->all.push_back(
        std::make_shared<NavigationFolder>(*this, u"Contacts - " + Text(owner), folder));
    return folder;
}

std::shared_ptr<Store> OutlookModel::StoreOf(const Folder& folder) {
    for (const auto& root : Roots()) {
        if (root->store == folder.store) return std::make_shared<Store>(*this, root);
    }
    return nullptr;
}

void OutlookModel::Touch(const Folder& folder) {
    StoreState& store = *folder.store;
    if (store.milliseconds > 0 && pass) pass(store.milliseconds);
    if (store.open) return;
    if (store.hasPassword) {
        ++passwordsAsked;
    } else {
        store.open = true;
    }
}

void OutlookModel::FolderOpened() {
    constexpr int Most = 500;
    if (++foldersOpen > Most) sessionEnded = true;
}

// Of everything that has folders; one that is shared stands for itself.
std::vector<std::shared_ptr<Folder>> OutlookModel::Roots() const {
    std::vector<std::shared_ptr<Folder>> roots = stores;
    for (const auto& group : navigation->all) {
        if (group->type == NavigationGroup::Mine) continue;
        for (const auto& shown : group->folders->all) roots.push_back(shown->folder);
    }
    return roots;
}

std::shared_ptr<Folder> OutlookModel::FindFolder(TextView entryId) const {
    std::vector<std::shared_ptr<Folder>> waiting = Roots();
    while (!waiting.empty()) {
        const std::shared_ptr<Folder> folder = waiting.back();
        waiting.pop_back();
        if (folder->entryId == entryId) return folder;
        waiting.insert(waiting.end(), folder->folders->all.begin(), folder->folders->all.end());
    }
    return nullptr;
}

const std::shared_ptr<Folder>& OutlookModel::DefaultFolder(std::int32_t number) const {
    if (number == DeletedFolder) return deleted;
    if (number == DraftsFolder) return drafts;
    if (number == PublicFoldersFolder && publicFolders) return publicFolders;
    const auto found = std::find_if(folders.begin(), folders.end(),
                                    [&](const auto& folder) { return folder->number == number; });
    return found == folders.end() ? folders[0] : *found;
}

bool OutlookModel::Does(Documented behaviour) const {
    const DocumentedRow& row = RowOf(behaviour);
    if (version < row.first || version > row.last) return false;
    const auto found = switched.find(behaviour);
    return found == switched.end() ? row.usual : found->second;
}

void OutlookModel::AskUser(bool trusted) {
    if (Does(Documented::SecurityQuestion) || (!trusted && Does(Documented::UntrustedObjects)))
        ++questions;
}

void OutlookModel::FailMember(TextView className, TextView member, std::int32_t error) {
    failures[{LowerCase(className), LowerCase(member)}] = error;
}

std::int32_t OutlookModel::FailureOf(TextView className, TextView member) const {
    if (failUse && failUse(className, member)) return error::Automation;
    if (failures.empty()) return 0;
    const auto found = failures.find({LowerCase(className), LowerCase(member)});
    return found == failures.end() ? 0 : found->second;
}

std::vector<OutlookModel::Referenced> OutlookModel::StillReferenced() const {
    std::vector<Referenced> held;
    for (const Reference* reference : references) {
        held.push_back({Text(reference->Target()->ClassName()),
                        std::int32_t(reference->weak_from_this().use_count())});
    }
    return held;
}

std::vector<Text> OutlookModel::LiveSubscriptions() const {
    std::vector<Text> live;
    for (const auto& weak : sinks) {
        const auto sink = weak.lock();
        if (sink && !sink->dropped) live.emplace_back(sink->sourceClass);
    }
    return live;
}

std::vector<std::shared_ptr<CommandBarButton>> OutlookModel::Buttons() const {
    std::vector<std::shared_ptr<CommandBarButton>> buttons;
    for (const auto& window : stack) {
        const auto more = window->commandBars->Buttons();
        buttons.insert(buttons.end(), more.begin(), more.end());
    }
    return buttons;
}

}  // namespace tellwick::standin
