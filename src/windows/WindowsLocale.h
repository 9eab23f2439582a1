// The user's regional settings, and the system's ANSI code page.
#pragma once

#include "platform/Locale.h"
#include "windows/Com.h"

namespace tellwick::windows {

Text FromAnsi(std::string_view bytes);
std::string ToAnsi(TextView text);

class WindowsLocale : public Locale {
public:
    Text FromAnsi(std::string_view bytes) override { return windows::FromAnsi(bytes); }
    std::string ToAnsi(TextView text) override { return windows::ToAnsi(text); }
    std::optional<Text> FromCodePage(std::uint32_t codePage, std::string_view bytes) override;
    std::optional<Text> LocaleInfo(std::uint32_t locale, std::uint32_t type) override;
    Text Country() override;
    void AppendSortKey(TextView text, std::string& keys) override;
};

}  // namespace tellwick::windows
