#include "recipients/RecipientField.h"

#include <algorithm>
#include <utility>

#include "platform/Keys.h"
#include "platform/Meanwhile.h"
#include "recipients/Addresses.h"
#include "recipients/Prefixes.h"
#include "recipients/RecipientList.h"
#include "recipients/RecipientPeople.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"
#include "settings/QuestionBox.h"

namespace tellwick {

namespace {

constexpr TextView ListSection = u"SMSNumberList";
constexpr std::int32_t FirstUnread = 50;  // so many keys less one are ever read
constexpr std::int32_t AskClear = 52;
constexpr std::uint32_t AskClearStyle = QuestionBox::AffirmativeIsOne | box::YesNo;
constexpr std::int32_t LongestList = 10000;  // whatever the setting says
// Of the match list, which is built with each key: what is behind is filled when it comes near.
constexpr std::size_t MostRowsShown = 10;
constexpr std::size_t FirstRows = 4 * MostRowsShown;
constexpr std::size_t MoreRows = 200;

Text NumberKey(std::int32_t position) {
    return u"Number" + NumberText(position);
}

// Where the last of the field's recipients begins.
std::size_t SearchStart(TextView field) {
    const std::size_t separator = field.find_last_of(u";,");
    const std::size_t start = separator == TextView::npos ? 0 : separator + 1;
    return std::min(field.find_first_not_of(u' ', start), field.size());
}

}  // namespace

RecipientField::RecipientField(const Services& services, Prefixes& prefixes, Addresses& addresses,
                               RecipientPeople& recipientPeople, ComboBox& textTo,
                               ListBox& listBoxNumbers, StatusBar& statusBar1,
                               ProgressBar& progressBar1, ListPlacer placeList)
    : Services(services),
      prefixes(prefixes),
      addresses(addresses),
      recipientPeople(recipientPeople),
      textTo(textTo),
      listBoxNumbers(listBoxNumbers),
      statusBar1(statusBar1),
      progressBar1(progressBar1),
      placeList(std::move(placeList)) {
    addresses.AddListener([this](bool listChanged) { Addresses_Change(listChanged); });
}

void RecipientField::ReadSettings(std::int32_t numUsedNumber) {
    NumUsedNumber = numUsedNumber;
    prefixes.LoadPrefixes();
    // The hint has nothing to say any more once the settings name a prefix.
    if (prefixHint && !prefixes.NamesNone()) {
        prefixHint = false;
        ShowPrefixHint();
    }
}

void RecipientField::GetListNumbers() {
    Procedure procedure{debug, u"GetListNumbers"};
    prefixHint = false;  // of the form before
    NumberList.clear();
    NumberListBound = -1;
    for (std::int32_t position = 1; position < FirstUnread; ++position) {
        Text number = inifilesLite.GetIniSetting(ListSection, NumberKey(position));
        if (number.empty()) break;
        NumberList.push_back(std::move(number));
    }
    if (NumberList.empty()) NumberList.emplace_back();
    NumberListBound = std::int32_t(NumberList.size()) - 1;
    Refill(NumberList.size());
    if (textTo.Count() >= 1) textTo.Add(language.TextOrBuiltIn(FormSmsSendTexts, u"ListClear"));
    if (textTo.Count() >= 2) textTo.SetSelectedIndex(0);
    TellRecent();
    addresses.NeededAnew();
}

void RecipientField::TellRecent() {
    std::vector<Text> recent;
    for (const Text& entry : NumberList) {
        for (Text& number : RecipientsIn(entry)) recent.push_back(std::move(number));
    }
    addresses.SetRecent(recent);
}

std::vector<Text> RecipientField::Recipients() const {
    return RecipientsIn(textTo.GetText());
}

void RecipientField::Refill(std::size_t count) {
    textTo.Clear();
    for (std::size_t index = 0; index < count; ++index) {
        if (!NumberList[index].empty()) textTo.Add(NumberList[index]);
    }
}

void RecipientField::AddNumberToList(TextView number) {
    Procedure procedure{debug, u"AddNumberToList"};
    // A number that is there already keeps its place.
    if (std::find(NumberList.begin(), NumberList.end(), number) != NumberList.end()) return;
    // What needs memory comes first, so that the list is never left with less than it had.
    Text first(number);
    // One cell more than intended, and from there on one more with every number. Deliberate, as is
    // what is shown and what is cleared: "The list of recent numbers".
    const std::int32_t intended = std::min(NumUsedNumber, LongestList);
    const bool grows = NumberList.empty() || !NumberList.back().empty();
    const std::int32_t moved = NumberListBound + (grows ? 1 : 0);
    const std::int32_t bound = std::max(moved, intended);
    NumberList.resize(std::size_t(bound) + 1);
    NumberListBound = bound;
    std::move_backward(NumberList.begin(), NumberList.begin() + moved,
                       NumberList.begin() + moved + 1);
    NumberList[0] = std::move(first);
    // Neither the last cell nor the item that clears the list. Deliberate.
    Refill(std::size_t(NumberListBound));
    TellRecent();
}

void RecipientField::Save() {
    for (std::int32_t index = 0; index <= NumberListBound; ++index) {
        const Text& number = NumberList[std::size_t(index)];
        // Most of a long list is cells without a number, and nothing to be taken away for them.
        if (number.empty() && inifilesLite.GetIniSetting(ListSection, NumberKey(index + 1)).empty())
            continue;
        inifilesLite.SetIniSetting(ListSection, NumberKey(index + 1), number);
    }
}

void RecipientField::StopSearch() {
    searching = false;
    listBoxNumbers.SetVisible(false);
}

void RecipientField::StopReading() {
    searching = false;
    addresses.Stop();
    recipientPeople.Forget();
}

void RecipientField::SetText(TextView text) {
    const Meanwhile set(setting, true);
    textTo.Select(0, std::int32_t(textTo.GetText().size()));
    textTo.ReplaceSelection(text);
    // A user who is in the field goes on behind it, any other sees its beginning.
    if (!textTo.HasFocus()) textTo.Select(0, 0);
    fieldText = text;
}

void RecipientField::SetTextByList(TextView text) {
    listBoxNumbers.Add(text);
    TakeMatch(true);
    SetText(text);
    listBoxNumbers.SetSelectedIndex(-1);
}

void RecipientField::Add(TextView recipients) {
    Text field = Trimmed(textTo.GetText());
    std::vector<Text> present = RecipientsIn(field);
    for (Text& recipient : RecipientsIn(recipients)) {
        if (std::find(present.begin(), present.end(), recipient) != present.end()) continue;
        if (!field.empty() && field.back() != u';' && field.back() != u',') field += u';';
        field += recipient;
        present.push_back(std::move(recipient));
    }
    SetText(field);
    ShowPrefixHint();
}

void RecipientField::ShowPrefixHint() {
    prefixHint = prefixes.TakeRewritten() || prefixHint;
    statusBar1.SetText(prefixHint ? language.TextOrBuiltIn(FormSmsSendTexts, u"PrefixHint")
                                  : Text());
}

void RecipientField::TextTo_Click() {
    Procedure procedure{debug, u"TextTo_Click"};
    if (textTo.GetText() != language.TextOrBuiltIn(FormSmsSendTexts, u"ListClear")) {
        fieldText = textTo.GetText();
        return;
    }
    const bool clear = questionBox.MsgBoxMessage(AskClear, AskClearStyle) == Answer::Ok;
    if (clear) {
        const SettingsBatch batch{inifilesLite};
        // One key more than there are items. Deliberate: "The list of recent numbers".
        for (std::int32_t index = 0, count = textTo.Count(); index <= count; ++index) {
            inifilesLite.SetIniSetting(ListSection, NumberKey(index + 1), u"");
        }
        NumberList.clear();
        NumberListBound = -1;
        textTo.Clear();
        TellRecent();
    }
    // The item's text is no recipient.
    SetText(Text(fieldText));
}

void RecipientField::TextTo_Change() {
    if (setting) return;
    Procedure procedure{debug, u"TextTo_Change"};
    fieldText = textTo.GetText();
    prefixHint = false;
    searching = true;
    if (!SearchText().empty()) addresses.RefreshOnce();
    addresses.GiveWay();
    ShowMatches();
}

Text RecipientField::SearchText() const {
    return Trimmed(TextView(fieldText).substr(SearchStart(fieldText)));
}

void RecipientField::ShowMatches() {
    const AddressList& list = addresses.List();
    matches = list.Matches(SearchText());
    if (matches.empty()) {
        CloseMatches();
        searching = true;  // what is still being read may match
        return;
    }
    // A row that the arrow keys chose stays chosen while it matches.
    const std::int32_t chosen = listBoxNumbers.SelectedIndex();
    const Text chosenEntry = chosen < 0 ? Text() : listBoxNumbers.Item(chosen);
    std::size_t chosenNow = chosen < 0 ? matches.size() : 0;
    while (chosenNow < matches.size() && list.EntryText(matches[chosenNow]) != chosenEntry)
        ++chosenNow;
    if (!ShowsMatches()) {
        listBoxNumbers.SetItems(
            MatchRows(0, chosenNow < matches.size() ? chosenNow + FirstRows : FirstRows));
        if (chosenNow < matches.size()) listBoxNumbers.SetSelectedIndex(std::int32_t(chosenNow));
    }
    placeList(std::int32_t(std::min(matches.size(), MostRowsShown)));
    listBoxNumbers.SetVisible(true);
    statusBar1.SetText(ReplaceAll(language.TextOrBuiltIn(FormSmsSendTexts, u"Matches"), u"%n",
                                  NumberText(std::int64_t(matches.size()))));
}

// As far as the list is filled. It stays as it is then, where the user has scrolled it.
bool RecipientField::ShowsMatches() const {
    const auto filled = std::size_t(listBoxNumbers.Count());
    if (!listBoxNumbers.Visible() ||
        filled != std::min(std::max(filled, FirstRows), matches.size()))
        return false;
    for (std::size_t row = 0; row < filled; ++row) {
        if (listBoxNumbers.Item(std::int32_t(row)) != addresses.List().EntryText(matches[row]))
            return false;
    }
    return true;
}

std::vector<Text> RecipientField::MatchRows(std::size_t first, std::size_t end) const {
    std::vector<Text> rows;
    for (std::size_t row = first; row < std::min(end, matches.size()); ++row)
        rows.push_back(addresses.List().EntryText(matches[row]));
    return rows;
}

void RecipientField::ListBoxNumbers_Scroll(std::int32_t lastRow) {
    const auto filled = std::size_t(listBoxNumbers.Count());
    if (!listBoxNumbers.Visible() || std::size_t(lastRow) + MostRowsShown < filled) return;
    const std::vector<Text> more = MatchRows(filled, std::size_t(lastRow) + MoreRows);
    if (!more.empty()) listBoxNumbers.AddItems(more);
}

// Outlook's contacts are being read, or were.
void RecipientField::Addresses_Change(bool listChanged) {
    if (!searching) {
        if (std::exchange(progressShown, false)) progressBar1.SetValue(0);
        return;
    }
    if (listChanged) ShowMatches();
    if (addresses.Reading()) {
        progressShown = true;
        progressBar1.SetValue(addresses.Progress());
        if (addresses.FolderBeingRead().empty()) return;
        statusBar1.SetText(ReplaceAll(language.TextOrBuiltIn(FormSmsSendTexts, u"Reading"), u"%f",
                                      addresses.FolderBeingRead()));
    } else if (std::exchange(progressShown, false)) {
        progressBar1.SetValue(0);
        ShowMatches();
        if (addresses.Failed().empty()) return;
        statusBar1.SetText(ReplaceAll(language.TextOrBuiltIn(FormSmsSendTexts, u"NotRead"), u"%f",
                                      addresses.Failed()[0]));
    }
}

bool RecipientField::TextTo_KeyDown(std::int32_t keyCode, [[maybe_unused]] std::int32_t shift) {
    const std::int32_t step = keyCode == key::Up ? -1 : keyCode == key::Down ? 1 : 0;
    if (step == 0 || !listBoxNumbers.Visible()) return false;
    const std::int32_t row = std::max(listBoxNumbers.SelectedIndex() + step, 0);
    ListBoxNumbers_Scroll(row);
    listBoxNumbers.SetSelectedIndex(std::min(row, listBoxNumbers.Count() - 1));
    return true;
}

void RecipientField::ListBoxNumbers_Click() {
    Procedure procedure{debug, u"ListBoxNumbers_Click"};
    TakeMatch();
}

void RecipientField::TakeMatch(bool firstIfNone) {
    std::int32_t row = listBoxNumbers.SelectedIndex();
    if (row < 0 && firstIfNone) row = 0;
    if (row >= 0 && row < listBoxNumbers.Count()) {
        Text field = textTo.GetText();
        field.resize(SearchStart(field));
        const Text entry = listBoxNumbers.Item(row);
        const std::vector<Text> numbers = NumbersOf(entry);
        if (std::size_t(row) < matches.size()) {
            const AddressList& list = addresses.List();
            const std::uint32_t match = matches[std::size_t(row)];
            if (match < list.Size() && list.EntryText(match) == entry)
                recipientPeople.ChooseRow(list.EntryAt(match).row, numbers);
        }
        Text joined;
        for (const Text& number : numbers) {
            if (!joined.empty()) joined += u';';
            joined += number;
        }
        SetText(field + joined);
    }
    CloseMatches();
}

std::vector<Text> RecipientField::NumbersOf(TextView entry) {
    const std::size_t open = entry.rfind(u'(');
    if (open == TextView::npos || entry.find(u';', open) == TextView::npos)
        return {prefixes.GetNumber(entry)};
    std::vector<Text> numbers;
    for (const Text& number : Split(entry.substr(open + 1), u";"))
        numbers.push_back(prefixes.GetNumber(u"(" + number));
    return numbers;
}

void RecipientField::CloseMatches() {
    searching = false;
    if (listBoxNumbers.Visible()) {
        listBoxNumbers.SetVisible(false);
        listBoxNumbers.Clear();
    }
    matches.clear();
    ShowPrefixHint();
}

}  // namespace tellwick
