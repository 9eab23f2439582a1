#include "windows/SmsList.h"

#include <algorithm>
#include <array>

#include "air/AirCount.h"
#include "spool/SenderTexts.h"

namespace tellwick::sender {

namespace {

enum Column { Time, Recipient, Message, Parts, Condition, Why, Columns };

struct ColumnLook {
    TextView name;
    int width;  // in dialog units
};
constexpr std::array<ColumnLook, Columns> Looks{{{u"ColumnTime", 82},
                                                 {u"ColumnRecipient", 72},
                                                 {u"ColumnText", 130},
                                                 {u"ColumnParts", 28},
                                                 {u"ColumnState", 62},
                                                 {u"ColumnReason", 170}}};

constexpr std::size_t MostRead = 200;
constexpr std::size_t ShownOfText = 250;

TextView NameOf(State state) {
    switch (state) {
        case State::Waiting:
            return u"StateWaiting";
        case State::Sending:
            return u"StateSending";
        case State::Unsure:
            return u"StateUnsure";
        case State::Sent:
            return u"StateSent";
        default:
            return u"StateFailed";
    }
}

// As the user's regional settings have it.
Text LocalTime(double time) {
    SYSTEMTIME moment;
    if (!VariantTimeToSystemTime(time, &moment)) return {};
    wchar_t date[80] = L"";
    wchar_t clock[80] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &moment, nullptr, date, 80);
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &moment, nullptr, clock, 80);
    return windows::FromWide(date) + u" " + windows::FromWide(clock);
}

bool Before(const SmsList::Row& row, const Text& id) {
    return row.id < id;
}

}  // namespace

HWND SmsList::Create(HWND parent, int identifier, const windows::MessageFont& font) {
    list = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, nullptr,
                           WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS |
                               LVS_OWNERDATA | LVS_NOSORTHEADER,
                           0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)),
                           GetModuleHandleW(nullptr), nullptr);
    if (!list) return nullptr;
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_INFOTIP);
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    for (int number = 0; number < Columns; ++number) {
        Text caption = SenderText(language, Looks[std::size_t(number)].name);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = number == Parts ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.cx = font.Metrics().Horizontal(Looks[std::size_t(number)].width);
        column.pszText = reinterpret_cast<wchar_t*>(caption.data());
        SendMessageW(list, LVM_INSERTCOLUMNW, WPARAM(number), reinterpret_cast<LPARAM>(&column));
    }
    return list;
}

void SmsList::Load() {
    rows.clear();
    for (const State state :
         {State::Waiting, State::Sending, State::Unsure, State::Sent, State::Failed}) {
        for (Text& id : spool.Ids(state)) rows.push_back({std::move(id), state});
    }
    std::sort(rows.begin(), rows.end(),
              [](const Row& left, const Row& right) { return left.id < right.id; });
    loaded = true;
    Refresh();
}

void SmsList::Changed(const Text& id, std::optional<State> state) {
    if (!loaded) return;
    if (!stale) {
        chosen.clear();
        for (Row& row : Chosen()) chosen.push_back(std::move(row.id));
        stale = true;
    }
    read.erase(id);
    const auto place = std::lower_bound(rows.begin(), rows.end(), id, Before);
    const bool known = place != rows.end() && place->id == id;
    if (!state) {
        if (known) rows.erase(place);
    } else if (known) {
        place->state = *state;
    } else {
        rows.insert(place, {id, *state});
    }
}

void SmsList::Refresh() {
    ListView_SetItemCountEx(list, int(rows.size()), LVSICF_NOSCROLL);
    InvalidateRect(list, nullptr, FALSE);
    if (!std::exchange(stale, false)) return;
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
    for (const Text& id : chosen) {
        const auto place = std::lower_bound(rows.begin(), rows.end(), id, Before);
        if (place == rows.end() || place->id != id) continue;
        const std::size_t number = Place(std::size_t(place - rows.begin()));
        ListView_SetItemState(list, int(number), LVIS_SELECTED, LVIS_SELECTED);
    }
}

std::vector<SmsList::Row> SmsList::Chosen() const {
    std::vector<Row> result;
    if (stale) {
        for (const Text& id : chosen) {
            const auto place = std::lower_bound(rows.begin(), rows.end(), id, Before);
            if (place != rows.end() && place->id == id) result.push_back(*place);
        }
        return result;
    }
    for (int item = -1; (item = ListView_GetNextItem(list, item, LVNI_SELECTED)) >= 0;) {
        if (std::size_t(item) < rows.size()) result.push_back(rows[Place(std::size_t(item))]);
    }
    return result;
}

const SpooledSms& SmsList::Read(const Row& row) {
    const auto known = read.find(row.id);
    if (known != read.end()) return known->second;
    if (read.size() >= MostRead) read.clear();
    return read.emplace(row.id, spool.Load(row.state, row.id).value_or(SpooledSms())).first->second;
}

Text SmsList::Cell(const Row& row, int column) {
    if (column == Condition) return SenderText(language, NameOf(row.state));
    const SpooledSms& sms = Read(row);
    switch (column) {
        case Time:
            return LocalTime(sms.accepted);
        case Recipient:
            return sms.recipient;
        case Message:
            return OneLine(TextView(sms.text).substr(0, ShownOfText));
        case Parts:
            return NumberText(std::int64_t(CountOnAir(sms.text).parts.size()));
        default:
            return InWords(sms.reason, language);
    }
}

LRESULT SmsList::Answer(NMHDR& notification) {
    if (notification.code != LVN_GETDISPINFOW) return 0;
    LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(notification).item;
    const auto number = std::size_t(item.iItem);
    if (!(item.mask & LVIF_TEXT) || number >= rows.size()) return 0;
    shown = Cell(rows[Place(number)], item.iSubItem);
    item.pszText = reinterpret_cast<wchar_t*>(shown.data());
    return 0;
}

}  // namespace tellwick::sender
