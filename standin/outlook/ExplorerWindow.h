// An explorer on the screen: folders, the folder's items, and what the first selected item says.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <map>

#include "outlook/Frame.h"

namespace tellwick::standin {

class ExplorerWindow : public Frame {
public:
    static constexpr wchar_t ClassName[] = L"OutlookStandInExplorer";

    ExplorerWindow(const Look& look, std::shared_ptr<Explorer> explorer);

    void Refresh() override;
    // Where an item's line is on the screen. False when it is not in the list.
    bool FindItem(const std::shared_ptr<Item>& item, RECT& rectangle) const;

protected:
    void Layout(const RECT& inside) override;
    void Command(WORD identifier, WORD code) override;
    LRESULT Notify(const NMHDR& notification) override;
    void OwnMessage(UINT message) override;
    void Close() override;
    std::shared_ptr<Item> CurrentItem() const override;

private:
    void FillList();
    void ShowRow(std::size_t row);
    void ShowSelection();
    void TakeSelection();
    void OpenContextMenu();

    std::shared_ptr<Explorer> explorer;
    HWND folderTree = nullptr;
    HWND itemList = nullptr;
    HWND preview = nullptr;
    HWND status = nullptr;
    std::map<const Folder*, HTREEITEM> folderEntries;
    std::shared_ptr<Folder> shownFolder;
    Text shownBody;
    std::vector<std::shared_ptr<Item>> shownItems;
    std::vector<double> shownSaves;  // when each was saved last
    bool filling = false;            // changes of the controls are not the user's
    bool selectionPosted = false;
};

}  // namespace tellwick::standin
