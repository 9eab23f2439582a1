#include "settings/BlankedTrace.h"

#include <algorithm>
#include <cstdint>
#include <set>

namespace tellwick {

namespace {

constexpr std::size_t LongestName = 60;
// Digits of the seconds since midnight, and of an error's number where that is not negative: one of
// more could be a telephone number.
constexpr std::size_t LongestNumber = 5;
constexpr std::size_t LongestNegative = 10;

bool IsAsciiDigit(char byte) {
    return byte >= '0' && byte <= '9';
}
bool IsAsciiLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

// Whether the text is the name of a procedure, as the program writes them.
bool IsName(std::string_view text) {
    return !text.empty() && text.size() <= LongestName &&
           std::all_of(text.begin(), text.end(), [](char byte) {
               return IsAsciiLetter(byte) || IsAsciiDigit(byte) || byte == '_' || byte == '.';
           });
}

// The name in "<name>_" and "</name>"; empty for every other record.
std::string_view NameOf(std::string_view record) {
    if (record.starts_with("</") && record.ends_with('>')) {
        record = record.substr(2, record.size() - 3);
    } else if (record.starts_with('<') && record.ends_with(">_")) {
        record = record.substr(1, record.size() - 3);
    } else {
        return {};
    }
    return IsName(record) ? record : std::string_view();
}

std::string Blanked(std::string_view text) {
    std::string blanked(text);
    for (char& byte : blanked) {
        if (IsAsciiDigit(byte)) {
            byte = '0';
        } else if (IsAsciiLetter(byte) || std::uint8_t(byte) >= 0x80) {
            byte = 'x';
        }
    }
    return blanked;
}

std::size_t DigitsAt(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of("0123456789", at), text.size()) - at;
}

// How long the time is that the text begins with, or an error's number, with its colon; 0 where
// there is none.
std::size_t TimeBefore(std::string_view text) {
    const std::size_t seconds = DigitsAt(text, 0);
    if (seconds == 0 || seconds > LongestNumber) return 0;
    std::size_t end = seconds;
    if (text.substr(end).starts_with('.')) end += 1 + DigitsAt(text, end + 1);
    return end <= seconds + 1 + LongestNumber && text.substr(end).starts_with(':') ? end + 1 : 0;
}

// The same of an error's number behind a time or an indent.
std::size_t ErrorBefore(std::string_view text) {
    const std::size_t sign = text.starts_with('-');
    const std::size_t digits = DigitsAt(text, sign);
    const bool number = digits > 0 && digits <= (sign ? LongestNegative : LongestNumber);
    return number && text.substr(sign + digits).starts_with(':') ? sign + digits + 1 : 0;
}

}  // namespace

std::string BlankedTrace(std::string_view trace, std::size_t most) {
    if (trace.size() > most) {
        trace.remove_prefix(trace.size() - most);
        trace.remove_prefix(std::min(trace.find('\n'), trace.size() - 1) + 1);
    }
    std::set<std::string_view> names;
    std::string blanked;
    while (!trace.empty()) {
        const std::size_t end = std::min(trace.find('\n'), trace.size() - 1) + 1;
        std::string_view line = trace.substr(0, end);
        trace.remove_prefix(end);
        const std::size_t text = line.find_last_not_of("\r\n") + 1;
        const std::string_view lineEnd = line.substr(text);
        line = line.substr(0, text);

        const std::size_t indent =
            std::min(line.find_first_not_of(' ', TimeBefore(line)), line.size());
        blanked += line.substr(0, indent);
        line.remove_prefix(indent);

        const std::string_view name = NameOf(line);
        // A checkpoint is the name of a procedure that was entered, and a number.
        const std::size_t digits = line.find_last_not_of("0123456789") + 1;
        if (!name.empty()) {
            names.insert(name);
            blanked += line;
        } else if (names.contains(line.substr(0, digits)) && line.size() - digits <= 3) {
            blanked += line;
        } else {
            const std::size_t number = ErrorBefore(line);
            blanked.append(line.substr(0, number)).append(Blanked(line.substr(number)));
        }
        blanked += lineEnd;
    }
    return blanked;
}

}  // namespace tellwick
