#include "outlook/Toolbar.h"

#include <algorithm>

#include "outlook/Com.h"
#include "outlook/Face.h"
#include "outlook/Popup.h"

namespace tellwick::standin {

namespace {

// Office's button styles, as far as they are told apart here.
constexpr std::int32_t StyleIcon = 1;
constexpr std::int32_t StyleCaption = 2;

// At 96 dots per inch.
constexpr int Padding = 4;
constexpr int Gap = 7;  // between groups
constexpr int Grip = 8;
constexpr int Arrow = 9;

bool HasIcon(const CommandBarControl& control) {
    const auto* button = dynamic_cast<const CommandBarButton*>(&control);
    return !button || button->style != StyleCaption;
}

bool HasCaption(const CommandBarControl& control) {
    const auto* button = dynamic_cast<const CommandBarButton*>(&control);
    return !button || button->style != StyleIcon;
}

}  // namespace

Toolbar::Toolbar(const Look& userLook, HWND parent, std::shared_ptr<CommandBars> bars,
                 Clicked clicked)
    : Bar(userLook, parent, L"OutlookStandInToolbar"),
      bars(std::move(bars)),
      clicked(std::move(clicked)) {
    Refresh();
}

int Toolbar::Place() {
    controls.clear();
    rowTops.clear();
    int top = 0;
    for (const auto& bar : bars->all) {
        if (bar->visible) AddRow(*bar, top);
    }
    return top;
}

void Toolbar::AddRow(CommandBar& bar, int& top) {
    const int padding = look.Scale(Padding);
    const int icon = look.Scale(FaceSize);
    const int rowHeight = std::max(icon, look.LineHeight()) + 3 * padding;
    int left = look.Scale(Grip);
    bool any = false;
    for (const auto& control : bar.Controls()->all) {
        // The built-in menus are the window's own menu.
        if (!control->visible || (bar.name == u"Menu Bar" && control->BuiltIn())) continue;
        if (control->beginGroup && any) left += look.Scale(Gap);
        any = true;
        int width = 2 * padding;
        if (HasIcon(*control)) width += icon;
        if (HasIcon(*control) && HasCaption(*control)) width += padding;
        Button button;
        button.caption = ReplaceAll(control->caption, u"&", u"");
        button.enabled = control->enabled;
        if (HasCaption(*control)) width += look.TextWidth(look.Say(button.caption));
        if (control->Type() == PopupType) width += look.Scale(Arrow) + padding;
        button.place = {left, top + padding / 2, left + width, top + rowHeight - padding / 2};
        const auto popup = std::dynamic_pointer_cast<CommandBarPopup>(control);
        button.opensMenu = popup != nullptr;
        if (popup) {
            button.click = [this, popup, place = button.place] { OpenMenu(popup, place); };
        } else {
            button.click = [call = clicked, control] { call(control); };
        }
        buttons.push_back(std::move(button));
        controls.push_back(control);
        left += width + 1;
    }
    if (!any && bar.builtIn) return;
    rowTops.push_back(top);
    top += rowHeight;
}

void Toolbar::Paint(HDC context, const RECT&) {
    const int rowHeight = rowTops.empty() ? 0 : Height() / int(rowTops.size());
    const COLORREF line = Between(COLOR_BTNFACE, COLOR_BTNSHADOW, 60);
    for (const int top : rowTops) {
        for (int dot = top + look.Scale(6); dot < top + rowHeight - look.Scale(6);
             dot += look.Scale(4)) {
            const int left = look.Scale(3);
            Fill(context, {left, dot, left + look.Scale(2), dot + look.Scale(2)}, line);
        }
    }
}

void Toolbar::PaintButton(HDC context, std::size_t index, State state) {
    const Button& button = buttons[index];
    const CommandBarControl& control = *controls[index];
    const int padding = look.Scale(Padding);
    const int icon = look.Scale(FaceSize);
    const RECT& place = button.place;
    if (control.beginGroup && place.left > look.Scale(Grip)) {
        const int left = place.left - look.Scale(Gap) / 2 - 1;
        Fill(context, {left, place.top + padding, left + 1, place.bottom - padding},
             Between(COLOR_BTNFACE, COLOR_BTNSHADOW, 80));
    }
    FillHot(context, place, state);
    int left = place.left + padding;
    const int middle = (place.top + place.bottom) / 2;
    if (HasIcon(control)) {
        DrawFace(context, FaceOf(control), left, middle - icon / 2, icon);
        left += icon + padding;
    }
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(control.enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    if (HasCaption(control)) {
        RECT text{left, place.top, place.right, place.bottom};
        DrawTextW(context, Wide(look.Say(button.caption)), -1, &text,
                  DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
    }
    if (control.Type() == PopupType) {
        const int arrow = look.Scale(Arrow);
        const int start = place.right - padding - arrow;
        for (int row = 0; row < (arrow + 1) / 2; ++row) {
            Fill(context,
                 {start + row, middle - arrow / 4 + row, start + arrow - row,
                  middle - arrow / 4 + row + 1},
                 GetSysColor(COLOR_BTNTEXT));
        }
    }
}

void Toolbar::OpenMenu(const std::shared_ptr<CommandBarPopup>& popup, const RECT& below) {
    Popup menu(look.Scale(FaceSize));
    for (const auto& entry : popup->Menu()->Controls()->all) {
        if (!entry->visible) continue;
        if (entry->beginGroup) menu.AddSeparator();
        menu.Add(look.Say(entry->caption), FaceOf(*entry), entry->enabled,
                 [call = clicked, entry] { call(entry); });
    }
    POINT corner{below.left, below.bottom};
    ClientToScreen(window, &corner);
    menu.Run(GetAncestor(window, GA_ROOT), corner);
}

}  // namespace tellwick::standin
