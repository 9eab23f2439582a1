// The commands of the ribbon and of context menus.
#include "outlook/CommandText.h"
#include "outlook/Commands.h"

namespace tellwick::standin {

namespace {

Text DescribeEntries(const std::vector<Ribbons::Entry>& entries) {
    std::vector<Text> texts;
    for (const Ribbons::Entry& entry : entries) {
        Text text = Quoted(entry.label) + u" at=" + entry.place;
        if (!entry.behind.empty()) text += u" behind=" + entry.behind;
        if (!entry.group.empty()) text += u" group=" + Quoted(entry.group);
        if (!entry.screentip.empty()) text += u" tip=" + Quoted(entry.screentip);
        if (!entry.supertip.empty()) text += u" explained=" + Quoted(entry.supertip);
        texts.push_back(text + u" large=" + (entry.large ? u"1" : u"0") + u" face=" +
                        FaceText(FaceOfPicture(entry.image)));
    }
    return Joined(texts);
}

Text ClickEntry(const std::vector<Ribbons::Entry>& entries, const Text& label) {
    for (const Ribbons::Entry& entry : entries) {
        if (entry.label != label) continue;
        entry.click();
        return {};
    }
    Require(false, "no such button");
    return {};
}

}  // namespace

Text Commands::Ribbon(const Words& words) {
    return DescribeEntries(outlook.ribbons.Entries(ExplorerAt(words)));
}

Text Commands::InspectorRibbon(const Words& words) {
    return DescribeEntries(outlook.ribbons.Entries(InspectorAt(words)));
}

Text Commands::ContextMenu(const Words& words) {
    return DescribeEntries(outlook.ribbons.MenuEntries(ExplorerAt(words)));
}

Text Commands::ClickRibbon(const Words& words) {
    return ClickEntry(outlook.ribbons.Entries(ExplorerAt(words)), words[1]);
}

Text Commands::ClickInspectorRibbon(const Words& words) {
    return ClickEntry(outlook.ribbons.Entries(InspectorAt(words)), words[1]);
}

Text Commands::ClickContextMenu(const Words& words) {
    return ClickEntry(outlook.ribbons.MenuEntries(ExplorerAt(words)), words[1]);
}

Text Commands::RibbonErrors(const Words&) {
    std::vector<Text> entries;
    for (const Text& error : outlook.ribbons.errors) entries.push_back(Quoted(error));
    return Joined(entries);
}

}  // namespace tellwick::standin
