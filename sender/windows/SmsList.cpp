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
constexpr std::size_t MostOfDetails = 2000;

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

// Of one that was sent.
TextView NameOf(Arrival arrival) {
    if (arrival == Arrival::Unknown) return NameOf(State::Sent);
    return arrival == Arrival::Delivered ? u"StateDelivered" : u"StateNotDelivered";
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

}  // namespace

Text InWords(State state, LanguageTexts& language) {
    return SenderText(language, NameOf(state));
}

HWND SmsList::Create(HWND parent, int identifier) {
    list = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, nullptr,
                           WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS |
                               LVS_OWNERDATA | LVS_NOSORTHEADER,
                           0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)),
                           GetModuleHandleW(nullptr), nullptr);
    if (!list) return nullptr;
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_INFOTIP);
    for (int number = 0; number < Columns; ++number) {
        Text caption = SenderText(language, Looks[std::size_t(number)].name);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_FMT;
        column.fmt = number == Parts ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.pszText = reinterpret_cast<wchar_t*>(caption.data());
        SendMessageW(list, LVM_INSERTCOLUMNW, WPARAM(number), reinterpret_cast<LPARAM>(&column));
    }
    return list;
}

void SmsList::SetFont(const windows::MessageFont& font) {
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    const int before = std::exchange(resolution, font.Resolution());
    for (int number = 0; number < Columns; ++number) {
        const ColumnLook& look = Looks[std::size_t(number)];
        const int least = font.CaptionWidth(SenderText(language, look.name));
        const int width = before ? MulDiv(ListView_GetColumnWidth(list, number), resolution, before)
                                 : std::max(least, font.Metrics().Horizontal(look.width));
        ListView_SetColumnWidth(list, number, width);
    }
}

// Of what is chosen, before rows move.
void SmsList::Keep() {
    if (stale) return;
    chosen = Chosen();
    stale = true;
}

void SmsList::Load() {
    Keep();
    read.clear();
    rows.Load();
    Refresh();
}

void SmsList::Changed(const Text& id, std::optional<State> state) {
    if (!rows.Loaded()) return;
    Keep();
    read.erase(id);
    rows.Changed(id, state);
}

void SmsList::Search(TextView text) {
    Keep();
    rows.Search(text);
    Refresh();
}

bool SmsList::SearchMore() {
    constexpr std::size_t AtOnce = 25;
    constexpr DWORD Slice = 20;  // milliseconds
    Keep();
    bool left = true;
    for (const DWORD start = GetTickCount(); left && GetTickCount() - start < Slice;) {
        left = rows.SearchMore(AtOnce);
    }
    Refresh();
    return left;
}

void SmsList::Refresh() {
    ListView_SetItemCountEx(list, int(rows.Count()), LVSICF_NOSCROLL);
    InvalidateRect(list, nullptr, FALSE);
    if (!std::exchange(stale, false)) return;
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
    for (const Row& row : std::exchange(chosen, {})) {
        const std::optional<std::size_t> number = rows.Find(row.id);
        if (number) ListView_SetItemState(list, int(*number), LVIS_SELECTED, LVIS_SELECTED);
    }
}

std::vector<SmsList::Row> SmsList::Chosen() const {
    std::vector<Row> result;
    if (stale) {
        for (const Row& row : chosen) {
            const std::optional<std::size_t> number = rows.Find(row.id);
            if (number) result.push_back(rows.At(*number));
        }
        return result;
    }
    for (int item = -1; (item = ListView_GetNextItem(list, item, LVNI_SELECTED)) >= 0;) {
        if (std::size_t(item) < rows.Count()) result.push_back(rows.At(std::size_t(item)));
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
    if (column == Condition && row.state != State::Sent) return InWords(row.state, language);
    const SpooledSms& sms = Read(row);
    switch (column) {
        case Time:
            return LocalTime(sms.accepted);
        case Recipient:
            return sms.recipient;
        case Message:
            return OneLine(TextView(sms.text).substr(0, ShownOfText));
        case Condition:
            return SenderText(language, NameOf(ArrivalOf(sms)));
        case Parts:
            return NumberText(std::int64_t(CountOnAir(sms.text).parts.size()));
        default:
            return InWords(sms.reason, language);
    }
}

Text SmsList::Details(const Row& row) {
    const std::optional<SpooledSms> sms = spool.Load(row.state, row.id);
    if (!sms) return {};
    Text details;
    for (const Column column : {Time, Recipient, Parts, Condition, Why}) {
        const Text value = Cell(row, column);
        if (value.empty()) continue;
        details.append(SenderText(language, Looks[column].name)).append(u": ");
        details.append(value).append(u"\n");
    }
    return details.append(u"\n").append(TextView(sms->text).substr(0, MostOfDetails));
}

LRESULT SmsList::Answer(NMHDR& notification) {
    if (notification.code != LVN_GETDISPINFOW) return 0;
    LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(notification).item;
    const auto number = std::size_t(item.iItem);
    if (!(item.mask & LVIF_TEXT) || number >= rows.Count()) return 0;
    shown = Cell(rows.At(number), item.iSubItem);
    item.pszText = reinterpret_cast<wchar_t*>(shown.data());
    return 0;
}

}  // namespace tellwick::sender
