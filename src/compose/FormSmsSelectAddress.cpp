#include "compose/FormSmsSelectAddress.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <unordered_set>
#include <utility>

#include "recipients/Addresses.h"
#include "recipients/Prefixes.h"
#include "recipients/RecipientField.h"
#include "recipients/RecipientPeople.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView FormName = u"FormSmsSelectAddress";
constexpr TextView Places = u"Positions";
constexpr std::array<TextView, FormSmsSelectAddress::Columns> ColumnKeys{
    u"ColumnName", u"ColumnNumber", u"ColumnKind", u"ColumnFolder"};
constexpr std::array<std::int32_t, FormSmsSelectAddress::Columns> UsualWidths{160, 100, 80, 155};
constexpr std::array<TextView, KindCount> KindKeys{u"KindMobile",   u"KindHome",      u"KindHome2",
                                                   u"KindBusiness", u"KindBusiness2", u"KindCar",
                                                   u"KindOther",    u"KindPrimary",   u"KindList"};
constexpr std::int32_t WidestColumn = 4000;

// Milliseconds. To grow takes the list as long as a slice, for its scroll bar.
constexpr double Slice = 5;
constexpr std::uint32_t Interval = 15;
constexpr double ListInterval = 100;
constexpr std::size_t RowsAStep = 500;
// Of those marked: more would take the form too long, and are hardly meant.
constexpr std::size_t MostAdded = 1000;

Text WidthKey(std::size_t column) {
    return u"SMSSelectColumn" + NumberText(std::int64_t(column) + 1);
}

Text NameAndNumber(TextView name, TextView number) {
    return Text(name).append(AddressList::Separator).append(number).append(u")");
}

}  // namespace

FormSmsSelectAddress::FormSmsSelectAddress(const Services& services, FormSmsSelectAddressView& view,
                                           Forms& forms, Prefixes& prefixes, Addresses& addresses,
                                           RecipientPeople& recipientPeople,
                                           RecipientField& recipientField, Clock& clock,
                                           Timers& timers)
    : Services(services),
      rows(addresses),
      view(view),
      forms(forms),
      prefixes(prefixes),
      addresses(addresses),
      recipientPeople(recipientPeople),
      recipientField(recipientField),
      clock(clock),
      timers(timers) {
    view.SetEvents(*this);
    addresses.AddListener([this](bool listChanged) { Addresses_Change(listChanged); });
}

FormSmsSelectAddress::~FormSmsSelectAddress() {
    forms.Remove(*this);
}

void FormSmsSelectAddress::Show() {
    const bool opens = !view.Loaded();
    if (opens) {
        if (!view.Load()) return;
        Load();
    }
    view.Show();
    // Typing replaces what is looked for at first, as in any search.
    if (opens) view.TextSearch().Select(0, std::int32_t(view.TextSearch().GetText().size()));
    addresses.RefreshOnce();
}

void FormSmsSelectAddress::Load() {
    Procedure procedure{debug, u"Form_Load"};
    forms.Add(*this);
    language.GetLanguageStringsForForm(FormName, view);
    const auto setting = [&](TextView key) {
        return inifilesLite.GetIniSettingNum(Places, key, u"0");
    };
    const bool positioned = !inifilesLite.GetIniSetting(Places, u"SMSSelectPosx").empty();
    view.SetPlace({setting(u"SMSSelectPosx"), setting(u"SMSSelectPosy"), setting(u"SMSSelectx"),
                   setting(u"SMSSelecty")},
                  positioned);
    ListView& list = view.ListAddresses();
    for (std::size_t column = 0; column < Columns; ++column) {
        list.SetColumnCaption(column, language.TextOrBuiltIn(FormName, ColumnKeys[column]));
        const std::int32_t width = setting(WidthKey(column));
        list.SetColumnWidth(column,
                            width > 0 ? std::min(width, WidestColumn) : UsualWidths[column]);
    }
    list.SetSorted(sortedBy, descending);
    list.SetSource(
        [this](std::size_t row, std::size_t column) { return Cell(row, column); },
        [this](std::size_t first, TextView beginning) { return rows.Find(first, beginning); });
    std::vector<Text> recipients = recipientField.Recipients();
    // The beginning of a name, typed last, is what the user looks for.
    view.TextSearch().SetText({});
    if (!recipients.empty() && recipients.back().find_first_of(u"0123456789") == Text::npos) {
        view.TextSearch().SetText(recipients.back());
        recipients.pop_back();
    }
    const RowsOfNumbers found = addresses.List().RowsOf(recipients);
    chosen.clear();
    for (std::size_t at = 0; at < recipients.size(); ++at)
        chosen.push_back(Named(std::move(recipients[at]), found[at]));
    ShowChosen();
    FillFolders();
    SortRows();
}

void FormSmsSelectAddress::Unload() {
    if (!view.Loaded()) return;
    {
        const SettingsBatch batch{inifilesLite};
        const FormPlace place = view.Place();
        inifilesLite.SetIniSetting(Places, u"SMSSelectx", place.width);
        inifilesLite.SetIniSetting(Places, u"SMSSelecty", place.height);
        inifilesLite.SetIniSetting(Places, u"SMSSelectPosx", place.left);
        inifilesLite.SetIniSetting(Places, u"SMSSelectPosy", place.top);
        for (std::size_t column = 0; column < Columns; ++column) {
            inifilesLite.SetIniSetting(Places, WidthKey(column),
                                       view.ListAddresses().ColumnWidth(column));
        }
    }
    view.Unload();
    forms.Remove(*this);
    // What was rewritten and is not taken over needs no hint.
    prefixes.TakeRewritten();
    timer.reset();
    looking = addsOnly = false;
    rows.Clear();
}

void FormSmsSelectAddress::Addresses_Change(bool listChanged) {
    if (!view.Loaded()) return;
    if (listChanged) {
        FillFolders();
        // What it takes to find them is left to the timer: Outlook has waited for the change.
        rows.Sort(AddressRows::Order(sortedBy), descending);
        NarrowRows(0);
    } else {
        ShowStatus();
    }
}

// The rows ------------------------------------------------------------------------------------

// The first entry is for all folders.
void FormSmsSelectAddress::FillFolders() {
    ItemList& box = view.BoxFolder();
    std::vector<Text> names;
    for (std::size_t folder = 0; folder < addresses.Folders(); ++folder)
        names.push_back(addresses.FolderName(std::uint16_t(folder)));
    if (box.Count() > 0 && names == folderNames) return;
    folderNames = std::move(names);
    const Text before = box.SelectedIndex() > 0 ? box.Item(box.SelectedIndex()) : Text();
    box.Clear();
    box.Add(language.TextOrBuiltIn(FormName, u"AllFolders"));
    box.SetSelectedIndex(0);
    for (const Text& name : folderNames) {
        box.Add(name);
        if (name == before) box.SetSelectedIndex(box.Count() - 1);
    }
}

void FormSmsSelectAddress::SortRows() {
    rows.Sort(AddressRows::Order(sortedBy), descending);
    NarrowRows();
}

// What comes first is shown at once, the rest as it is found.
void FormSmsSelectAddress::NarrowRows(double firstSlice) {
    const std::int32_t folder = view.BoxFolder().SelectedIndex() - 1;
    rows.Narrow(view.TextSearch().GetText(),
                folder < 0 ? std::optional<std::uint16_t>() : std::uint16_t(folder));
    view.ListAddresses().SetRowCount(0);
    timer.reset();
    looking = true;
    FillRows(firstSlice);
    if (!looking) return;
    timer = timers.Create();
    timer->Start(Interval, [this] { TimerRows_Timer(); });
}

// Goes on for so many milliseconds.
void FormSmsSelectAddress::FillRows(double milliseconds) {
    const double end = clock.Milliseconds() + milliseconds;
    while (looking && clock.Milliseconds() < end) looking = rows.DoSome(RowsAStep);
    ListView& list = view.ListAddresses();
    const std::size_t found = rows.Shown().size();
    const double now = clock.Milliseconds();
    if (list.RowCount() == 0) {
        if (found != 0) list.SetRowCount(found);
        listed = now;
    } else if (!looking || now - listed >= ListInterval) {
        list.AddRows(found);
        listed = now;
    }
    ShowStatus();
    AddOnly();
}

void FormSmsSelectAddress::TimerRows_Timer() {
    Procedure procedure{debug, u"TimerRows_Timer"};
    // Stopped while it works: a step that fails is not done again, and again.
    timer->Stop();
    FillRows(Slice);
    if (looking) timer->Start(Interval, [this] { TimerRows_Timer(); });
}

void FormSmsSelectAddress::ShowStatus() {
    Text text;
    if (addresses.Reading() && !addresses.FolderBeingRead().empty()) {
        text = ReplaceAll(language.TextOrBuiltIn(FormName, u"Reading"), u"%f",
                          addresses.FolderBeingRead());
        text = ReplaceAll(text, u"%n", NumberText(addresses.Progress()));
    } else if (!addresses.Failed().empty()) {
        text =
            ReplaceAll(language.TextOrBuiltIn(FormName, u"NotRead"), u"%f", addresses.Failed()[0]);
    } else {
        text = ReplaceAll(language.TextOrBuiltIn(FormName, u"Matches"), u"%n",
                          NumberText(std::int64_t(rows.Shown().size())));
    }
    if (view.StatusBar1().GetText() != text) view.StatusBar1().SetText(text);
}

Text FormSmsSelectAddress::KindText(NumberKind kind) const {
    return language.TextOrBuiltIn(FormName, KindKeys[std::size_t(kind)]);
}

MarkedText FormSmsSelectAddress::Cell(std::size_t index, std::size_t column) const {
    if (index >= rows.Shown().size()) return {};
    const AddressRow row = addresses.List().Row(rows.Shown()[index]);
    const AddressSearch& search = rows.Search();
    switch (column) {
        case Name:
            return search.MarkWords(row.company.empty() || row.company == row.name
                                        ? Text(row.name)
                                        : Text(row.name).append(u", ").append(row.company));
        case Number:
            return search.MarkNumber(row.number);
        case Kind:
            return {KindText(row.kind), {}};
        default:
            return search.MarkWords(addresses.FolderTitle(row.folder));
    }
}

void FormSmsSelectAddress::TextSearch_Change() {
    Procedure procedure{debug, u"TextSearch_Change"};
    addsOnly = false;
    NarrowRows();
}

void FormSmsSelectAddress::BoxFolder_Click() {
    Procedure procedure{debug, u"BoxFolder_Click"};
    addsOnly = false;
    NarrowRows();
}

void FormSmsSelectAddress::ListAddresses_ColumnClick(std::size_t column) {
    Procedure procedure{debug, u"ListAddresses_ColumnClick"};
    descending = column == sortedBy && !descending;
    sortedBy = column;
    view.ListAddresses().SetSorted(sortedBy, descending);
    SortRows();
}

// Those chosen --------------------------------------------------------------------------------

FormSmsSelectAddress::Recipient FormSmsSelectAddress::Named(
    Text number, const std::vector<std::uint32_t>& rowsOf) const {
    Text shown =
        rowsOf.empty() ? number : NameAndNumber(addresses.List().Row(rowsOf[0]).name, number);
    return {std::move(number), std::move(shown)};
}

void FormSmsSelectAddress::ShowChosen() {
    std::vector<Text> items;
    items.reserve(chosen.size());
    for (const Recipient& recipient : chosen) items.push_back(recipient.shown);
    view.ListChosen().SetItems(items);
    view.ButtonRemove().SetEnabled(!chosen.empty());
}

void FormSmsSelectAddress::ButtonAdd_Click() {
    Procedure procedure{debug, u"ButtonAdd_Click"};
    const ListView& list = view.ListAddresses();
    const std::size_t marked = list.ChosenCount();
    addsOnly = marked == 0;
    if (addsOnly) {
        AddOnly();
        return;
    }
    AddRows(list.ChosenRows(MostAdded));
    if (marked <= MostAdded) return;
    view.StatusBar1().SetText(ReplaceAll(language.TextOrBuiltIn(FormSmsSendTexts, u"SelectionCut"),
                                         u"%n", NumberText(std::int64_t(MostAdded))));
}

// That it is the only one is known when all rows were looked at.
void FormSmsSelectAddress::AddOnly() {
    const std::size_t found = rows.Shown().size();
    if (!addsOnly || (looking && found < 2)) return;
    addsOnly = false;
    if (found == 1) AddRows({0});
}

void FormSmsSelectAddress::AddRows(const std::vector<std::size_t>& places) {
    struct Pick {
        std::size_t index;
        AddressRow row;
        std::vector<Text> numbers;
    };
    const AddressList& list = addresses.List();
    std::vector<Pick> picks;
    std::vector<Text> members;  // of all distribution lists
    for (const std::size_t place : places) {
        if (place >= rows.Shown().size()) continue;
        const std::size_t index = rows.Shown()[place];
        picks.push_back({index, list.Row(index), {}});
        for (const Text& number : Split(picks.back().row.number, u";"))
            picks.back().numbers.push_back(prefixes.NationalNumber(number));
        if (picks.back().row.kind == NumberKind::List)
            members.insert(members.end(), picks.back().numbers.begin(), picks.back().numbers.end());
    }
    const RowsOfNumbers found = list.RowsOf(members);
    std::size_t firstMember = 0;
    std::unordered_set<Text> present;
    for (const Recipient& recipient : chosen) present.insert(recipient.number);
    const auto add = [&](Recipient recipient) {
        if (present.insert(recipient.number).second) chosen.push_back(std::move(recipient));
    };
    for (Pick& pick : picks) {
        // Of a list each number is one member's; any other belongs to the person of the row.
        if (pick.row.kind == NumberKind::List) {
            const auto rowsOf = std::span(found).subspan(firstMember, pick.numbers.size());
            firstMember += pick.numbers.size();
            recipientPeople.ChooseMembers(pick.row.item, pick.numbers, rowsOf);
            for (std::size_t at = 0; at < pick.numbers.size(); ++at)
                add(Named(std::move(pick.numbers[at]), rowsOf[at]));
        } else {
            recipientPeople.ChooseRow(pick.index, pick.numbers);
            for (Text& number : pick.numbers) {
                Text shown = NameAndNumber(pick.row.name, number);
                add({std::move(number), std::move(shown)});
            }
        }
    }
    ShowChosen();
    if (!chosen.empty()) view.ListChosen().SetSelectedIndex(std::int32_t(chosen.size()) - 1);
}

void FormSmsSelectAddress::ButtonRemove_Click() {
    Procedure procedure{debug, u"ButtonRemove_Click"};
    const std::int32_t index = view.ListChosen().SelectedIndex();
    if (index < 0 || std::size_t(index) >= chosen.size()) return;
    chosen.erase(chosen.begin() + index);
    ShowChosen();
    view.ListChosen().SetSelectedIndex(std::min(index, std::int32_t(chosen.size()) - 1));
}

void FormSmsSelectAddress::ButtonOK_Click() {
    Procedure procedure{debug, u"ButtonOK_Click"};
    // Add was asked for before. Where looking fails, those chosen are not to wait for it again.
    if (std::exchange(addsOnly, false)) {
        while (looking && rows.Shown().size() < 2) FillRows(Slice);
        if (rows.Shown().size() == 1) AddRows({0});
    }
    Text field;
    for (const Recipient& recipient : chosen) {
        if (!field.empty()) field += u';';
        field += recipient.number;
    }
    recipientField.SetText(field);
    recipientField.ShowPrefixHint();
    Unload();
}

}  // namespace tellwick
