// What happens to items: they come, are saved, moved, answered and deleted.
#include <algorithm>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

using namespace tellwick::outlook;

namespace {

TextView MessageClassOf(std::int32_t itemClass) {
    switch (itemClass) {
        case ContactClass:
            return u"IPM.Contact";
        case DistributionListClass:
            return u"IPM.DistList";
        case AppointmentClass:
            return u"IPM.Appointment";
        case PostClass:
            return u"IPM.Post";
        default:
            return u"IPM.Note";
    }
}

}  // namespace

// Long enough not to fit anywhere by chance.
Text OutlookModel::NewEntryId() {
    return u"000000005E4C1F3A9B27D84A8C61F0A2B3D4E5F60700" + HexText(0x1000000 + ++lastEntry);
}

std::shared_ptr<Item> OutlookModel::AddItem(std::int32_t itemClass, Fields fields) {
    auto item = std::make_shared<Item>(*this, itemClass);
    for (const auto& [name, value] : fields) item->SetField(name, value);
    item->sent = itemClass == MailClass;
    SaveItem(item);
    return item;
}

const std::shared_ptr<Folder>& OutlookModel::FolderFor(const Item& item) const {
    switch (item.itemClass) {
        case AppointmentClass:
            return DefaultFolder(CalendarFolder);
        case MailClass:
            return item.sent ? DefaultFolder(InboxFolder) : drafts;
        case PostClass:
            return DefaultFolder(InboxFolder);
        default:
            return DefaultFolder(ContactsFolder);
    }
}

void OutlookModel::SaveItem(const std::shared_ptr<Item>& item) {
    constexpr double Second = 1.0 / 86400;
    item->modified = now += Second;
    if (item->created == 0) item->created = now;
    if (!item->folder.expired()) {
        Changed();
        return;
    }
    if (item->Field(u"EntryID").empty()) item->SetField(u"EntryID", NewEntryId());
    if (item->Field(u"MessageClass").empty())
        item->SetField(u"MessageClass", MessageClassOf(item->itemClass));
    const auto madeIn = item->madeIn.lock();
    const auto& folder = madeIn ? madeIn : FolderFor(*item);
    item->folder = folder;
    folder->items->all.push_back(item);
    Changed();
}

std::shared_ptr<Item> OutlookModel::FindItem(TextView entryId) const {
    std::vector<std::shared_ptr<Folder>> waiting = Roots();
    while (!waiting.empty()) {
        const std::shared_ptr<Folder> folder = waiting.back();
        waiting.pop_back();
        for (const auto& item : folder->items->all) {
            if (item->Field(u"EntryID") == entryId) return item;
        }
        waiting.insert(waiting.end(), folder->folders->all.begin(), folder->folders->all.end());
    }
    return nullptr;
}

std::shared_ptr<Item> Items::Add(const Value& type) const {
    static const std::pair<TextView, std::int32_t> messageClasses[] = {
        {u"IPM.Note", MailItem},
        {u"IPM.Post", PostItem},
        {u"IPM.Contact", ContactItem},
        {u"IPM.Appointment", AppointmentItem}};
    const auto within = folder.lock();
    std::int32_t number = within ? within->itemType : MailItem;
    if (const auto* name = std::get_if<Text>(&type)) {
        const auto found = std::ranges::find_if(
            messageClasses, [&](const auto& one) { return EqualFolded(one.first, *name); });
        number = found == std::end(messageClasses) ? -1 : found->second;
    } else if (!std::holds_alternative<Nothing>(type) && !Convert(type, number)) {
        number = -1;
    }
    const auto itemClass = ClassOfType(number);
    if (!itemClass) return nullptr;
    auto item = std::make_shared<Item>(outlook, *itemClass);
    item->madeIn = folder;
    return item;
}

void OutlookModel::MoveItem(const std::shared_ptr<Item>& item,
                            const std::shared_ptr<Folder>& folder) {
    if (const auto before = item->folder.lock()) std::erase(before->items->all, item);
    item->folder = folder;
    folder->items->all.push_back(item);
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

void OutlookModel::ChangeInStore(const std::shared_ptr<Item>& item, TextView field,
                                 TextView value) {
    if (item->IsHeld()) {
        item->storedMeanwhile.emplace_back(field, value);
    } else {
        item->SetField(field, value);
    }
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

}  // namespace tellwick::standin
