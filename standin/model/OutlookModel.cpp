#include "model/OutlookModel.h"

#include <algorithm>
#include <type_traits>

#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

// Any number but CustomId makes a control one of Outlook's own.
constexpr std::int32_t OwnId = 2;

TextView VersionText(std::int32_t version) {
    switch (version) {
        case 9:
            return u"9.0.0.2711";
        case 10:
            return u"10.0.0.2627";
        case 11:
            return u"11.0.0.5510";
        default:
            return u"16.0.0.5134";
    }
}

template <class Type>
std::shared_ptr<Type> Self(Type& self) {
    return std::static_pointer_cast<Type>(self.shared_from_this());
}

template <class Type>
Members<Type> WindowMembers() {
    Members<Type> members;
    members.Property(u"Application", [](Type& self) { return self.outlook.Application(); })
        .Property(u"Parent", [](Type& self) { return self.outlook.Application(); })
        .Property(u"Caption", [](Type& self) { return self.Caption(); })
        .Property(u"CommandBars", [](Type& self) { return self.commandBars->Handle(); })
        .Method(u"Activate", {},
                [](Type& self, const Arguments&) {
                    self.outlook.Activate(Self(self));
                    return Value();
                })
        .Method(u"Display", {u"Modal"}, [](Type& self, const Arguments&) {
            self.outlook.Activate(Self(self));
            return Value();
        });
    return members;
}

template <class Type>
Members<Type> CollectionMembers() {
    Members<Type> members;
    members.Property(u"Application", [](Type& self) { return self.outlook.Application(); })
        .Property(u"Parent", [](Type& self) { return self.outlook.Application(); })
        .Property(u"Count", [](Type& self) { return std::int32_t(self.all.size()); })
        .Method(u"Item", {u"Index"}, [](Type& self, const Arguments& arguments) {
            return ItemAt(self, self.all, arguments[0]);
        });
    return members;
}

template <class Type>
std::shared_ptr<Type> TopOf(const std::vector<std::shared_ptr<Window>>& stack) {
    for (auto at = stack.rbegin(); at != stack.rend(); ++at) {
        if (auto window = std::dynamic_pointer_cast<Type>(*at)) return window;
    }
    return nullptr;
}

}  // namespace

void Window::RaiseActivate() {
    Raise(event::ExplorerActivate);
}

void Window::RaiseDeactivate() {
    Raise(event::ExplorerDeactivate);
}

void Window::RaiseClose() {
    Raise(event::ExplorerClose);
}

const MemberTable& Explorer::Table() const {
    static const MemberTable table =
        WindowMembers<Explorer>()
            .Property(u"CurrentFolder", [](Explorer& self) { return self.folder->Handle(); })
            .Property(u"Selection",
                      [](Explorer& self) {
                          auto selection = std::make_shared<Selection>(self.outlook);
                          selection->all = self.selection;
                          return selection->Handle();
                      })
            .Method(u"Close", {}, [](Explorer& self, const Arguments&) {
                self.outlook.CloseExplorer(Self(self));
                return Value();
            });
    return table;
}

const EventInterface* Explorer::Events() const {
    return &ExplorerEvents;
}

Text Explorer::Caption() const {
    return folder->name + u" - Microsoft Outlook";
}

std::shared_ptr<CommandBarControl> Explorer::ToolbarControl(TextView caption) const {
    return commandBars->Find(u"Standard")->Find(caption);
}

std::shared_ptr<CommandBar> Explorer::NewMenu() const {
    const auto& controls = commandBars->Find(u"Standard")->Controls()->all;
    const auto popup =
        controls.empty() ? nullptr : std::dynamic_pointer_cast<CommandBarPopup>(controls[0]);
    return popup ? popup->Menu() : nullptr;
}

std::shared_ptr<CommandBarControl> Explorer::NewMenuEntry(TextView caption) const {
    const auto menu = NewMenu();
    return menu ? menu->Find(caption) : nullptr;
}

const MemberTable& Inspector::Table() const {
    static const MemberTable table =
        WindowMembers<Inspector>()
            .Property(u"CurrentItem", [](Inspector& self) { return self.item->Handle(); })
            .Method(u"Close", {u"SaveMode"}, [](Inspector& self, const Arguments&) {
                self.outlook.CloseInspector(Self(self));
                return Value();
            });
    return table;
}

const EventInterface* Inspector::Events() const {
    return &InspectorEvents;
}

Text Inspector::Caption() const {
    return item->Title() + (item->itemClass == MailClass ? u" - Message" : u"");
}

template <>
TextView WindowCollection<Explorer>::ClassName() const {
    return u"Explorers";
}

template <>
TextView WindowCollection<Inspector>::ClassName() const {
    return u"Inspectors";
}

template <class Type>
const MemberTable& WindowCollection<Type>::Table() const {
    static const MemberTable table = CollectionMembers<WindowCollection<Type>>();
    return table;
}

template <>
const EventInterface* WindowCollection<Explorer>::Events() const {
    return &ExplorersEvents;
}

template <>
const EventInterface* WindowCollection<Inspector>::Events() const {
    return &InspectorsEvents;
}

const MemberTable& Selection::Table() const {
    static const MemberTable table = CollectionMembers<Selection>();
    return table;
}

const MemberTable& NameSpace::Table() const {
    static const MemberTable table =
        Members<NameSpace>()
            .Property(u"Application", [](NameSpace& self) { return self.outlook.Application(); })
            .Property(u"Type", [](NameSpace&) { return Text(u"MAPI"); })
            .Method(u"GetDefaultFolder", {u"FolderType"},
                    [](NameSpace& self, const Arguments& arguments) -> Value {
                        std::int32_t number = 0;
                        if (!Convert(arguments[0], number)) return self.Fail(error::TypeMismatch);
                        const auto& folder = self.outlook.DefaultFolder(number);
                        return folder->number == number ? folder->Handle()
                                                        : self.Fail(error::InvalidCall);
                    });
    return table;
}

const MemberTable& ComAddIn::Table() const {
    static const MemberTable table =
        Members<ComAddIn>()
            .Property(u"Application", [](ComAddIn& self) { return self.outlook.Application(); })
            .Property(u"ProgId", [](ComAddIn& self) { return self.progId; })
            .Property(u"Connect", [](ComAddIn& self) { return self.connected; })
            .Field(u"Description", &ComAddIn::description)
            .Field(u"Object", &ComAddIn::object);
    return table;
}

const MemberTable& ComAddIns::Table() const {
    static const MemberTable table =
        Members<ComAddIns>()
            .Property(u"Count", [](ComAddIns& self) { return std::int32_t(self.all.size()); })
            .Method(u"Item", {u"Index"}, [](ComAddIns& self, const Arguments& arguments) -> Value {
                const auto* name = std::get_if<Text>(&arguments[0]);
                if (!name) return ItemAt(self, self.all, arguments[0]);
                for (const auto& addIn : self.all) {
                    if (EqualFolded(addIn->progId, *name)) return addIn->Handle();
                }
                return self.Fail(error::SubscriptOutOfRange);
            });
    return table;
}

const MemberTable& ApplicationObject::Table() const {
    static const MemberTable table =
        Members<ApplicationObject>()
            .Property(u"Application",
                      [](ApplicationObject& self) { return self.outlook.Application(); })
            .Property(u"Name", [](ApplicationObject&) { return Text(u"Outlook"); })
            .Property(
                u"Version",
                [](ApplicationObject& self) { return Text(VersionText(self.outlook.version)); })
            .Property(u"Explorers",
                      [](ApplicationObject& self) { return self.outlook.explorers->Handle(); })
            .Property(u"Inspectors",
                      [](ApplicationObject& self) { return self.outlook.inspectors->Handle(); })
            .Property(u"COMAddIns",
                      [](ApplicationObject& self) { return self.outlook.comAddIns->Handle(); })
            .Property(u"Session", [](ApplicationObject& self) { return self.Session()->Handle(); })
            .Method(u"ActiveExplorer", {},
                    [](ApplicationObject& self, const Arguments&) {
                        return HandleOf(self.outlook.ActiveExplorer());
                    })
            .Method(u"ActiveInspector", {},
                    [](ApplicationObject& self, const Arguments&) {
                        return HandleOf(self.outlook.ActiveInspector());
                    })
            .Method(u"GetNamespace", {u"Type"},
                    [](ApplicationObject& self, const Arguments& arguments) -> Value {
                        return EqualFolded(AsText(arguments[0]), u"MAPI")
                                   ? self.Session()->Handle()
                                   : self.Fail(error::InvalidCall);
                    })
            .Method(u"CreateItem", {u"ItemType"},
                    [](ApplicationObject& self, const Arguments& arguments) -> Value {
                        static constexpr std::int32_t Classes[] = {MailClass, AppointmentClass,
                                                                   ContactClass};
                        std::int32_t type = 0;
                        if (!Convert(arguments[0], type)) return self.Fail(error::TypeMismatch);
                        if (type < 0 || type > 2) return self.Fail(error::InvalidCall);
                        return std::make_shared<Item>(self.outlook, Classes[type])->Handle();
                    })
            .Method(u"Quit", {}, [](ApplicationObject& self, const Arguments&) {
                if (self.outlook.quitRequested) {
                    self.outlook.quitRequested();
                } else {
                    self.outlook.Quit();
                }
                return Value();
            });
    return table;
}

const EventInterface* ApplicationObject::Events() const {
    return outlook.applicationHasEvents ? &ApplicationEvents : nullptr;
}

const std::shared_ptr<NameSpace>& ApplicationObject::Session() {
    if (!session) session = std::make_shared<NameSpace>(outlook);
    return session;
}

OutlookModel::OutlookModel(PendingError& errors, std::int32_t majorVersion)
    : errors(errors),
      version(majorVersion),
      explorers(std::make_shared<WindowCollection<Explorer>>(*this)),
      inspectors(std::make_shared<WindowCollection<Inspector>>(*this)),
      comAddIns(std::make_shared<ComAddIns>(*this)),
      folders{std::make_shared<Folder>(*this, u"Inbox", InboxFolder),
              std::make_shared<Folder>(*this, u"Calendar", CalendarFolder),
              std::make_shared<Folder>(*this, u"Contacts", ContactsFolder)},
      application(std::make_shared<ApplicationObject>(*this)) {}

OutlookModel::~OutlookModel() {
    changed = nullptr;
    const std::set<Reference*> held = references;
    for (Reference* reference : held) reference->Disconnect();
}

ObjectPtr OutlookModel::Application() {
    return application->Handle();
}

std::shared_ptr<ComAddIn> OutlookModel::AddAddIn(TextView progId, TextView description) {
    auto addIn = std::make_shared<ComAddIn>(*this);
    addIn->progId = progId;
    addIn->description = description;
    comAddIns->all.push_back(addIn);
    return addIn;
}

ObjectPtr OutlookModel::CreateSafeMailItem() {
    return std::make_shared<SafeMailItem>(*this)->Handle();
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
    for (const auto& open : inspectors->all) {
        if (open->item != item) continue;
        const std::shared_ptr<Inspector> found = open;
        Activate(found);
        return found;
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
    return TopOf<Explorer>(stack);
}

std::shared_ptr<Inspector> OutlookModel::ActiveInspector() const {
    return TopOf<Inspector>(stack);
}

OutlookModel::Answer OutlookModel::PrepareReply(const std::shared_ptr<Item>& item) {
    auto response = std::make_shared<Item>(*this, MailClass);
    Text sender = item->Field(u"SenderName");
    if (sender.empty()) sender = item->Field(u"SentOnBehalfOfName");
    const Text subject = item->Field(u"Subject");
    response->SetField(u"To", sender);
    response->SetField(u"Subject", u"RE: " + subject);
    response->SetField(u"Body", u"\r\n\r\n-----Original Message-----\r\nFrom: " + sender +
                                    u"\r\nSubject: " + subject + u"\r\n\r\n" +
                                    item->Field(u"Body"));
    Arguments arguments{response->Handle(), false};
    item->Raise(event::ItemReply, arguments);
    return {response, AsBoolean(arguments[1])};
}

bool OutlookModel::PressReply(const std::shared_ptr<Item>& item) {
    if (!item || item->itemClass != MailClass || item->deleted) return false;
    const Answer answer = PrepareReply(item);
    if (!answer.cancelled) OpenInspector(answer.response);
    return !answer.cancelled;
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
    if (shutDownAddIns) shutDownAddIns();
    application->Raise(event::ApplicationQuit);
}

std::shared_ptr<Item> OutlookModel::AddItem(std::int32_t itemClass, Fields fields) {
    auto item = std::make_shared<Item>(*this, itemClass);
    for (const auto& [name, value] : fields) item->SetField(name, value);
    const auto& folder = itemClass == AppointmentClass ? DefaultFolder(CalendarFolder)
                         : itemClass == MailClass      ? DefaultFolder(InboxFolder)
                                                       : DefaultFolder(ContactsFolder);
    item->folder = folder;
    folder->items->all.push_back(item);
    Changed();
    return item;
}

void OutlookModel::DeleteItem(const std::shared_ptr<Item>& item) {
    item->deleted = true;
    if (const auto folder = item->folder.lock()) std::erase(folder->items->all, item);
    const auto open = explorers->all;
    for (const auto& explorer : open) {
        if (std::erase(explorer->selection, item) != 0) {
            explorer->Raise(event::ExplorerSelectionChange);
        }
    }
    Changed();
}

const std::shared_ptr<Folder>& OutlookModel::DefaultFolder(std::int32_t number) const {
    const auto found = std::find_if(folders.begin(), folders.end(),
                                    [&](const auto& folder) { return folder->number == number; });
    return found == folders.end() ? folders[0] : *found;
}

void OutlookModel::FailMember(TextView className, TextView member, std::int32_t error) {
    failures[{LowerCase(className), LowerCase(member)}] = error;
}

std::int32_t OutlookModel::FailureOf(TextView className, TextView member) const {
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
