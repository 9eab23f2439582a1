// Port: the system's ANSI code page, other code pages, and the user's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Text.h"

namespace tellwick {

class Locale {
public:
    virtual ~Locale() = default;

    // The one conversion between the program's text and the bytes of files. A character that the
    // code page lacks becomes "?" (or the system's nearest one).
    virtual Text FromAnsi(std::string_view bytes) = 0;
    virtual std::string ToAnsi(TextView text) = 0;

    // The same from bytes in the code page of that number (1250). Empty optional when the system
    // does not know it.
    virtual std::optional<Text> FromCodePage(std::uint32_t codePage, std::string_view bytes) = 0;

    // A locale's information of the given type, as many characters as the system counts (its
    // count includes the closing NUL). Empty optional when the system knows none.
    virtual std::optional<Text> LocaleInfo(std::uint32_t locale, std::uint32_t type) = 0;

    // The user's country, two letters of ISO 3166 ("DE"). Empty when the system knows none.
    virtual Text Country() = 0;

    // Appends bytes that compare as texts stand in a list sorted for the user's language, letter
    // case ignored.
    virtual void AppendSortKey(TextView text, std::string& keys) = 0;
    std::string SortKey(TextView text) {
        std::string key;
        AppendSortKey(text, key);
        return key;
    }
};

}  // namespace tellwick
