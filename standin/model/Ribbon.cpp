#include "model/Ribbon.h"

#include <algorithm>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

constexpr std::int32_t FirstWithInspectorRibbon = 12;  // Outlook 2007
constexpr std::int32_t FirstWithExplorerRibbon = 14;   // Outlook 2010
constexpr TextView ExplorerRibbon = u"Microsoft.Outlook.Explorer";

// Empty for windows that no add-in has anything for.
Text RibbonIdOf(const Window& window) {
    const auto* inspector = dynamic_cast<const Inspector*>(&window);
    if (!inspector) return Text(ExplorerRibbon);
    const auto& item = inspector->item;
    if (item->itemClass == ContactClass) return u"Microsoft.Outlook.Contact";
    if (item->itemClass != MailClass) return u"Microsoft.Outlook.Appointment";
    // A mail that lies in a folder has been received.
    return item->folder.expired() ? u"Microsoft.Outlook.Mail.Compose"
                                  : u"Microsoft.Outlook.Mail.Read";
}

TextView TabOf(const Window& window) {
    if (const auto* explorer = dynamic_cast<const Explorer*>(&window)) {
        return explorer->folder->number == ContactsFolder ? u"TabContacts"
               : explorer->folder->number == InboxFolder  ? u"TabMail"
                                                          : u"TabCalendar";
    }
    const auto& item = dynamic_cast<const Inspector&>(window).item;
    return item->itemClass == ContactClass       ? u"TabContact"
           : item->itemClass == AppointmentClass ? u"TabAppointment"
                                                 : u"TabReadMessage";
}

TextView MenuFor(const Explorer& explorer) {
    if (explorer.selection.size() > 1 || !explorer.conversations.empty())
        return u"ContextMenuMultipleItems";
    if (explorer.selection.empty()) return {};
    switch (explorer.selection[0]->itemClass) {
        case MailClass:
            return u"ContextMenuMailItem";
        case ContactClass:
            return u"ContextMenuContactItem";
        case AppointmentClass:
            return u"ContextMenuCalendarItem";
        default:
            return {};
    }
}

}  // namespace

const MemberTable& RibbonControl::Table() const {
    static const MemberTable table =
        Members<RibbonControl>()
            .Property(u"Id", [](RibbonControl& self) { return self.id; })
            .Property(u"Context", [](RibbonControl& self) { return HandleOf(self.context); })
            .Property(u"Tag", [](RibbonControl& self) { return self.tag; });
    return table;
}

const MemberTable& RibbonUI::Table() const {
    static const MemberTable table =
        Members<RibbonUI>()
            .Method(u"Invalidate", {},
                    [](RibbonUI& self, const Arguments&) {
                        self.answers.clear();
                        self.outlook.Changed();
                        return Value();
                    })
            .Method(u"InvalidateControl", {u"ControlID"},
                    [](RibbonUI& self, const Arguments& arguments) {
                        const Text id = AsText(arguments[0]);
                        std::erase_if(self.answers,
                                      [&](const auto& answer) { return answer.first.first == id; });
                        self.outlook.Changed();
                        return Value();
                    });
    return table;
}

void Ribbons::Add(TextView name, const std::shared_ptr<RibbonAddIn>& addIn) {
    const auto known = std::make_shared<Known>();
    known->name = name;
    known->addIn = addIn;
    all.push_back(known);
    std::vector<std::shared_ptr<Window>> open;
    open.assign(outlook.explorers->all.begin(), outlook.explorers->all.end());
    open.insert(open.end(), outlook.inspectors->all.begin(), outlook.inspectors->all.end());
    for (const auto& window : open) {
        if (Has(*window)) Ask(known, RibbonIdOf(*window));
    }
    outlook.Changed();
}

void Ribbons::Remove(const std::shared_ptr<RibbonAddIn>& addIn) {
    std::erase_if(all, [&](const auto& known) { return known->addIn == addIn; });
    outlook.Changed();
}

bool Ribbons::Has(const Window& window) const {
    return outlook.version >= (dynamic_cast<const Explorer*>(&window) ? FirstWithExplorerRibbon
                                                                      : FirstWithInspectorRibbon);
}

void Ribbons::Open(const Window& window) {
    if (!Has(window)) return;
    const Text ribbonId = RibbonIdOf(window);
    const auto asked = all;
    for (const auto& known : asked) Ask(known, ribbonId);
}

void Ribbons::Ask(const std::shared_ptr<Known>& known, const Text& ribbonId) {
    if (!known->asked.insert(ribbonId).second) return;
    const Text xml = known->addIn->GetCustomUI(ribbonId);
    if (xml.empty()) return;
    auto part = std::make_shared<Part>();
    part->ribbonId = ribbonId;
    part->ui = std::make_shared<RibbonUI>(outlook);
    part->xml = ReadRibbonXml(xml, ribbonId, outlook.version,
                              [&](TextView name) { return known->addIn->HasCallback(name); });
    if (!part->xml.error.empty()) {
        Report(*known, part->xml.error);
        return;
    }
    known->parts.push_back(part);
    if (!part->xml.onLoad.empty()) Call(*known, part->xml.onLoad, part->ui->Handle());
}

void Ribbons::Report(const Known& known, const Text& what) {
    errors.push_back(known.name + u": " + what);
    if (showError) {
        showError(u"Error found in Custom UI XML of \"" + known.name + u"\"\r\r" + what);
    }
}

Value Ribbons::Call(const Known& known, const Text& callback, const ObjectPtr& argument) {
    // The add-in may be disconnected from within.
    const std::shared_ptr<RibbonAddIn> called = known.addIn;
    PendingError& pending = outlook.errors;
    pending.Clear();
    Value value = called->Call(callback, argument);
    if (pending) {
        Report(known, u"Failed to run callback\r" + callback);
        pending.Clear();
    }
    return value;
}

Value Ribbons::Answer(const Known& known, Part& part, TextView attribute, const Text& callback,
                      const std::shared_ptr<RibbonControl>& control) {
    if (callback.empty()) return {};
    const std::pair<Text, Text> name(control->id, attribute);
    if (!part.ui->answers.contains(name)) {
        Value answer = Call(known, callback, control->Handle());
        part.ui->answers[name] = std::move(answer);
    }
    return part.ui->answers[name];
}

std::vector<Ribbons::Entry> Ribbons::EntriesAt(TextView ribbonId, TextView place,
                                               const std::shared_ptr<ModelObject>& context) {
    std::vector<Entry> entries;
    const auto add = [&](const std::shared_ptr<Known>& addIn, const std::shared_ptr<Part>& part,
                         const RibbonGroup& group, const RibbonButton& button) {
        const auto frame = std::make_shared<RibbonControl>(outlook, group.id, Text(), context);
        const auto control =
            std::make_shared<RibbonControl>(outlook, button.id, button.tag, context);
        const auto callback = [&](TextView attribute) {
            const auto found = button.callbacks.find(Text(attribute));
            return found == button.callbacks.end() ? Text() : found->second;
        };
        const auto answer = [&](TextView attribute) {
            return Answer(*addIn, *part, attribute, callback(attribute), control);
        };
        Entry entry;
        entry.place = group.place;
        entry.behind = group.behind;
        entry.group = AsText(Answer(*addIn, *part, u"getLabel", group.getLabel, frame));
        entry.label = AsText(answer(u"getLabel"));
        entry.screentip = AsText(answer(u"getScreentip"));
        entry.supertip = AsText(answer(u"getSupertip"));
        entry.image = AsObject(answer(u"getImage"));
        entry.large = button.large;
        // What the add-in has may have gone by the time it is done.
        entry.click = [this, addIn, control, action = callback(u"onAction")] {
            Call(*addIn, action, control->Handle());
        };
        entries.push_back(std::move(entry));
    };
    const auto known = all;
    for (const auto& addIn : known) {
        const auto parts = addIn->parts;
        for (const auto& part : parts) {
            for (const RibbonGroup& group : part->xml.groups) {
                if (part->ribbonId != ribbonId || group.place != place) continue;
                for (const RibbonButton& button : group.buttons) add(addIn, part, group, button);
            }
        }
    }
    return entries;
}

std::vector<Ribbons::Entry> Ribbons::Entries(const std::shared_ptr<Window>& window) {
    if (!Has(*window)) return {};
    return EntriesAt(RibbonIdOf(*window), TabOf(*window), window);
}

std::vector<Ribbons::Entry> Ribbons::MenuEntries(const std::shared_ptr<Explorer>& explorer) {
    if (outlook.version < FirstWithExplorerRibbon) return {};
    return EntriesAt(ExplorerRibbon, MenuFor(*explorer), std::make_shared<Selection>(*explorer));
}

}  // namespace tellwick::standin
