#include "outlook/ExplorerWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "outlook/Com.h"
#include "outlook/MenuCommands.h"
#include "outlook/Popup.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

enum Child { FolderTree = 10, ItemList, Status };

constexpr UINT SelectionChanged = WM_APP + 1;

struct Column {
    TextView title;
    TextView field;
    int width;  // at 96 dots per inch
};

std::vector<Column> ColumnsOf(const Folder& folder) {
    switch (folder.number) {
        case ContactsFolder:
            return {{u"Full Name", u"FullName", 180},
                    {u"Mobile Phone", u"MobileTelephoneNumber", 130},
                    {u"Home Phone", u"HomeTelephoneNumber", 130},
                    {u"Business Phone", u"BusinessTelephoneNumber", 130}};
        case InboxFolder:
            return {{u"From", u"SentOnBehalfOfName", 180}, {u"Subject", u"Subject", 340}};
        default:
            return {{u"Subject", u"Subject", 300}, {u"Location", u"Location", 180}};
    }
}

// What a list shows in a field. A mail is from whom it was sent for (PR_SENT_REPRESENTING_NAME),
// not from who sent it for him.
Text Shown(const Item& item, TextView field) {
    Text text = item.Field(field);
    if (text.empty() && field == u"SentOnBehalfOfName") text = item.Field(u"SenderName");
    if (text.empty() && field == u"FullName") text = item.Title();
    return text;
}

HMENU CreateMenus(const Look& look) {
    const HMENU bar = CreateMenu();
    const auto add = [&](TextView title, std::initializer_list<std::pair<int, TextView>> entries) {
        const HMENU menu = CreatePopupMenu();
        for (const auto& [identifier, caption] : entries) {
            AppendMenuW(menu, caption.empty() ? MF_SEPARATOR : MF_STRING, UINT_PTR(identifier),
                        Wide(look.Say(caption)));
        }
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), Wide(look.Say(title)));
    };
    add(u"&File", {{menu::NewWindow, u"New &Window"},
                   {menu::NewMail, u"New &Mail Message\tCtrl+N"},
                   {menu::OpenItem, u"&Open Selected Item\tCtrl+O"},
                   {0, u""},
                   {menu::Close, u"&Close Window"},
                   {menu::Exit, u"E&xit"}});
    add(u"&Edit", {{menu::Delete, u"&Delete Item\tCtrl+D"}});
    add(u"&View",
        {{menu::Inbox, u"&Inbox"}, {menu::Calendar, u"C&alendar"}, {menu::Contacts, u"&Contacts"}});
    add(u"&Actions", {{menu::Reply, u"&Reply\tCtrl+R"}});
    return bar;
}

}  // namespace

ExplorerWindow::ExplorerWindow(const Look& userLook, std::shared_ptr<Explorer> model)
    : Frame(userLook, model), explorer(std::move(model)) {
    INITCOMMONCONTROLSEX controls{sizeof controls,
                                  ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    Create(ClassName, CreateMenus(look), 860, 560);
    folderTree =
        AddChild(WC_TREEVIEWW,
                 WS_TABSTOP | TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS,
                 WS_EX_CLIENTEDGE, FolderTree);
    itemList = AddChild(WC_LISTVIEWW, WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS, WS_EX_CLIENTEDGE,
                        ItemList);
    ListView_SetExtendedListViewStyle(itemList, LVS_EX_FULLROWSELECT);
    preview = AddChild(L"EDIT", WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY,
                       WS_EX_CLIENTEDGE, ReadOnlyText);
    status = AddChild(STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0, Status);

    filling = true;
    TVINSERTSTRUCTW root{};
    Text rootText = explorer->outlook.stores[0]->name;
    root.item.mask = TVIF_TEXT | TVIF_STATE;
    root.item.pszText = reinterpret_cast<wchar_t*>(rootText.data());
    root.item.state = root.item.stateMask = TVIS_EXPANDED;
    const auto top = TreeView_InsertItem(folderTree, &root);
    for (const auto& folder : explorer->outlook.folders) {
        Text name = folder->name;
        TVINSERTSTRUCTW entry{};
        entry.hParent = top;
        entry.hInsertAfter = TVI_LAST;
        entry.item.mask = TVIF_TEXT | TVIF_PARAM;
        entry.item.pszText = reinterpret_cast<wchar_t*>(name.data());
        entry.item.lParam = folder->number;
        folderEntries[folder.get()] = TreeView_InsertItem(folderTree, &entry);
    }
    TreeView_Expand(folderTree, top, TVE_EXPAND);
    filling = false;
    LayOutAll();
    focus = itemList;
}

void ExplorerWindow::Layout(const RECT& inside) {
    SendMessageW(status, WM_SIZE, 0, 0);
    RECT bar;
    GetWindowRect(status, &bar);
    const int bottom = inside.bottom - (bar.bottom - bar.top);
    const int treeWidth = look.Scale(190);
    const int gap = look.Scale(3);
    const int split = inside.top + (bottom - inside.top) * 6 / 10;
    MoveWindow(folderTree, 0, inside.top, treeWidth, bottom - inside.top, TRUE);
    MoveWindow(itemList, treeWidth + gap, inside.top, inside.right - treeWidth - gap,
               split - inside.top, TRUE);
    MoveWindow(preview, treeWidth + gap, split + gap, inside.right - treeWidth - gap,
               bottom - split - gap, TRUE);
}

void ExplorerWindow::Refresh() {
    Frame::Refresh();
    if (shownFolder != explorer->folder || shownItems != explorer->folder->items->all) FillList();
    for (std::size_t row = 0; row < shownItems.size(); ++row) {
        if (shownItems[row]->modified != shownSaves[row]) ShowRow(row);
    }
    ShowSelection();
}

void ExplorerWindow::FillList() {
    filling = true;
    ListView_DeleteAllItems(itemList);
    while (ListView_DeleteColumn(itemList, 0)) {
    }
    shownFolder = explorer->folder;
    shownItems = shownFolder->items->all;
    TreeView_SelectItem(folderTree, folderEntries[shownFolder.get()]);
    const std::vector<Column> columns = ColumnsOf(*shownFolder);
    for (std::size_t index = 0; index < columns.size(); ++index) {
        Text title = look.Say(columns[index].title);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = reinterpret_cast<wchar_t*>(title.data());
        column.cx = look.Scale(columns[index].width);
        ListView_InsertColumn(itemList, int(index), &column);
    }
    shownSaves.assign(shownItems.size(), 0);
    for (std::size_t row = 0; row < shownItems.size(); ++row) {
        LVITEMW entry{};
        entry.iItem = int(row);
        ListView_InsertItem(itemList, &entry);
        ShowRow(row);
    }
    const Text count = NumberText(std::int64_t(shownItems.size()));
    SetWindowTextW(status, Wide(ReplaceAll(look.Say(u"%n Items"), u"%n", count)));
    filling = false;
}

void ExplorerWindow::ShowRow(std::size_t row) {
    const std::vector<Column> columns = ColumnsOf(*shownFolder);
    for (std::size_t index = 0; index < columns.size(); ++index) {
        Text text = Shown(*shownItems[row], columns[index].field);
        LVITEMW entry{};
        entry.mask = LVIF_TEXT;
        entry.iItem = int(row);
        entry.iSubItem = int(index);
        entry.pszText = reinterpret_cast<wchar_t*>(text.data());
        ListView_SetItem(itemList, &entry);
    }
    shownSaves[row] = shownItems[row]->modified;
}

// The list shows the model's selection, unless the user's newer one is on its way there.
void ExplorerWindow::ShowSelection() {
    const auto& selection = explorer->selection;
    filling = true;
    for (std::size_t row = 0; row < shownItems.size() && !selectionPosted; ++row) {
        const bool selected =
            std::find(selection.begin(), selection.end(), shownItems[row]) != selection.end();
        const bool shown = ListView_GetItemState(itemList, int(row), LVIS_SELECTED) != 0;
        if (selected != shown) {
            ListView_SetItemState(itemList, int(row), selected ? LVIS_SELECTED : 0, LVIS_SELECTED);
        }
    }
    filling = false;
    // A long one takes its time, which Outlook does not take when nothing has changed.
    Text body = selection.empty() ? Text() : selection[0]->Field(u"Body");
    if (body == shownBody) return;
    SetWindowTextW(preview, Wide(body));
    shownBody = std::move(body);
}

bool ExplorerWindow::FindItem(const std::shared_ptr<Item>& item, RECT& rectangle) const {
    const auto found = std::find(shownItems.begin(), shownItems.end(), item);
    if (found == shownItems.end()) return false;
    if (!ListView_GetItemRect(itemList, int(found - shownItems.begin()), &rectangle, LVIR_LABEL)) {
        return false;
    }
    MapWindowPoints(itemList, nullptr, reinterpret_cast<POINT*>(&rectangle), 2);
    return true;
}

void ExplorerWindow::TakeSelection() {
    selectionPosted = false;
    std::vector<std::shared_ptr<Item>> selection;
    for (std::size_t row = 0; row < shownItems.size(); ++row) {
        if (ListView_GetItemState(itemList, int(row), LVIS_SELECTED)) {
            selection.push_back(shownItems[row]);
        }
    }
    if (selection != explorer->selection) explorer->outlook.Select(explorer, selection);
}

LRESULT ExplorerWindow::Notify(const NMHDR& notification) {
    if (filling) return 0;
    if (notification.idFrom == ItemList && notification.code == LVN_ITEMCHANGED) {
        // A click changes several rows; the model gets the whole of it.
        if (!selectionPosted) {
            selectionPosted = PostMessageW(window, SelectionChanged, 0, 0) != FALSE;
        }
    } else if (notification.idFrom == ItemList && notification.code == NM_RCLICK) {
        TakeSelection();
        OpenContextMenu();
    } else if (notification.idFrom == ItemList && notification.code == NM_DBLCLK) {
        Command(menu::OpenItem, 0);
    } else if (notification.idFrom == FolderTree && notification.code == TVN_SELCHANGEDW) {
        const auto& change = reinterpret_cast<const NMTREEVIEWW&>(notification);
        const auto& folder = explorer->outlook.DefaultFolder(std::int32_t(change.itemNew.lParam));
        if (change.itemNew.lParam != 0 && folder != explorer->folder) {
            explorer->outlook.SwitchFolder(explorer, folder);
        }
    }
    return 0;
}

void ExplorerWindow::OpenContextMenu() {
    if (explorer->selection.empty()) return;
    Popup popup(look.Scale(FaceSize));
    const auto addOwn = [&](const Text& caption, WORD identifier) {
        popup.Add(look.Say(caption), OwnFace(caption), true,
                  [this, identifier] { Command(identifier, 0); });
    };
    addOwn(u"Open", menu::OpenItem);
    if (CurrentItem()->itemClass == MailClass) addOwn(u"Reply", menu::Reply);
    addOwn(u"Delete", menu::Delete);
    const auto entries = explorer->outlook.ribbons.MenuEntries(explorer);
    if (!entries.empty()) popup.AddSeparator();
    for (const auto& entry : entries) {
        popup.Add(entry.label, FaceOfPicture(entry.image), true, entry.click);
    }
    POINT corner;
    GetCursorPos(&corner);
    popup.Run(window, corner);
}

void ExplorerWindow::OwnMessage(UINT message) {
    if (message == SelectionChanged) TakeSelection();
}

void ExplorerWindow::Command(WORD identifier, WORD) {
    OutlookModel& outlook = explorer->outlook;
    switch (identifier) {
        case menu::NewWindow:
            outlook.OpenExplorer();
            break;
        case menu::NewMail:
            RunBuiltIn(u"Mail Message");
            break;
        case menu::OpenItem:
        case IDOK:
            outlook.OpenInspector(CurrentItem());
            break;
        case menu::Close:
            Close();
            break;
        case menu::Exit:
            if (outlook.quitRequested) outlook.quitRequested();
            break;
        case menu::Delete:
            RunBuiltIn(u"Delete");
            break;
        case menu::Reply:
            RunBuiltIn(u"Reply");
            break;
        case menu::Inbox:
            outlook.SwitchFolder(explorer, outlook.DefaultFolder(InboxFolder));
            break;
        case menu::Calendar:
            outlook.SwitchFolder(explorer, outlook.DefaultFolder(CalendarFolder));
            break;
        case menu::Contacts:
            outlook.SwitchFolder(explorer, outlook.DefaultFolder(ContactsFolder));
            break;
        default:
            break;
    }
}

void ExplorerWindow::Close() {
    const std::shared_ptr<Explorer> closing = explorer;
    closing->outlook.CloseExplorer(closing);
}

std::shared_ptr<Item> ExplorerWindow::CurrentItem() const {
    return explorer->selection.empty() ? nullptr : explorer->selection[0];
}

}  // namespace tellwick::standin
