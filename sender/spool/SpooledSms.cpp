#include "spool/SpooledSms.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/Utf8.h"
#include "spool/Times.h"

namespace tellwick::sender {

namespace {

constexpr std::string_view FirstLine = "Tellwick SMS 1\r\n";
constexpr std::string_view LineEnd = "\r\n";

constexpr std::array<std::string_view, 5> ResultNames{"", "again", "sent", "failed", "unsure"};

class Writer {
public:
    explicit Writer(std::string& file) : file(file) {}

    // What is empty, 0 or never needs no line.
    void Put(std::string_view name, std::string_view value) {
        if (!value.empty()) file.append(name).append("=").append(value).append(LineEnd);
    }
    void Put(std::string_view name, TextView value) { Put(name, ToUtf8(OneLine(value))); }
    void Put(std::string_view name, std::int32_t value) {
        if (value != 0) Put(name, std::to_string(value));
    }
    void PutTime(std::string_view name, double time) {
        if (time != 0) Put(name, TimeStamp(time));
    }

private:
    std::string& file;
};

std::int32_t Number(std::string_view value) {
    std::int32_t number = 0;
    std::from_chars(value.data(), value.data() + value.size(), number);
    return number;
}

std::vector<std::int32_t> Numbers(std::string_view value) {
    std::vector<std::int32_t> numbers;
    for (std::size_t at = 0; at < value.size();) {
        const std::size_t blank = std::min(value.find(' ', at), value.size());
        numbers.push_back(Number(value.substr(at, blank - at)));
        at = blank + 1;
    }
    return numbers;
}

std::string Joined(const std::vector<std::int32_t>& numbers) {
    std::string joined;
    for (const std::int32_t number : numbers) {
        joined.append(joined.empty() ? "" : " ").append(std::to_string(number));
    }
    return joined;
}

Result ResultOf(std::string_view name) {
    for (std::size_t result = 0; result < ResultNames.size(); ++result) {
        if (ResultNames[result] == name) return Result(result);
    }
    // What it means is not known: nothing may be sent on the strength of it.
    return Result::Unsure;
}

void Take(SpooledSms& sms, std::string_view name, std::string_view value) {
    if (name == "To") sms.recipient = FromUtf8(value);
    if (name == "Accepted") sms.accepted = FromTimeStamp(value);
    if (name == "Result") sms.result = ResultOf(value);
    if (name == "Reason") sms.reason.name = FromUtf8(value);
    if (name == "Detail") sms.reason.detail = FromUtf8(value);
    if (name == "Attempts") sms.attempts = Number(value);
    if (name == "FirstTried") sms.firstTried = FromTimeStamp(value);
    if (name == "NextTry") sms.nextTry = FromTimeStamp(value);
    if (name == "Finished") sms.finished = FromTimeStamp(value);
    if (name == "PartsSent") sms.partsSent = Number(value);
    if (name == "Reference") sms.concatReference = Number(value);
    if (name == "NetworkReferences") sms.networkReferences = Numbers(value);
    if (name == "Reports") sms.reports = Numbers(value);
    if (name == "WholeText") sms.wholeText = FromUtf8(value);
}

}  // namespace

Arrival ArrivalOf(const SpooledSms& sms) {
    constexpr std::int32_t StillTrying = 0x20;
    constexpr std::int32_t GivenUp = 0x40;
    const auto& reports = sms.reports;
    const auto failed = [](std::int32_t status) { return status >= GivenUp; };
    const auto arrived = [](std::int32_t status) { return status >= 0 && status < StillTrying; };
    if (std::ranges::any_of(reports, failed)) return Arrival::Failed;
    const bool all = !reports.empty() && reports.size() == sms.networkReferences.size();
    return all && std::ranges::all_of(reports, arrived) ? Arrival::Delivered : Arrival::Unknown;
}

std::string ToFile(const SpooledSms& sms) {
    std::string file(FirstLine);
    Writer writer(file);
    writer.Put("To", sms.recipient);
    writer.PutTime("Accepted", sms.accepted);
    writer.Put("Result", ResultNames[std::size_t(sms.result)]);
    writer.Put("Reason", sms.reason.name);
    writer.Put("Detail", sms.reason.detail);
    writer.Put("Attempts", sms.attempts);
    writer.PutTime("FirstTried", sms.firstTried);
    writer.PutTime("NextTry", sms.nextTry);
    writer.PutTime("Finished", sms.finished);
    writer.Put("PartsSent", sms.partsSent);
    writer.Put("Reference", sms.concatReference);
    writer.Put("NetworkReferences", Joined(sms.networkReferences));
    writer.Put("Reports", Joined(sms.reports));
    writer.Put("WholeText", sms.wholeText);
    const std::string text = ToUtf8(sms.text);
    writer.Put("Bytes", std::to_string(text.size()));
    return file.append(LineEnd).append(text);
}

std::optional<SpooledSms> FromFile(std::string_view file) {
    if (!file.starts_with(FirstLine)) return {};
    SpooledSms sms;
    std::optional<std::size_t> bytes;
    file.remove_prefix(FirstLine.size());
    while (!file.starts_with(LineEnd)) {
        const std::size_t end = file.find(LineEnd);
        const std::size_t equals = file.find('=');
        if (end == std::string_view::npos || equals > end) return {};
        const std::string_view name = file.substr(0, equals);
        const std::string_view value = file.substr(equals + 1, end - equals - 1);
        Take(sms, name, value);
        if (name == "Bytes") bytes = std::size_t(Number(value));
        file.remove_prefix(end + LineEnd.size());
    }
    file.remove_prefix(LineEnd.size());
    if (bytes != file.size()) return {};
    sms.text = FromUtf8(file);
    return sms;
}

}  // namespace tellwick::sender
