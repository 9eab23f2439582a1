#include "model/RibbonXml.h"

#include <rapidxml.hpp>

#include <algorithm>
#include <set>
#include <string>

namespace tellwick::standin {

namespace {

using Node = rapidxml::xml_node<>;
using Attribute = rapidxml::xml_attribute<>;

constexpr std::int32_t FirstWithContextMenus = 14;  // Outlook 2010

// Office's own names by kind of window. Menus have no group.
struct OwnName {
    TextView ribbonId;
    TextView place;
    TextView group;
};
constexpr TextView Explorer = u"Microsoft.Outlook.Explorer";
constexpr OwnName OwnNames[] = {
    {Explorer, u"TabMail", u"GroupMailNew"},
    {Explorer, u"TabContacts", {}},
    {Explorer, u"TabCalendar", {}},
    {Explorer, u"ContextMenuMailItem", {}},
    {Explorer, u"ContextMenuContactItem", {}},
    {Explorer, u"ContextMenuFlaggedContactItem", {}},
    {Explorer, u"ContextMenuMultipleItems", {}},
    {Explorer, u"ContextMenuCalendarItem", {}},
    {u"Microsoft.Outlook.Mail.Read", u"TabReadMessage", u"GroupRespond"},
    {u"Microsoft.Outlook.Contact", u"TabContact", {}},
    {u"Microsoft.Outlook.Appointment", u"TabAppointment", {}}};

Text Wide(const char* text) {
    const std::string bytes(text);
    return Text(bytes.begin(), bytes.end());
}

struct Wrong {
    const char* where;
    Text what;
};

class Reader {
public:
    Reader(TextView ribbonId, std::int32_t version,
           const std::function<bool(TextView)>& hasCallback)
        : ribbonId(ribbonId), version(version), hasCallback(hasCallback) {}

    // Throws Wrong.
    void Read(const Node& document, RibbonXml& ribbon) {
        const Node* root = document.first_node();
        if (!root || root->next_sibling()) throw Wrong{nullptr, u"There is not one element."};
        Expect(*root, "customUI", {"xmlns", "onLoad"});
        const Text wanted = version < FirstWithContextMenus
                                ? u"http://schemas.microsoft.com/office/2006/01/customui"
                                : u"http://schemas.microsoft.com/office/2009/07/customui";
        if (Value(*root, "xmlns") != wanted) Fail(*root, u"Unknown namespace", "xmlns");
        ribbon.onLoad = Callback(*root, "onLoad");
        for (const Node* part = root->first_node(); part; part = part->next_sibling()) {
            const std::string name = part->name();
            if (name == "contextMenus" && version >= FirstWithContextMenus) {
                Expect(*part, "contextMenus", {});
                for (const Node* menu = part->first_node(); menu; menu = menu->next_sibling()) {
                    ReadMenu(*menu, ribbon);
                }
                continue;
            }
            Expect(*part, "ribbon", {});
            const Node* tabs = part->first_node();
            if (!tabs) Fail(*part, u"The element is empty");
            Expect(*tabs, "tabs", {});
            for (const Node* tab = tabs->first_node(); tab; tab = tab->next_sibling()) {
                Expect(*tab, "tab", {"idMso"});
                const Text place = Known(*tab, "idMso", {});
                for (const Node* group = tab->first_node(); group; group = group->next_sibling()) {
                    ReadGroup(*group, place, ribbon);
                }
            }
        }
    }

private:
    [[noreturn]] static void Fail(const Node& node, TextView what,
                                  const char* attribute = nullptr) {
        Text text(what);
        if (attribute) text += u"\r" + Wide(attribute) + u": " + Value(node, attribute);
        throw Wrong{node.name(), text};
    }
    static Text Value(const Node& node, const char* name) {
        const Attribute* found = node.first_attribute(name);
        return found ? Wide(found->value()) : Text();
    }
    static void Expect(const Node& node, const std::string& name,
                       const std::set<std::string>& attributes) {
        if (name != node.name()) Fail(node, u"Unexpected element " + Wide(node.name()));
        std::set<std::string> seen;
        for (const Attribute* a = node.first_attribute(); a; a = a->next_attribute()) {
            if (!attributes.contains(a->name())) {
                Fail(node, u"Unknown attribute", a->name());
            }
            if (!seen.insert(a->name()).second) Fail(node, u"Attribute given twice", a->name());
        }
    }
    // A name of Office's own, within a tab where it is a group's.
    Text Known(const Node& node, const char* attribute, TextView tab) const {
        const Text name = Value(node, attribute);
        for (const OwnName& own : OwnNames) {
            if (own.ribbonId != ribbonId) continue;
            if (tab.empty() ? own.place == name : own.place == tab && own.group == name) {
                return name;
            }
        }
        Fail(node, u"Failed to find Office control by ID", attribute);
    }
    Text Callback(const Node& node, const char* attribute) const {
        const Text name = Value(node, attribute);
        if (!name.empty() && !hasCallback(name)) {
            Fail(node, u"The add-in has no such callback", attribute);
        }
        return name;
    }
    Text NewId(const Node& node) {
        const Text id = Value(node, "id");
        if (id.empty()) Fail(node, u"The element has no ID");
        if (!ids.insert(id).second) Fail(node, u"The ID is used twice", "id");
        return id;
    }
    void ReadMenu(const Node& node, RibbonXml& ribbon) {
        Expect(node, "contextMenu", {"idMso"});
        RibbonGroup menu;
        menu.place = Known(node, "idMso", {});
        if (!StartsWith(menu.place, u"ContextMenu")) Fail(node, u"That is no menu", "idMso");
        ReadButtons(node, false, menu);
        ribbon.groups.push_back(std::move(menu));
    }
    void ReadGroup(const Node& node, const Text& tab, RibbonXml& ribbon) {
        Expect(node, "group", {"id", "insertAfterMso", "getLabel"});
        RibbonGroup group;
        group.place = tab;
        group.id = NewId(node);
        if (node.first_attribute("insertAfterMso")) {
            group.behind = Known(node, "insertAfterMso", tab);
        }
        group.getLabel = Callback(node, "getLabel");
        ReadButtons(node, true, group);
        ribbon.groups.push_back(std::move(group));
    }
    void ReadButtons(const Node& parent, bool sized, RibbonGroup& group) {
        std::set<std::string> attributes{"id", "tag"};
        if (sized) attributes.insert("size");
        const std::set<std::string> calls{"onAction", "getLabel",   "getScreentip", "getSupertip",
                                          "getImage", "getVisible", "getEnabled"};
        attributes.insert(calls.begin(), calls.end());
        for (const Node* node = parent.first_node(); node; node = node->next_sibling()) {
            Expect(*node, "button", attributes);
            RibbonButton button;
            button.id = NewId(*node);
            button.tag = Value(*node, "tag");
            const Text size = Value(*node, "size");
            if (!size.empty() && size != u"large" && size != u"normal") {
                Fail(*node, u"Unknown value", "size");
            }
            button.large = size == u"large";
            for (const std::string& call : calls) {
                if (!node->first_attribute(call.c_str())) continue;
                button.callbacks[Wide(call.c_str())] = Callback(*node, call.c_str());
            }
            group.buttons.push_back(std::move(button));
        }
    }

    const TextView ribbonId;
    const std::int32_t version;
    const std::function<bool(TextView)>& hasCallback;
    std::set<Text> ids;
};

// "Line 2, column 17" of a place in the text that was read.
Text Place(const std::string& read, std::size_t offset) {
    const auto begin = read.begin();
    const auto end = begin + std::ptrdiff_t(std::min(offset, read.size()));
    const auto lines = std::count(begin, end, '\n');
    const std::size_t lineStart = lines == 0 ? 0 : read.rfind('\n', offset - 1) + 1;
    return u"Line: " + NumberText(std::int64_t(lines + 1)) + u"\rColumn: " +
           NumberText(std::int64_t(offset - lineStart + 1)) + u"\r";
}

}  // namespace

RibbonXml ReadRibbonXml(TextView xml, TextView ribbonId, std::int32_t outlookVersion,
                        const std::function<bool(TextView name)>& hasCallback) {
    // Only names and callbacks are read, which are ASCII.
    std::string read;
    for (const char16_t unit : xml) read += unit < 0x80 ? char(unit) : '?';
    std::string parsed = read;
    RibbonXml ribbon;
    rapidxml::xml_document<> document;
    try {
        constexpr int Flags = rapidxml::parse_validate_closing_tags;
        document.parse<Flags>(parsed.data());
        Reader(ribbonId, outlookVersion, hasCallback).Read(document, ribbon);
    } catch (const rapidxml::parse_error& wrong) {
        ribbon.error =
            Place(read, std::size_t(wrong.where<char>() - parsed.data())) + Wide(wrong.what());
    } catch (const Wrong& wrong) {
        const std::size_t offset = wrong.where ? std::size_t(wrong.where - parsed.data()) : 0;
        ribbon.error = Place(read, offset) + wrong.what;
    }
    return ribbon;
}

}  // namespace tellwick::standin
