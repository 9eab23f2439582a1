// The list of all SMS in the spool, the newest one on top.
#pragma once

#include "windows/Com.h"

#include <commctrl.h>

#include <map>
#include <optional>
#include <vector>

#include "settings/LanguageTexts.h"
#include "spool/Spool.h"
#include "windows/MessageFont.h"

namespace tellwick::sender {

class SmsList {
public:
    struct Row {
        Text id;
        State state = State::Waiting;
    };

    SmsList(Spool& spool, LanguageTexts& language) : spool(spool), language(language) {}

    HWND Create(HWND parent, int identifier, const windows::MessageFont& font);

    // Reads what is in the spool. Of each change behind that it has to hear.
    void Load();
    void Changed(const Text& id, std::optional<State> state);
    // Shows what has changed; the chosen rows stay chosen.
    void Refresh();

    std::vector<Row> Chosen() const;
    void ChooseAll() const { ListView_SetItemState(list, -1, LVIS_SELECTED, LVIS_SELECTED); }
    // What the control asks its window.
    LRESULT Answer(NMHDR& notification);

private:
    // Rows stand in the order of their ids, the list in the other one.
    std::size_t Place(std::size_t shown) const { return rows.size() - 1 - shown; }
    Text Cell(const Row& row, int column);
    const SpooledSms& Read(const Row& row);

    Spool& spool;
    LanguageTexts& language;
    HWND list = nullptr;
    bool loaded = false;
    bool stale = false;
    std::vector<Row> rows;
    std::vector<Text> chosen;         // ids, while stale
    std::map<Text, SpooledSms> read;  // some of them
    Text shown;                       // what the control was given last
};

}  // namespace tellwick::sender
