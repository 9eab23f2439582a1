#include "delivery/SentReports.h"

#include <algorithm>
#include <utility>

namespace tellwick::sender {

namespace {

constexpr std::size_t MostRows = 300;  // more than there are numbers
constexpr std::size_t DigitsCompared = 7;

// One may be written as at home, the other as from abroad.
bool SameNumber(TextView one, TextView other) {
    const std::size_t count = std::min({DigitsCompared, one.size(), other.size()});
    return count > 0 && one.substr(one.size() - count) == other.substr(other.size() - count);
}

bool Fits(const StatusReport& report, TextView recipient,
          const std::vector<std::int32_t>& references) {
    return SameNumber(report.recipient, recipient) &&
           std::ranges::find(references, report.networkReference) != references.end();
}

}  // namespace

bool SentReports::Note(const StatusReport& report, SpooledSms& sms) {
    if (!Fits(report, sms.recipient, sms.networkReferences)) return false;
    const auto part = std::ranges::find(sms.networkReferences, report.networkReference);
    sms.reports.resize(sms.networkReferences.size(), NoReport);
    sms.reports[std::size_t(part - sms.networkReferences.begin())] = report.status;
    return true;
}

void SentReports::Load() {
    if (std::exchange(loaded, true)) return;
    std::vector<Text> ids = spool.Ids(State::Sent);
    if (ids.size() > MostRows) ids.erase(ids.begin(), ids.end() - MostRows);
    std::deque<Row> newer = std::exchange(rows, {});
    for (const Text& id : ids) {
        const std::optional<SpooledSms> sms = spool.Load(State::Sent, id);
        if (sms) Sent(id, *sms);
    }
    // These are among them, and were sent last.
    for (auto row = newer.rbegin(); row != newer.rend(); ++row) rows.push_front(*row);
}

void SentReports::Sent(const Text& id, const SpooledSms& sms) {
    rows.push_front({id, sms.recipient, sms.networkReferences});
    if (rows.size() > MostRows) rows.pop_back();
}

void SentReports::Reported(const StatusReport& report) {
    Load();
    const auto row = std::ranges::find_if(
        rows, [&](const Row& one) { return Fits(report, one.recipient, one.references); });
    if (row == rows.end()) return;
    std::optional<SpooledSms> sms = spool.Load(State::Sent, row->id);
    if (sms && Note(report, *sms)) spool.Update(State::Sent, row->id, *sms);
}

}  // namespace tellwick::sender
