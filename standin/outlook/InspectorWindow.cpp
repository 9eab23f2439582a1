#include "outlook/InspectorWindow.h"

#include <algorithm>

#include "outlook/Com.h"
#include "outlook/MenuCommands.h"

namespace tellwick::standin {

namespace {

constexpr int Header = 10;

HMENU CreateMenus(const Look& look) {
    const HMENU bar = CreateMenu();
    const HMENU file = CreatePopupMenu();
    AppendMenuW(file, MF_STRING, menu::Close, Wide(look.Say(u"&Close")));
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), Wide(look.Say(u"&File")));
    const HMENU actions = CreatePopupMenu();
    AppendMenuW(actions, MF_STRING, menu::Reply, Wide(look.Say(u"&Reply\tCtrl+R")));
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(actions), Wide(look.Say(u"&Actions")));
    return bar;
}

}  // namespace

InspectorWindow::InspectorWindow(const Look& userLook, std::shared_ptr<Inspector> model)
    : Frame(userLook, model), inspector(std::move(model)) {
    Create(ClassName, CreateMenus(look), 560, 400);
    header = AddChild(L"STATIC", SS_NOPREFIX, 0, Header);
    body = AddChild(L"EDIT", WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY, WS_EX_CLIENTEDGE,
                    ReadOnlyText);
    LayOutAll();
    focus = body;
}

Text InspectorWindow::HeaderText() const {
    static const std::pair<TextView, TextView> Lines[] = {
        {u"From", u"SentOnBehalfOfName"},
        {u"From", u"SenderName"},
        {u"To", u"To"},
        {u"Subject", u"Subject"},
        {u"Full Name", u"FullName"},
        {u"Mobile Phone", u"MobileTelephoneNumber"},
        {u"Home Phone", u"HomeTelephoneNumber"},
        {u"Business Phone", u"BusinessTelephoneNumber"},
        {u"Name", u"DLName"},
        {u"Location", u"Location"}};
    Text text;
    for (const auto& [title, field] : Lines) {
        const Text value = inspector->item->Field(field);
        const Text start = look.Say(title) + u":\t";
        if (value.empty() || StartsWith(text, start)) continue;
        text += start + value + u"\r\n";
    }
    return text;
}

void InspectorWindow::Layout(const RECT& inside) {
    const Text text = HeaderText();
    const int lines = int(std::count(text.begin(), text.end(), u'\n'));
    const int gap = look.Scale(6);
    const int headerHeight = lines * look.LineHeight();
    MoveWindow(header, gap, inside.top + gap, inside.right - 2 * gap, headerHeight, TRUE);
    const int top = inside.top + headerHeight + 2 * gap;
    MoveWindow(body, 0, top, inside.right, inside.bottom - top, TRUE);
}

void InspectorWindow::Refresh() {
    Frame::Refresh();
    SetWindowTextW(header, Wide(HeaderText()));
    SetWindowTextW(body, Wide(inspector->item->Field(u"Body")));
    LayOutAll();
}

void InspectorWindow::Command(WORD identifier, WORD) {
    switch (identifier) {
        case menu::Close:
        case IDCANCEL:
            Close();
            break;
        case menu::Reply:
            RunBuiltIn(u"Reply");
            break;
        default:
            break;
    }
}

void InspectorWindow::Close() {
    const std::shared_ptr<Inspector> closing = inspector;
    closing->outlook.CloseInspector(closing);
}

}  // namespace tellwick::standin
