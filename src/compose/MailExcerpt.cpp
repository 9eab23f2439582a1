#include "compose/MailExcerpt.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "air/AirCount.h"

namespace tellwick {

namespace {

constexpr TextView CutMark = u"...";
constexpr std::size_t LongestWord = 30;     // a longer one is cut itself
constexpr std::size_t LongestAddress = 40;  // of a link that is shown whole
constexpr TextView Blanks = u" \t\u00A0";

TextView WithoutBlanks(TextView line) {
    const std::size_t first = line.find_first_not_of(Blanks);
    if (first == TextView::npos) return {};
    return line.substr(first, line.find_last_not_of(Blanks) + 1 - first);
}

std::vector<Text> LinesOf(TextView body) {
    std::vector<Text> lines =
        Split(ReplaceAll(ReplaceAll(body, LineBreak, u"\n"), u"\r", u"\n"), u"\n");
    for (Text& line : lines) line = WithoutBlanks(line);
    return lines;
}

// "From: Anna", as Outlook heads a mail that is answered or handed on, in the languages of this
// program and its neighbours.
bool BeginsHead(TextView line) {
    static constexpr std::array<TextView, 10> Words{u"from", u"von", u"de",   u"da", u"van",
                                                    u"od",   u"fra", u"från", u"от", u"feladó"};
    const std::size_t colon = line.find(u':');
    return colon != TextView::npos && std::ranges::any_of(Words, [&](TextView word) {
               return EqualFolded(WithoutBlanks(line.substr(0, colon)), word);
           });
}

// Of such a head, each line begins with a word and a colon.
bool IsInHead(TextView line) {
    const std::size_t colon = line.find(u':');
    return colon != TextView::npos && colon > 0 && colon < 20 &&
           line.substr(0, colon).find(u"//") == TextView::npos;
}

bool IsLineOf(TextView line, char16_t unit, std::size_t least) {
    return line.size() >= least && line.find_first_not_of(unit) == TextView::npos;
}

// "-----Original Message-----", "----- Ursprüngliche Nachricht -----".
bool IsDivider(TextView line) {
    constexpr TextView Dashes = u"-----";
    return line.size() > 2 * Dashes.size() && StartsWith(line, Dashes) && EndsWith(line, Dashes);
}

// Behind this line nothing is the writer's own.
bool EndsOwnWords(const std::vector<Text>& lines, std::size_t at) {
    const TextView line = lines[at];
    const TextView next = at + 1 < lines.size() ? TextView(lines[at + 1]) : TextView();
    const TextView third = at + 2 < lines.size() ? TextView(lines[at + 2]) : TextView();
    if (line == u"--") return true;  // "-- ", which begins a signature
    if (IsDivider(line)) return true;
    if (IsLineOf(line, u'_', 20) && BeginsHead(next)) return true;
    return BeginsHead(line) && IsInHead(next) && IsInHead(third);
}

bool IsQuoted(TextView line) {
    return StartsWith(line, u">");
}

// "On Friday Anna wrote:" before what she wrote.
bool LeadsToQuotation(const std::vector<Text>& lines, std::size_t at) {
    if (!EndsWith(lines[at], u":")) return false;
    for (std::size_t next = at + 1; next < lines.size(); ++next) {
        if (!lines[next].empty()) return IsQuoted(lines[next]);
    }
    return false;
}

bool IsAddress(TextView word) {
    return StartsWithFolded(word, u"http://") || StartsWithFolded(word, u"https://") ||
           StartsWithFolded(word, u"mailto:") || StartsWithFolded(word, u"file:") ||
           StartsWithFolded(word, u"cid:") || StartsWithFolded(word, u"tel:");
}

// Takes away what a link's text is followed by: "here <http://...>", "[cid:...]".
Text WithoutHiddenAddresses(TextView line) {
    Text kept;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char16_t closing = line[at] == u'<' ? u'>' : line[at] == u'[' ? u']' : u'\0';
        const std::size_t end = closing == 0 ? TextView::npos : line.find(closing, at);
        if (end == TextView::npos || !IsAddress(line.substr(at + 1, end - at - 1))) {
            kept += line[at];
            continue;
        }
        kept.resize(kept.find_last_not_of(Blanks) + 1);
        at = end;
    }
    return kept;
}

// "https://example.com/a/long/way?to=it" as "example.com".
TextView HostOf(TextView address) {
    const std::size_t scheme = address.find(u"//");
    if (scheme == TextView::npos) return address;
    const TextView host = address.substr(scheme + 2);
    return host.substr(0, host.find_first_of(u"/?#"));
}

Text WithShortAddresses(TextView line) {
    Text kept;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t end = std::min(line.find_first_of(Blanks, at), line.size());
        const TextView word = line.substr(at, end - at);
        kept += word.size() > LongestAddress && IsAddress(word) ? HostOf(word) : word;
        const std::size_t next = std::min(line.find_first_not_of(Blanks, end), line.size());
        if (next > end && next < line.size()) kept += u' ';
        at = next;
    }
    return kept;
}

}  // namespace

Text OwnWords(TextView body) {
    const std::vector<Text> lines = LinesOf(body);
    Text words;
    bool emptyBefore = false;
    for (std::size_t at = 0; at < lines.size() && !EndsOwnWords(lines, at); ++at) {
        if (IsQuoted(lines[at]) || LeadsToQuotation(lines, at)) continue;
        const Text line = WithShortAddresses(WithoutHiddenAddresses(lines[at]));
        if (line.empty()) {
            emptyBefore = !words.empty();
            continue;
        }
        if (!words.empty()) words += LineBreak;
        if (std::exchange(emptyBefore, false)) words += LineBreak;
        words += line;
    }
    return words;
}

Text CutToFit(TextView text, const std::function<bool(TextView)>& fits) {
    if (fits(text)) return Text(text);
    const auto cutAt = [&](std::size_t length) {
        TextView kept = text.substr(0, length);
        kept = kept.substr(0, kept.find_last_not_of(u" \r\n") + 1);
        return Text(kept).append(CutMark);
    };
    std::size_t length = 0;
    for (std::size_t tooLong = text.size(); tooLong - length > 1;) {
        const std::size_t middle = length + (tooLong - length) / 2;
        (fits(cutAt(middle)) ? length : tooLong) = middle;
    }
    const std::size_t word = text.find_last_of(u" \r\n", length);
    if (word != TextView::npos && length - word <= LongestWord) return cutAt(word);
    while (length > 0 && CutsCharacter(text, length)) --length;
    return cutAt(length);
}

}  // namespace tellwick
