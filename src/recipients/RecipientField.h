// The recipient field: the list of recently used numbers, and the matches from the address list
// while the user types.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/Controls.h"
#include "settings/Services.h"

namespace tellwick {

class Addresses;
class Prefixes;
class RecipientPeople;

class RecipientField : private Services {
public:
    // Places and sizes the match list for a number of rows (1 to 10).
    using ListPlacer = std::function<void(std::int32_t rows)>;

    RecipientField(const Services& services, Prefixes& prefixes, Addresses& addresses,
                   RecipientPeople& recipientPeople, ComboBox& textTo, ListBox& listBoxNumbers,
                   StatusBar& statusBar1, ProgressBar& progressBar1, ListPlacer placeList);

    // The intended length of the list.
    std::int32_t NumUsedNumber = 10;

    // Takes the list's intended length over, and loads the country prefixes where that is due.
    void ReadSettings(std::int32_t numUsedNumber);

    // Loads the list, 49 numbers at most, and fills the drop-down.
    void GetListNumbers();

    // Puts a number at the head, unless it is in the list already, and refills the drop-down.
    void AddNumberToList(TextView number);

    // Writes the list back to the settings.
    void Save();

    // The form goes: Outlook's contacts are read no further, and who was chosen is forgotten.
    void StopReading();
    // The match list goes, and does not come back before the user types again.
    void StopSearch();

    // Sets the field's text without looking for matches; the user can undo it.
    void SetText(TextView text);
    bool IsEmpty() const { return textTo.GetText().empty(); }

    // The recipients in the field, as they are sent to: separated by ";" or ",", none empty.
    std::vector<Text> Recipients() const;

    // Sets the text of a field that did not keep it, by way of the match list.
    void SetTextByList(TextView text);

    // Adds recipients, separated by ";", to those in the field, except for those it holds already.
    void Add(TextView recipients);

    // Says in the status bar that a number was rewritten for want of prefixes in the settings, if
    // one was; until the user types again.
    void ShowPrefixHint();
    bool PrefixHintShown() const { return prefixHint; }

    // An item of the drop-down was chosen; the one that clears the list asks first.
    void TextTo_Click();

    // The text changed; when the user did it, shows the entries of the address list that match.
    void TextTo_Change();

    // The arrow keys move in the open match list; true when the key was used up.
    bool TextTo_KeyDown(std::int32_t keyCode, std::int32_t shift);
    void TextTo_LostFocus() { CloseMatches(); }
    void ListBoxNumbers_Click();
    // Rows down to this one are to be seen: those behind it are filled in time.
    void ListBoxNumbers_Scroll(std::int32_t lastRow);

    // Replaces the search text by the number of the chosen match, if one is, and closes the list.
    // Takes the first match when none is chosen and that is asked for.
    void TakeMatch(bool firstIfNone = false);

    void CloseMatches();

private:
    void Refill(std::size_t count);
    void TellRecent();
    Text SearchText() const;
    void ShowMatches();
    bool ShowsMatches() const;
    std::vector<Text> MatchRows(std::size_t first, std::size_t end) const;
    void Addresses_Change(bool listChanged);
    // The number, or numbers of a distribution list, of an entry as they are put into the field.
    std::vector<Text> NumbersOf(TextView entry);

    std::vector<Text> NumberList{1};   // most recent first
    std::int32_t NumberListBound = 0;  // upper index; -1 once the list was cleared
    Text fieldText;                    // before the item that clears the list was chosen
    bool prefixHint = false;
    bool setting = false;  // the program, not the user, changes the field

    bool searching = false;              // the user has typed, and chosen nothing yet
    std::vector<std::uint32_t> matches;  // entries of the address list, shown or still to be
    bool progressShown = false;

    Prefixes& prefixes;
    Addresses& addresses;
    RecipientPeople& recipientPeople;
    ComboBox& textTo;
    ListBox& listBoxNumbers;
    StatusBar& statusBar1;
    ProgressBar& progressBar1;
    ListPlacer placeList;
};

}  // namespace tellwick
