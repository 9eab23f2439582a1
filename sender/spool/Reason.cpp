#include "spool/Reason.h"

#include <algorithm>

#include "spool/SenderTexts.h"

namespace tellwick::sender {

Reason TooOldBecause(const Reason& last) {
    return {Text(reason::TooOld), last.name + u" " + last.detail};
}

Text InWords(const Reason& why, LanguageTexts& language) {
    if (why.name.empty()) return {};
    Text detail = why.detail;
    if (why.name == reason::TooOld) {
        const std::size_t blank = std::min(detail.find(u' '), detail.size());
        detail = InWords({detail.substr(0, blank), Trimmed(detail.substr(blank))}, language);
    }
    Text words = SenderText(language, why.name);
    // A name that a newer version has written.
    if (words.empty()) words = why.name + u" %d";
    return Trimmed(ReplaceAll(words, u"%d", detail));
}

}  // namespace tellwick::sender
