#include "outlook/Commands.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "outlook/AddInForms.h"
#include "outlook/CommandText.h"
#include "outlook/ControlDescriptions.h"
#include "outlook/ExplorerWindow.h"

namespace tellwick::standin {

namespace {

std::shared_ptr<CommandBar> BarOf(const Explorer& explorer, TextView name) {
    auto bar = explorer.commandBars->Find(name);
    Require(bar != nullptr, "no such bar");
    return bar;
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
        {u"select-conversation", {2, &Commands::SelectConversation}},
        {u"folder", {2, &Commands::SwitchFolder}},
        {u"reply", {1, &Commands::Reply}},
        {u"reply-selected", {1, &Commands::ReplySelected}},
        {u"reply-inspector", {1, &Commands::ReplyInspector}},
        {u"bars", {1, &Commands::Bars}},
        {u"many-contacts", {2, &Commands::ManyContacts}},
        {u"long-mail", {1, &Commands::LongMail}},
        {u"slow-store", {2, &Commands::SlowStore}},
        {u"array-contacts", {0, &Commands::ArrayContacts}},
        {u"until-file", {1, &Commands::UntilFile}},
        {u"type", {1, &Commands::TypeKeys}},
        {u"toolbar", {1, &Commands::Toolbar}},
        {u"menu", {1, &Commands::Menu}},
        {u"click", {2, &Commands::Click}},
        {u"ribbon", {1, &Commands::Ribbon}},
        {u"ribbon-inspector", {1, &Commands::InspectorRibbon}},
        {u"context-menu", {1, &Commands::ContextMenu}},
        {u"click-ribbon", {2, &Commands::ClickRibbon}},
        {u"click-ribbon-inspector", {2, &Commands::ClickInspectorRibbon}},
        {u"click-context", {2, &Commands::ClickContextMenu}},
        {u"ribbon-errors", {0, &Commands::RibbonErrors}},
        {u"time", {1, &Commands::Time}},
        {u"fill", {1, &Commands::Fill}},
        {u"push", {1, &Commands::Push}},
        {u"click-menu", {2, &Commands::ClickMenu}},
        {u"where", {2, &Commands::Where}},
        {u"where-item", {2, &Commands::WhereItem}},
        {u"load-addin", {0, &Commands::LoadAddIn}},
        {u"connect", {0, &Commands::Connect}},
        {u"disconnect", {0, &Commands::Disconnect}},
        {u"references", {0, &Commands::References}},
        {u"end-addins", {0, &Commands::EndAddIns}},
        {u"can-unload", {0, &Commands::CanUnload}},
        {u"unload", {0, &Commands::Unload}},
        {u"fail", {2, &Commands::Fail}},
        {u"starve", {2, &Commands::Starve}},
        {u"controls", {0, &Commands::Controls}},
        {u"shrink-forms", {0, &Commands::ShrinkForms}},
        {u"close-forms", {0, &Commands::CloseForms}},
        {u"resolution", {1, &Commands::Resolution}},
        {u"times", {0, &Commands::Times}},
        {u"memory", {0, &Commands::Memory}},
        {u"longest-tick", {0, &Commands::LongestTick}},
        {u"pump", {0, &Commands::Pump}},
        {u"wait", {1, &Commands::Wait}},
        {u"start", {0, &Commands::Start}},
        {u"quit", {0, &Commands::Quit}},
        {u"shutdown", {0, &Commands::Quit}},
        {u"help", {0, &Commands::Help}}};
    return table;
}

Commands::Commands(OutlookModel& outlook, ComObjects& objects, AddInLoader& loader, Desk& desk,
                   Dispatcher& dispatcher, Session& session)
    : outlook(outlook),
      objects(objects),
      loader(loader),
      desk(desk),
      dispatcher(dispatcher),
      session(session) {}

void Commands::Run(std::string_view line) {
    const std::vector<Text> words = SplitWords(FromUtf8(line));
    if (words.empty() || StartsWith(words[0], u"#")) return;
    try {
        Number();
        const Text result = Perform(words);
        PrintLine(result.empty() ? Text(u"ok") : u"ok " + result);
    } catch (const std::exception& failure) {
        PrintLine(u"error " + FromUtf8(failure.what()));
    }
}

Text Commands::Perform(const Words& words) {
    const auto found = Table().find(words[0]);
    Require(found != Table().end(), "no such command");
    Require(words.size() > found->second.leastWords, "too few words");
    return (this->*found->second.action)({words.begin() + 1, words.end()});
}

// Gives every window and item that has none yet its number.
void Commands::Number() {
    explorers.Add(outlook.explorers->all);
    inspectors.Add(outlook.inspectors->all);
    for (const auto& folder : outlook.folders) items.Add(folder->items->all);
}

std::shared_ptr<Explorer> Commands::ExplorerAt(const Words& words, std::size_t index) {
    const auto explorer = explorers.At(LeadingNumber(words[index]));
    Require(explorer && !explorer->closed, "no such explorer");
    return explorer;
}

std::shared_ptr<Inspector> Commands::InspectorAt(const Words& words) {
    const auto inspector = inspectors.At(LeadingNumber(words[0]));
    Require(inspector && !inspector->closed, "no such inspector");
    return inspector;
}

std::shared_ptr<Item> Commands::ItemAt(const Text& word) {
    const auto item = items.At(LeadingNumber(word));
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

Text Commands::Bars(const Words& words) {
    std::vector<Text> entries;
    for (const auto& bar : ExplorerAt(words)->commandBars->all) {
        entries.push_back(Quoted(bar->name));
    }
    return Joined(entries);
}

Text Commands::Toolbar(const Words& words) {
    return DescribeAll(*BarOf(*ExplorerAt(words), words.size() > 1 ? words[1] : u"Standard"));
}

Text Commands::Menu(const Words& words) {
    const auto menu = ExplorerAt(words)->NewMenu();
    Require(menu != nullptr, "there is no drop-down");
    return DescribeAll(*menu);
}

Text Commands::Click(const Words& words) {
    const auto bar = BarOf(*ExplorerAt(words), words.size() > 2 ? words[2] : u"Standard");
    Require(outlook.ClickButton(bar->Find(words[1])), "no such button");
    return {};
}

Text Commands::Fill(const Words& words) {
    Require(FillFields(words), "no such fields");
    return {};
}

Text Commands::Push(const Words& words) {
    Require(PushButton(words[0]), "no such button");
    return {};
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

Text Commands::EndAddIns(const Words&) {
    loader.ShutDown();
    return {};
}

Text Commands::CanUnload(const Words&) {
    return loader.CanUnloadLibraries() ? u"yes" : u"no";
}

Text Commands::Unload(const Words&) {
    return loader.UnloadLibraries() ? u"unloaded" : u"loaded";
}

Text Commands::Fail(const Words& words) {
    const std::size_t dot = words[0].find(u'.');
    Require(dot != Text::npos, "it is CLASS.MEMBER NUMBER");
    outlook.FailMember(words[0].substr(0, dot), words[0].substr(dot + 1),
                       std::int32_t(std::wcstoul(Wide(words[1]), nullptr, 0)));
    return {};
}

Text Commands::CloseForms(const Words&) {
    for (const HWND window : AddInWindows()) SendMessageW(window, WM_CLOSE, 0, 0);
    return {};
}

Text Commands::ShrinkForms(const Words&) {
    for (const HWND window : AddInWindows()) {
        if (!(GetWindowLongW(window, GWL_STYLE) & WS_THICKFRAME)) continue;
        SetWindowPos(window, nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
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

Text Commands::Pump(const Words&) {
    const Held held(dispatcher);
    desk.Synchronise();
    desk.RunMessages(0);
    return {};
}

Text Commands::Wait(const Words& words) {
    const Held held(dispatcher);
    desk.Synchronise();
    desk.RunMessages(DWORD(std::clamp<std::int64_t>(LeadingNumber(words[0]), 0, 600000)));
    return {};
}

Text Commands::Start(const Words& words) {
    Require(!session.Running(), "Outlook runs already");
    const auto has = [&](TextView word) {
        return std::find(words.begin(), words.end(), word) != words.end();
    };
    explorers.Clear();
    inspectors.Clear();
    session.Start(!has(u"no-window"), has(u"late"));
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

}  // namespace tellwick::standin
