#include "outlook/Commands.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "outlook/AddInForms.h"
#include "outlook/ExplorerWindow.h"
#include "outlook/Face.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

Text FromUtf8(std::string_view bytes) {
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), int(bytes.size()), nullptr, 0);
    Text text(std::size_t(length), u'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), int(bytes.size()),
                        reinterpret_cast<wchar_t*>(text.data()), length);
    return text;
}

std::string ToUtf8(TextView text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide, int(text.size()), nullptr, 0, nullptr, nullptr);
    std::string bytes(std::size_t(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, int(text.size()), bytes.data(), length, nullptr, nullptr);
    return bytes;
}

std::vector<Text> SplitWords(TextView line) {
    std::vector<Text> words;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t index = 0; index < line.size(); ++index) {
        char16_t unit = line[index];
        if (!quoted && (unit == u' ' || unit == Tab)) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (unit == u'"') {
            quoted = !quoted;
            continue;
        }
        if (quoted && unit == u'\\' && index + 1 < line.size()) {
            unit = line[++index];
            if (unit == u'n') unit = LineFeed;
            if (unit == u'r') unit = CarriageReturn;
            if (unit == u't') unit = Tab;
        }
        words.back() += unit;
    }
    return words;
}

Text Quoted(TextView text) {
    Text quoted = ReplaceAll(ReplaceAll(text, u"\\", u"\\\\"), u"\"", u"\\\"");
    quoted = ReplaceAll(ReplaceAll(quoted, u"\r", u"\\r"), u"\n", u"\\n");
    return u"\"" + ReplaceAll(quoted, u"\t", u"\\t") + u"\"";
}

Text Joined(const std::vector<Text>& entries) {
    Text joined;
    for (const Text& entry : entries) joined += (joined.empty() ? u"" : u" | ") + entry;
    return joined;
}

Text RealText(double number) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", number);
    return FromUtf8(buffer);
}

TextView KindOf(const Item& item) {
    switch (item.itemClass) {
        case ContactClass:
            return u"contact";
        case AppointmentClass:
            return u"appointment";
        case DistributionListClass:
            return u"list";
        default:
            return u"mail";
    }
}

// Size and number of colours of the picture a control shows, "none" without one.
Text FaceText(const CommandBarControl& control) {
    const Face face = FaceOf(control);
    if (face.IsEmpty()) return u"none";
    std::vector<std::uint32_t> colours = face.pixels;
    std::sort(colours.begin(), colours.end());
    const auto end = std::unique(colours.begin(), colours.end());
    const bool transparent = std::find(colours.begin(), end, Transparent) != end;
    return NumberText(face.width) + u"x" + NumberText(face.height) + u"/" +
           NumberText(end - colours.begin()) + (transparent ? u"/transparent" : u"");
}

Text Describe(const CommandBarControl& control, std::size_t index) {
    Text text = NumberText(std::int64_t(index + 1)) + u" " +
                Quoted(ReplaceAll(control.caption, u"&", u"")) + u" tag=" + Quoted(control.tag) +
                u" action=" + Quoted(control.onAction) + u" parameter=" + Quoted(control.parameter);
    const auto flag = [&](TextView name, std::int32_t value) {
        text += u" " + Text(name) + u"=" + NumberText(value);
    };
    if (const auto* button = dynamic_cast<const CommandBarButton*>(&control)) {
        flag(u"style", button->style);
    }
    flag(u"group", control.beginGroup);
    flag(u"visible", control.visible);
    flag(u"temporary", control.temporary);
    flag(u"builtin", control.BuiltIn());
    return text + u" face=" + FaceText(control);
}

Text DescribeAll(CommandBar& bar) {
    std::vector<Text> entries;
    const auto& all = bar.Controls()->all;
    for (std::size_t index = 0; index < all.size(); ++index) {
        entries.push_back(Describe(*all[index], index));
    }
    return Joined(entries);
}

void Require(bool condition, const char* message) {
    if (!condition) throw std::runtime_error(message);
}

std::shared_ptr<CommandBar> BarOf(const Explorer& explorer, TextView name) {
    auto bar = explorer.commandBars->Find(name);
    Require(bar != nullptr, "no such bar");
    return bar;
}

// NAME=VALUE: a field of the item, or else a user property of it.
void Assign(Item& item, const Text& word) {
    const std::size_t equals = word.find(u'=');
    Require(equals != Text::npos && equals > 0, "a field is NAME=VALUE");
    const Text name = word.substr(0, equals);
    const Text value = word.substr(equals + 1);
    const auto& names = FieldNames(item.itemClass);
    const bool isField = std::any_of(names.begin(), names.end(),
                                     [&](TextView field) { return EqualFolded(field, name); });
    if (isField) {
        item.SetField(name, value);
    } else if (value == u"true" || value == u"false") {
        item.SetUserProperty(name, value == u"true");
    } else {
        item.SetUserProperty(name, value);
    }
}

Text ScreenRectangle(const RECT& rectangle) {
    return NumberText(rectangle.left) + u" " + NumberText(rectangle.top) + u" " +
           NumberText(rectangle.right) + u" " + NumberText(rectangle.bottom);
}

Text HandleText(HWND window) {
    return NumberText(std::int64_t(reinterpret_cast<INT_PTR>(window)));
}

// Runs the message loop until the time has come or, without one, until the queue is empty.
void RunMessages(const Desk& desk, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                PostQuitMessage(int(message.wParam));
                return;
            }
            if (desk.Translate(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        const DWORD passed = GetTickCount() - start;
        if (passed >= milliseconds) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
    }
}

template <class Type>
void AddUnknown(std::vector<std::weak_ptr<Type>>& numbered,
                const std::vector<std::shared_ptr<Type>>& all) {
    for (const auto& object : all) {
        const bool known = std::any_of(numbered.begin(), numbered.end(),
                                       [&](const auto& weak) { return weak.lock() == object; });
        if (!known) numbered.push_back(object);
    }
}

template <class Type>
Text NumberOf(const std::vector<std::weak_ptr<Type>>& numbered,
              const std::shared_ptr<Type>& object) {
    for (std::size_t index = 0; index < numbered.size(); ++index) {
        if (object && numbered[index].lock() == object) {
            return NumberText(std::int64_t(index + 1));
        }
    }
    throw std::runtime_error("it did not open");
}

template <class Type>
std::shared_ptr<Type> AtNumber(const std::vector<std::weak_ptr<Type>>& numbered, const Text& word) {
    const std::int64_t number = LeadingNumber(word);
    if (number < 1 || std::size_t(number) > numbered.size()) return nullptr;
    return numbered[std::size_t(number) - 1].lock();
}

template <class Type>
Text Titles(const std::vector<std::weak_ptr<Type>>& numbered) {
    std::vector<Text> entries;
    for (std::size_t index = 0; index < numbered.size(); ++index) {
        const auto window = numbered[index].lock();
        if (!window || window->closed) continue;
        entries.push_back(NumberText(std::int64_t(index + 1)) + u" " + Quoted(window->Caption()));
    }
    return Joined(entries);
}

}  // namespace

struct Commands::Command {
    std::size_t leastWords;  // behind the command
    Action action;
};

const std::map<Text, Commands::Command>& Commands::Table() {
    static const std::map<Text, Command> table{
        {u"open-explorer", {0, &Commands::OpenExplorer}},
        {u"close-explorer", {1, &Commands::CloseExplorer}},
        {u"activate", {1, &Commands::Activate}},
        {u"explorers", {0, &Commands::Explorers}},
        {u"inspectors", {0, &Commands::Inspectors}},
        {u"open-inspector", {1, &Commands::OpenInspector}},
        {u"close-inspector", {1, &Commands::CloseInspector}},
        {u"activate-inspector", {1, &Commands::ActivateInspector}},
        {u"window", {1, &Commands::ExplorerHandle}},
        {u"inspector-window", {1, &Commands::InspectorHandle}},
        {u"items", {0, &Commands::ListItems}},
        {u"add-mail", {0, &Commands::AddMail}},
        {u"add-contact", {0, &Commands::AddContact}},
        {u"add-appointment", {0, &Commands::AddAppointment}},
        {u"add-list", {0, &Commands::AddList}},
        {u"set", {2, &Commands::SetItem}},
        {u"select", {1, &Commands::Select}},
        {u"folder", {2, &Commands::SwitchFolder}},
        {u"reply", {1, &Commands::Reply}},
        {u"reply-selected", {1, &Commands::ReplySelected}},
        {u"reply-inspector", {1, &Commands::ReplyInspector}},
        {u"bars", {1, &Commands::Bars}},
        {u"add-bar", {2, &Commands::AddBar}},
        {u"toolbar", {1, &Commands::Toolbar}},
        {u"menu", {1, &Commands::Menu}},
        {u"add-control", {5, &Commands::AddControl}},
        {u"click", {2, &Commands::Click}},
        {u"click-time", {2, &Commands::ClickTime}},
        {u"click-menu", {2, &Commands::ClickMenu}},
        {u"where", {2, &Commands::Where}},
        {u"where-item", {2, &Commands::WhereItem}},
        {u"load-addin", {0, &Commands::LoadAddIn}},
        {u"connect", {0, &Commands::Connect}},
        {u"disconnect", {0, &Commands::Disconnect}},
        {u"references", {0, &Commands::References}},
        {u"unload", {0, &Commands::Unload}},
        {u"fail", {2, &Commands::Fail}},
        {u"controls", {0, &Commands::Controls}},
        {u"shrink-forms", {0, &Commands::ShrinkForms}},
        {u"close-forms", {0, &Commands::CloseForms}},
        {u"resolution", {1, &Commands::Resolution}},
        {u"times", {0, &Commands::Times}},
        {u"memory", {0, &Commands::Memory}},
        {u"pump", {0, &Commands::Pump}},
        {u"wait", {1, &Commands::Wait}},
        {u"quit", {0, &Commands::Quit}},
        {u"shutdown", {0, &Commands::Quit}},
        {u"help", {0, &Commands::Help}}};
    return table;
}

Commands::Commands(OutlookModel& outlook, ComObjects& objects, AddInLoader& loader, Desk& desk,
                   Dispatcher& dispatcher)
    : outlook(outlook), objects(objects), loader(loader), desk(desk), dispatcher(dispatcher) {}

void PrintLine(TextView line) {
    const std::string bytes = ToUtf8(line) + "\n";
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fflush(stdout);
}

void Commands::Run(std::string_view line) {
    std::vector<Text> words = SplitWords(FromUtf8(line));
    if (words.empty() || StartsWith(words[0], u"#")) return;
    const auto found = Table().find(words[0]);
    words.erase(words.begin());
    if (found == Table().end() || words.size() < found->second.leastWords) {
        PrintLine(found == Table().end() ? u"error no such command" : u"error too few words");
        return;
    }
    try {
        Number();
        const Text result = (this->*found->second.action)(words);
        PrintLine(result.empty() ? Text(u"ok") : u"ok " + result);
    } catch (const std::exception& failure) {
        PrintLine(u"error " + FromUtf8(failure.what()));
    }
}

// Gives every window and item that has none yet its number.
void Commands::Number() {
    AddUnknown(explorers, outlook.explorers->all);
    AddUnknown(inspectors, outlook.inspectors->all);
    for (const auto& folder : outlook.folders) AddUnknown(items, folder->items->all);
}

std::shared_ptr<Explorer> Commands::ExplorerAt(const Words& words, std::size_t index) {
    const auto explorer = AtNumber(explorers, words[index]);
    Require(explorer && !explorer->closed, "no such explorer");
    return explorer;
}

std::shared_ptr<Inspector> Commands::InspectorAt(const Words& words) {
    const auto inspector = AtNumber(inspectors, words[0]);
    Require(inspector && !inspector->closed, "no such inspector");
    return inspector;
}

std::shared_ptr<Item> Commands::ItemAt(const Text& word) {
    const auto item = AtNumber(items, word);
    Require(item && !item->deleted, "no such item");
    return item;
}

std::shared_ptr<ComAddIn> Commands::AddInAt(const Words& words) const {
    const auto& all = outlook.comAddIns->all;
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& addIn) {
        return words.empty() || EqualFolded(addIn->progId, words[0]);
    });
    Require(found != all.end(), "no such add-in");
    return *found;
}

Frame& Commands::FrameOf(const std::shared_ptr<Window>& window) {
    desk.Synchronise();
    Frame* frame = desk.FrameOf(window);
    Require(frame != nullptr, "that window is not displayed");
    return *frame;
}

Text Commands::OpenExplorer(const Words&) {
    const auto explorer = outlook.OpenExplorer();
    desk.Synchronise();
    Number();
    return NumberOf(explorers, explorer);
}

Text Commands::CloseExplorer(const Words& words) {
    outlook.CloseExplorer(ExplorerAt(words));
    return {};
}

Text Commands::Activate(const Words& words) {
    outlook.Activate(ExplorerAt(words));
    return {};
}

Text Commands::Explorers(const Words&) {
    return Titles(explorers);
}

Text Commands::Inspectors(const Words&) {
    return Titles(inspectors);
}

Text Commands::OpenInspector(const Words& words) {
    const auto inspector = outlook.OpenInspector(ItemAt(words[0]));
    desk.Synchronise();
    Number();
    return NumberOf(inspectors, inspector);
}

Text Commands::CloseInspector(const Words& words) {
    outlook.CloseInspector(InspectorAt(words));
    return {};
}

Text Commands::ActivateInspector(const Words& words) {
    outlook.Activate(InspectorAt(words));
    return {};
}

Text Commands::ExplorerHandle(const Words& words) {
    return HandleText(FrameOf(ExplorerAt(words)).Handle());
}

Text Commands::InspectorHandle(const Words& words) {
    return HandleText(FrameOf(InspectorAt(words)).Handle());
}

Text Commands::ListItems(const Words&) {
    std::vector<Text> entries;
    for (std::size_t index = 0; index < items.size(); ++index) {
        const auto item = items[index].lock();
        if (!item || item->deleted) continue;
        entries.push_back(NumberText(std::int64_t(index + 1)) + u" " + Text(KindOf(*item)) + u" " +
                          Quoted(item->Title()));
    }
    return Joined(entries);
}

Text Commands::AddItem(std::int32_t itemClass, const Words& words) {
    const auto item = outlook.AddItem(itemClass);
    for (const Text& word : words) Assign(*item, word);
    Number();
    return NumberOf(items, item);
}

Text Commands::SetItem(const Words& words) {
    const auto item = ItemAt(words[0]);
    for (std::size_t index = 1; index < words.size(); ++index) Assign(*item, words[index]);
    outlook.Changed();
    return {};
}

Text Commands::AddMail(const Words& words) {
    return AddItem(MailClass, words);
}

Text Commands::AddContact(const Words& words) {
    return AddItem(ContactClass, words);
}

Text Commands::AddAppointment(const Words& words) {
    return AddItem(AppointmentClass, words);
}

Text Commands::AddList(const Words& words) {
    return AddItem(DistributionListClass, words);
}

Text Commands::Select(const Words& words) {
    const auto explorer = ExplorerAt(words);
    std::vector<std::shared_ptr<Item>> selection;
    for (std::size_t index = 1; index < words.size(); ++index) {
        selection.push_back(ItemAt(words[index]));
    }
    const auto folder = selection.empty() ? nullptr : selection[0]->folder.lock();
    if (folder && folder != explorer->folder) outlook.SwitchFolder(explorer, folder);
    outlook.Select(explorer, std::move(selection));
    return {};
}

Text Commands::SwitchFolder(const Words& words) {
    const auto& folders = outlook.folders;
    const auto found = std::find_if(folders.begin(), folders.end(), [&](const auto& folder) {
        return EqualFolded(folder->name, words[1]);
    });
    Require(found != folders.end(), "no such folder");
    outlook.SwitchFolder(ExplorerAt(words), *found);
    return {};
}

Text Commands::ReplyTo(const std::shared_ptr<Item>& item) {
    Require(item->itemClass == MailClass && !item->deleted, "only mails have a reply");
    return outlook.PressReply(item) ? u"opened" : u"cancelled";
}

Text Commands::Reply(const Words& words) {
    return ReplyTo(ItemAt(words[0]));
}

Text Commands::ReplySelected(const Words& words) {
    const auto explorer = ExplorerAt(words);
    if (outlook.FrontWindow() != explorer) outlook.Activate(explorer);
    Require(explorer->selection.size() == 1, "not one item is selected");
    return ReplyTo(explorer->selection[0]);
}

Text Commands::ReplyInspector(const Words& words) {
    const auto inspector = InspectorAt(words);
    if (outlook.FrontWindow() != inspector) outlook.Activate(inspector);
    return ReplyTo(inspector->item);
}

Text Commands::Bars(const Words& words) {
    std::vector<Text> entries;
    for (const auto& bar : ExplorerAt(words)->commandBars->all) {
        entries.push_back(Quoted(bar->name));
    }
    return Joined(entries);
}

Text Commands::AddBar(const Words& words) {
    const auto& bars = ExplorerAt(words)->commandBars;
    Require(!bars->Find(words[1]), "there is such a bar");
    bars->AddBar(words[1])->builtIn = false;
    return {};
}

Text Commands::Toolbar(const Words& words) {
    return DescribeAll(*BarOf(*ExplorerAt(words), words.size() > 1 ? words[1] : u"Standard"));
}

Text Commands::Menu(const Words& words) {
    const auto menu = ExplorerAt(words)->NewMenu();
    Require(menu != nullptr, "there is no drop-down");
    return DescribeAll(*menu);
}

Text Commands::AddControl(const Words& words) {
    const auto button = BarOf(*ExplorerAt(words), words[1])->AddButton(words[2]);
    button->tag = words[3];
    button->onAction = words[4];
    return {};
}

Text Commands::Click(const Words& words) {
    const auto bar = BarOf(*ExplorerAt(words), words.size() > 2 ? words[2] : u"Standard");
    Require(outlook.ClickButton(bar->Find(words[1])), "no such button");
    return {};
}

Text Commands::ClickTime(const Words& words) {
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    dispatcher.Hold();
    QueryPerformanceCounter(&start);
    Click(words);
    RunMessages(desk, 0);
    QueryPerformanceCounter(&end);
    dispatcher.Release();
    wchar_t title[256] = L"";
    GetWindowTextW(GetActiveWindow(), title, 256);
    return RealText(double(end.QuadPart - start.QuadPart) * 1000.0 / double(frequency.QuadPart)) +
           u" " + FromWide(title);
}

Text Commands::ClickMenu(const Words& words) {
    Require(outlook.ClickButton(ExplorerAt(words)->NewMenuEntry(words[1])), "no such entry");
    return {};
}

Text Commands::Where(const Words& words) {
    RECT rectangle{};
    Require(FrameOf(ExplorerAt(words)).Bars().Find(words[1], rectangle), "no such button");
    return ScreenRectangle(rectangle);
}

Text Commands::WhereItem(const Words& words) {
    const auto* window = dynamic_cast<ExplorerWindow*>(&FrameOf(ExplorerAt(words)));
    RECT rectangle{};
    Require(window && window->FindItem(ItemAt(words[1]), rectangle), "the item is not in the list");
    return ScreenRectangle(rectangle);
}

Text Commands::LoadAddIn(const Words&) {
    return NumberText(std::int64_t(loader.LoadAll(AddInLoader::AfterStartup)));
}

Text Commands::Connect(const Words& words) {
    Require(loader.Connect(AddInAt(words), AddInLoader::AfterStartup), "it did not connect");
    return {};
}

Text Commands::Disconnect(const Words& words) {
    Require(loader.Disconnect(AddInAt(words), AddInLoader::UserClosed), "it is not connected");
    return {};
}

Text Commands::References(const Words&) {
    std::vector<Text> entries;
    for (const ComObjects::Living& living : objects.Alive()) {
        entries.push_back(living.className + u" " + NumberText(std::int64_t(living.references)) +
                          u" " + NumberText(std::int64_t(living.advised)));
    }
    return Joined(entries);
}

Text Commands::Unload(const Words&) {
    return loader.UnloadLibraries() ? u"unloaded" : u"loaded";
}

Text Commands::Fail(const Words& words) {
    const std::size_t dot = words[0].find(u'.');
    Require(dot != Text::npos, "it is CLASS.MEMBER NUMBER");
    const std::string number = ToUtf8(words[1]);
    outlook.FailMember(words[0].substr(0, dot), words[0].substr(dot + 1),
                       std::int32_t(std::strtoul(number.c_str(), nullptr, 0)));
    return {};
}

Text Commands::CloseForms(const Words&) {
    for (const HWND window : AddInWindows()) SendMessageW(window, WM_CLOSE, 0, 0);
    return {};
}

Text Commands::ShrinkForms(const Words&) {
    for (const HWND window : AddInWindows()) {
        if (!(GetWindowLongW(window, GWL_STYLE) & WS_THICKFRAME)) continue;
        SetWindowPos(window, nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
    }
    return {};
}

Text Commands::Controls(const Words&) {
    const std::vector<HWND> windows = AddInWindows();
    const auto active = std::find(windows.begin(), windows.end(), GetActiveWindow());
    Require(active != windows.end(), "no window of an add-in is active");
    std::vector<Text> all;
    for (const Text& control : DescribeControls(*active)) all.push_back(Quoted(control));
    return Joined(all);
}

Text Commands::Resolution(const Words& words) {
    for (const HWND window : AddInWindows()) ChangeResolution(window, LeadingNumber32(words[0]));
    return {};
}

Text Commands::Times(const Words&) {
    return u"OnConnection " + RealText(loader.connectionTime) + u" shutdown " +
           RealText(loader.shutdownTime);
}

Text Commands::Memory(const Words&) {
    return u"before " + NumberText(std::int64_t(loader.bytesBeforeConnection)) + u" after " +
           NumberText(std::int64_t(loader.bytesAfterConnection)) + u" now " +
           NumberText(std::int64_t(PrivateBytes()));
}

Text Commands::Pump(const Words&) {
    dispatcher.Hold();
    desk.Synchronise();
    RunMessages(desk, 0);
    dispatcher.Release();
    return {};
}

Text Commands::Wait(const Words& words) {
    dispatcher.Hold();
    desk.Synchronise();
    RunMessages(desk, DWORD(std::clamp<std::int64_t>(LeadingNumber(words[0]), 0, 600000)));
    dispatcher.Release();
    return {};
}

Text Commands::Quit(const Words&) {
    outlook.quitRequested();
    return {};
}

Text Commands::Help(const Words&) {
    std::vector<Text> names;
    for (const auto& [name, command] : Table()) names.push_back(name);
    return Joined(names);
}

namespace {

struct Reader {
    HANDLE source;
    Dispatcher& dispatcher;
    Commands& commands;
    std::function<void()> atEnd;
};

DWORD WINAPI ReadLines(void* parameter) {
    const std::unique_ptr<Reader> reader(static_cast<Reader*>(parameter));
    std::string line;
    char unit = 0;
    DWORD count = 0;
    const auto post = [&] {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        Commands& commands = reader->commands;
        reader->dispatcher.Post([&commands, text = line] { commands.Run(text); });
        line.clear();
    };
    while (ReadFile(reader->source, &unit, 1, &count, nullptr) && count == 1) {
        if (unit == '\n') {
            post();
        } else {
            line += unit;
        }
    }
    if (!line.empty()) post();
    reader->dispatcher.Post(reader->atEnd);
    return 0;
}

}  // namespace

void ReadCommands(HANDLE source, Dispatcher& dispatcher, Commands& commands,
                  std::function<void()> atEnd) {
    auto reader = std::make_unique<Reader>(Reader{source, dispatcher, commands, std::move(atEnd)});
    const HANDLE thread = CreateThread(nullptr, 0, ReadLines, reader.get(), 0, nullptr);
    if (!thread) return;
    reader.release();
    CloseHandle(thread);
}

}  // namespace tellwick::standin
