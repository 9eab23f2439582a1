// The text templates: short texts that the user keeps and inserts into messages.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/Controls.h"
#include "settings/Services.h"

namespace tellwick {

// Sorts in place, ascending by the character codes of the lower-cased texts, up to the index
// `bound`; a negative bound stands for the list's own upper bound.
void SortList(Debug& debug, std::vector<Text>& list, std::int32_t bound);

class TextTemplates : private Services {
public:
    // Puts a text into the message, at the caret.
    using Inserter = std::function<void(TextView text)>;

    TextTemplates(const Services& services, ComboBox& comboBoxTextbausteine, Inserter insert);

    // Loads the templates, 100 at most, and sorts them: those that an administrator has fixed, else
    // the user's, else those that an administrator has given for a beginning.
    void GetTextbausteine();
    // Fills the drop-down, unless it is filled: for when it comes to be seen.
    void Fill();
    // Writes the templates back to the settings.
    void Save();

    // Enter and a double click insert; true when the key was used up.
    bool ComboBoxTextbausteine_KeyDown(std::int32_t keyCode, std::int32_t shift);
    void ComboBoxTextbausteine_DblClick() { ButtonInsert_Click(); }

    // Adds the drop-down's text as a template, deletes the chosen one, inserts the current one.
    void ButtonAdd_Click();
    void ButtonDel_Click();
    void ButtonInsert_Click();

private:
    std::vector<Text> OwnTemplates();
    // Tells the user so where an administrator has fixed the templates.
    bool Fixed();
    void Refill();
    void InsertText(TextView text);
    bool IsEmpty() const { return TemplateListBound < 1 && TemplateList[0].empty(); }

    std::vector<Text> TemplateList{1};  // never shorter; one empty text stands for no template
    std::int32_t TemplateListBound = 0;
    std::vector<Text> loaded;  // as TemplateList was at first
    bool fixed = false;        // by an administrator
    bool given = false;        // the user has none of his own

    ComboBox& comboBoxTextbausteine;
    Inserter insert;
};

}  // namespace tellwick
