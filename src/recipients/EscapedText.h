// Text as files of lines and fields keep it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/Locale.h"
#include "platform/Text.h"

namespace tellwick {

// Any text as part of one line of a file: bytes of the code page without line breaks and TAB. What
// these cannot say is written as "\xHHHH", and "\" as "\\".
class EscapedText {
public:
    explicit EscapedText(Locale& locale) : locale(locale) {}
    void Append(std::string& line, TextView text);
    Text Read(std::string_view bytes);
    // The same into a text that keeps its memory.
    void Read(std::string_view bytes, Text& text);

private:
    const std::string& Written(char16_t unit);

    Locale& locale;
    std::unordered_map<char16_t, std::string> written;
};

}  // namespace tellwick
