// The list of all SMS in the spool, the newest one on top.
#pragma once

#include "windows/Com.h"

#include <commctrl.h>

#include <map>
#include <optional>
#include <vector>

#include "forms/SmsRows.h"
#include "settings/LanguageTexts.h"
#include "windows/MessageFont.h"

namespace tellwick::sender {

// In the user's language.
Text InWords(State state, LanguageTexts& language);

class SmsList {
public:
    using Row = SmsRows::Row;

    SmsList(Spool& spool, LanguageTexts& language)
        : spool(spool), language(language), rows(spool) {}

    HWND Create(HWND parent, int identifier);
    // Also for a new resolution: columns keep what the user made of their widths.
    void SetFont(const windows::MessageFont& font);

    // Reads what is in the spool.
    void Load();
    bool Loaded() const { return rows.Loaded(); }
    // Has to hear of each change behind that.
    void Changed(const Text& id, std::optional<State> state);
    // Shows what has changed; the chosen rows stay chosen.
    void Refresh();

    // Shows those that have the text; all for an empty one.
    void Search(TextView text);
    // Looks at some more of them. Whether some are left.
    bool SearchMore();
    bool Searches() const { return rows.Searches(); }
    std::size_t Count() const { return rows.Count(); }

    std::vector<Row> Chosen() const;
    void ChooseAll() const { ListView_SetItemState(list, -1, LVIS_SELECTED, LVIS_SELECTED); }
    // All that is known of an SMS, to be read; empty when it is gone.
    Text Details(const Row& row);
    // What the control asks its window.
    LRESULT Answer(NMHDR& notification);

private:
    Text Cell(const Row& row, int column);
    const SpooledSms& Read(const Row& row);
    void Keep();

    Spool& spool;
    LanguageTexts& language;
    HWND list = nullptr;
    int resolution = 0;
    SmsRows rows;
    bool stale = false;
    std::vector<Row> chosen;          // while stale
    std::map<Text, SpooledSms> read;  // some of them
    Text shown;                       // what the control was given last
};

}  // namespace tellwick::sender
