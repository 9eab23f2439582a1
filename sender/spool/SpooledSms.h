// One SMS to one recipient as the spool keeps it, and the file that holds it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"
#include "spool/Reason.h"

namespace tellwick::sender {

// Of one long text: their number is a byte on the air.
inline constexpr std::size_t MostParts = 255;

inline constexpr std::int32_t NoReport = -1;

// What the last try came to. Unknown: it was not tried, or ended without an answer.
enum class Result { Unknown, TryAgain, Sent, Failed, Unsure };

// Times are local ones, in days since the end of 1899 as Clock::Now has them; 0: never.
struct SpooledSms {
    Text recipient;  // as the carrier gets it; as it was queued where that is no number
    Text text;
    double accepted = 0;

    Result result = Result::Unknown;
    Reason reason;  // of the last try that was no success
    std::int32_t attempts = 0;
    double firstTried = 0;
    double nextTry = 0;
    double finished = 0;  // sent or failed

    // Parts of a long text that are sent are never sent again. All carry the same reference, by
    // which a phone joins them: 0 to 65535.
    std::int32_t partsSent = 0;
    std::int32_t concatReference = 0;
    // The network's own reference of each part that was sent, which its report names.
    std::vector<std::int32_t> networkReferences;
    // What the network has reported of each of them, as 3GPP TS 23.040 numbers it; NoReport for
    // none. Empty: of none at all.
    std::vector<std::int32_t> reports;

    // Of a text too long to be kept here whole: the file in the same folder that has all of it, in
    // the bytes it was queued in.
    Text wholeText;

    bool operator==(const SpooledSms&) const = default;
};

// What the reports come to: Delivered once all parts are, Failed once one will never be.
enum class Arrival { Unknown, Delivered, Failed };
Arrival ArrivalOf(const SpooledSms& sms);

// The file: "Tellwick SMS 1", lines of name=value, an empty line, and the text; UTF-8, lines end
// with CR LF. Lines with other names are passed over, so that a newer version's files can be read.
std::string ToFile(const SpooledSms& sms);

// Empty for what is no such file, or not the whole of one.
std::optional<SpooledSms> FromFile(std::string_view file);

}  // namespace tellwick::sender
