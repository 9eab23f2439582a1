// The commands of windows and items.
#include <algorithm>
#include <cmath>

#include "model/ManyContacts.h"
#include "outlook/CommandText.h"
#include "outlook/Commands.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

bool AssignToAppointment(Item& item, TextView name, const Text& value) {
    constexpr double Ten = 10.0 / 24;
    if (item.itemClass != AppointmentClass) return false;
    if (EqualFolded(name, u"Days")) {
        item.appointment->start = std::floor(item.outlook.now) + LeadingNumber32(value) + Ten;
        return true;
    }
    if (!EqualFolded(name, u"Attendee")) return false;
    item.appointment->attendees.push_back({value, Required, {}});
    return true;
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
    if (AssignToAppointment(item, name, value)) return;
    if (isField) {
        item.SetField(name, value);
    } else if (value == u"true" || value == u"false") {
        item.SetUserProperty(name, value == u"true");
    } else {
        item.SetUserProperty(name, value);
    }
}

Text HandleText(HWND window) {
    return NumberText(std::int64_t(reinterpret_cast<INT_PTR>(window)));
}

template <class Type>
Text NumberOf(const Numbers<Type>& numbers, const std::shared_ptr<Type>& object) {
    const std::int64_t number = numbers.Of(object);
    Require(number != 0, "it did not open");
    return NumberText(number);
}

template <class Type>
Text Titles(const Numbers<Type>& numbers) {
    std::vector<Text> entries;
    numbers.ForEach([&](std::int64_t number, const Type& window) {
        if (!window.closed) entries.push_back(NumberText(number) + u" " + Quoted(window.Caption()));
    });
    return Joined(entries);
}

}  // namespace

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
    items.ForEach([&](std::int64_t number, const Item& item) {
        if (item.deleted) return;
        entries.push_back(NumberText(number) + u" " + Text(KindOf(item)) + u" " +
                          Quoted(item.Title()));
    });
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
    outlook.SaveItem(item);
    outlook.Changed();
    return {};
}

Text Commands::ManyContacts(const Words& words) {
    AddManyContacts(outlook, LeadingNumber32(words[0]), LeadingNumber32(words[1]));
    return {};
}

Text Commands::LongMail(const Words& words) {
    constexpr TextView Line = u"the minutes are in the folder of the team\r\n";
    Text body;
    while (std::int32_t(body.size() / 1024) < LeadingNumber32(words[0])) body += Line;
    const auto mail = outlook.AddItem(MailClass, {{u"SenderName", u"Jo"}, {u"Body", body}});
    Number();
    return NumberOf(items, mail);
}

Text Commands::SlowStore(const Words& words) {
    const auto found =
        std::ranges::find(outlook.stores, words[0], [](const auto& root) { return root->name; });
    Require(found != outlook.stores.end(), "no such store");
    (*found)->store->milliseconds = double(LeadingNumber(words[1]));
    if (words.size() > 2 && words[2] == u"pump")
        outlook.pass = [this](double milliseconds) { desk.RunMessages(DWORD(milliseconds)); };
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

Text Commands::SelectConversation(const Words& words) {
    std::vector<std::shared_ptr<Item>> mails;
    for (std::size_t index = 1; index < words.size(); ++index)
        mails.push_back(ItemAt(words[index]));
    outlook.SelectConversation(ExplorerAt(words), std::move(mails));
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
    if (!explorer->conversations.empty()) {
        const auto& mails = explorer->conversations[0]->mails;
        return ReplyTo(*std::ranges::max_element(mails, {}, &Item::created));
    }
    Require(explorer->selection.size() == 1, "not one item is selected");
    return ReplyTo(explorer->selection[0]);
}

Text Commands::ReplyInspector(const Words& words) {
    const auto inspector = InspectorAt(words);
    if (outlook.FrontWindow() != inspector) outlook.Activate(inspector);
    return ReplyTo(inspector->item);
}

}  // namespace tellwick::standin
