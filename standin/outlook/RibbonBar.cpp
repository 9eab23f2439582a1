#include "outlook/RibbonBar.h"

#include <algorithm>

#include "outlook/Com.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

// At 96 dots per inch.
constexpr int Padding = 4;
constexpr int Picture = 32;
constexpr int LeastWidth = 44;

// A caption in at most two lines, broken where both are as short as can be.
Text InTwoLines(const Text& caption) {
    std::size_t best = Text::npos;
    const auto longest = [&](std::size_t at) { return std::max(at, caption.size() - at - 1); };
    for (std::size_t at = caption.find(u' '); at != Text::npos; at = caption.find(u' ', at + 1)) {
        if (best == Text::npos || longest(at) < longest(best)) best = at;
    }
    if (best == Text::npos) return caption;
    return caption.substr(0, best) + u"\n" + caption.substr(best + 1);
}

}  // namespace

RibbonBar::RibbonBar(const Look& userLook, HWND parent, std::shared_ptr<Window> window,
                     RunBuiltIn runBuiltIn)
    : Bar(userLook, parent, L"OutlookStandInRibbon"),
      model(std::move(window)),
      runBuiltIn(std::move(runBuiltIn)) {
    Refresh();
}

RibbonBar::Group RibbonBar::OwnGroup(TextView name, TextView caption,
                                     const std::vector<Text>& buttons) const {
    Group group{Text(name), Text(caption), {}};
    for (const Text& button : buttons) {
        group.items.push_back(
            {button, {}, OwnFace(button), [run = runBuiltIn, button] { run(button); }});
    }
    return group;
}

void RibbonBar::CollectOwn() {
    if (const auto* explorer = dynamic_cast<const Explorer*>(model.get())) {
        const auto number = explorer->folder->number;
        groups.push_back(OwnGroup(number == InboxFolder ? u"GroupMailNew" : u"", u"New",
                                  {number == ContactsFolder   ? u"New Contact"
                                   : number == CalendarFolder ? u"New Appointment"
                                                              : u"New E-mail"}));
        groups.push_back(OwnGroup(u"", u"Delete", {u"Delete"}));
        if (number == InboxFolder) groups.push_back(OwnGroup(u"", u"Respond", {u"Reply"}));
        return;
    }
    groups.push_back(OwnGroup(u"", u"Delete", {u"Delete"}));
    if (dynamic_cast<const Inspector&>(*model).item->itemClass == MailClass) {
        groups.push_back(OwnGroup(u"GroupRespond", u"Respond", {u"Reply"}));
    }
}

void RibbonBar::CollectAddIns() {
    for (auto& entry : model->outlook.ribbons.Entries(model)) {
        Group group{{}, entry.group, {}};
        group.items.push_back({entry.label, entry.screentip + u"\r\n" + entry.supertip,
                               FaceOfPicture(entry.image), std::move(entry.click)});
        const auto behind = std::find_if(groups.begin(), groups.end(), [&](const Group& own) {
            return !entry.behind.empty() && own.name == entry.behind;
        });
        groups.insert(behind == groups.end() ? groups.end() : behind + 1, std::move(group));
    }
}

// What add-ins have made on command bars; Office's own controls stand elsewhere.
void RibbonBar::CollectCommandBars() {
    Group group{{}, u"Custom Toolbars", {}};
    for (const auto& button : model->commandBars->Buttons()) {
        if (button->BuiltIn() || !button->visible) continue;
        group.items.push_back({ReplaceAll(button->caption, u"&", u""), button->toolTipText,
                               FaceOf(*button), [button] { button->outlook.ClickButton(button); }});
    }
    if (!group.items.empty()) groups.push_back(std::move(group));
}

int RibbonBar::Place() {
    const int tabHeight = look.LineHeight() + 2 * look.Scale(Padding);
    groups.clear();
    faces.clear();
    CollectCommandBars();
    const bool isExplorer = dynamic_cast<const Explorer*>(model.get()) != nullptr;
    std::vector<Text> captions{isExplorer ? u"Home" : u"Message"};
    if (const auto* inspector = dynamic_cast<const Inspector*>(model.get())) {
        if (inspector->item->itemClass == ContactClass) captions[0] = u"Contact";
    }
    if (!groups.empty()) captions.emplace_back(u"Add-Ins");
    shown = std::min(shown, captions.size() - 1);
    if (shown == 0) {
        groups.clear();
        CollectOwn();
        CollectAddIns();
    }
    PlaceTabs(captions, tabHeight);
    const int padding = look.Scale(Padding);
    const int bottom = tabHeight + look.Scale(Picture) + 3 * look.LineHeight() + 5 * padding;
    int left = padding;
    for (Group& group : groups) PlaceGroup(group, left, tabHeight, bottom);
    return bottom;
}

void RibbonBar::PlaceTabs(const std::vector<Text>& captions, int height) {
    tabs = captions.size();
    int left = look.Scale(Padding);
    for (std::size_t index = 0; index < tabs; ++index) {
        const int width = look.TextWidth(look.Say(captions[index])) + 6 * look.Scale(Padding);
        Button tab;
        tab.place = {left, 0, left + width, height};
        tab.caption = captions[index];
        tab.click = [this, index] {
            shown = index;
            Refresh();
        };
        buttons.push_back(std::move(tab));
        faces.push_back(nullptr);
        left += width;
    }
}

int RibbonBar::ItemWidth(const Item& item) const {
    int width = look.Scale(LeastWidth);
    for (const Text& line : Split(InTwoLines(look.Say(item.caption)), u"\n")) {
        width = std::max(width, look.TextWidth(line) + 2 * look.Scale(Padding));
    }
    return width;
}

void RibbonBar::PlaceGroup(Group& group, int& left, int top, int bottom) {
    const int padding = look.Scale(Padding);
    int needed = 0;
    for (const Item& item : group.items) needed += ItemWidth(item);
    const int width = std::max(needed, look.TextWidth(look.Say(group.caption))) + 2 * padding;
    group.place = {left, top, left + width, bottom};
    int x = left + (width - needed) / 2;
    for (const Item& item : group.items) {
        Button button;
        button.place = {x, top + padding, x + ItemWidth(item),
                        bottom - look.LineHeight() - padding};
        button.caption = item.caption;
        button.click = item.click;
        button.tip = item.tip;
        x = button.place.right;
        buttons.push_back(std::move(button));
        faces.push_back(&item.face);
    }
    left += width + 1;
}

void RibbonBar::Paint(HDC context, const RECT& client) {
    const int tabHeight = look.LineHeight() + 2 * look.Scale(Padding);
    Fill(context, {0, tabHeight, client.right, client.bottom}, GetSysColor(COLOR_WINDOW));
    const COLORREF line = Between(COLOR_BTNFACE, COLOR_BTNSHADOW, 40);
    SetBkMode(context, TRANSPARENT);
    for (const Group& group : groups) {
        const RECT& place = group.place;
        Fill(context,
             {place.right, place.top + look.Scale(Padding), place.right + 1,
              place.bottom - look.Scale(Padding)},
             line);
        RECT caption = place;
        caption.bottom -= look.Scale(Padding) / 2;
        SetBkMode(context, TRANSPARENT);
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
        DrawTextW(context, Wide(look.Say(group.caption)), -1, &caption,
                  DT_SINGLELINE | DT_BOTTOM | DT_CENTER | DT_NOPREFIX);
    }
}

void RibbonBar::PaintButton(HDC context, std::size_t index, State state) {
    const Button& button = buttons[index];
    RECT text = button.place;
    if (index < tabs) {
        if (index == shown) Fill(context, text, GetSysColor(COLOR_WINDOW));
        SetBkMode(context, TRANSPARENT);
        SetTextColor(context, GetSysColor(state == State::Plain ? COLOR_BTNTEXT : COLOR_HOTLIGHT));
        DrawTextW(context, Wide(look.Say(button.caption)), -1, &text,
                  DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_NOPREFIX);
        return;
    }
    FillHot(context, button.place, state);
    const int size = look.Scale(Picture);
    const int top = text.top + look.Scale(Padding);
    DrawFace(context, *faces[index], (text.left + text.right - size) / 2, top, size);
    text.top = top + size + look.Scale(Padding) / 2;
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(context, Wide(InTwoLines(look.Say(button.caption))), -1, &text,
              DT_TOP | DT_CENTER | DT_NOPREFIX);
}

}  // namespace tellwick::standin
