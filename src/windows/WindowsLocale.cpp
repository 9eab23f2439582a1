#include "windows/WindowsLocale.h"

#include <algorithm>

namespace tellwick::windows {

namespace {

Text Decoded(UINT codePage, std::string_view bytes) {
    const int length =
        MultiByteToWideChar(codePage, 0, bytes.data(), int(bytes.size()), nullptr, 0);
    Text text(std::size_t(length), u'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), int(bytes.size()),
                        reinterpret_cast<wchar_t*>(text.data()), length);
    return text;
}

}  // namespace

Text FromAnsi(std::string_view bytes) {
    return Decoded(CP_ACP, bytes);
}

std::string ToAnsi(TextView text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length =
        WideCharToMultiByte(CP_ACP, 0, wide, int(text.size()), nullptr, 0, nullptr, nullptr);
    std::string bytes(std::size_t(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide, int(text.size()), bytes.data(), length, nullptr, nullptr);
    return bytes;
}

std::optional<Text> WindowsLocale::FromCodePage(std::uint32_t codePage, std::string_view bytes) {
    if (!IsValidCodePage(codePage)) return {};
    return Decoded(codePage, bytes);
}

std::optional<Text> WindowsLocale::LocaleInfo(std::uint32_t locale, std::uint32_t type) {
    char buffer[255];
    const int count = GetLocaleInfoA(locale, type, buffer, sizeof buffer);
    if (count <= 0) return {};
    return FromAnsi({buffer, std::size_t(count)});
}

std::string WindowsLocale::SortKey(TextView text) {
    constexpr DWORD Flags =
        LCMAP_SORTKEY | NORM_IGNORECASE | NORM_IGNOREKANATYPE | NORM_IGNOREWIDTH;
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const auto map = [&](char* key, std::size_t room) {
        const int size = LCMapStringW(LOCALE_USER_DEFAULT, Flags, wide, int(text.size()),
                                      reinterpret_cast<wchar_t*>(key), int(room));
        return std::size_t(std::max(size - 1, 0));  // without the closing NUL
    };
    const std::size_t most = 8 * text.size() + 16;
    // Names are short, and there are many.
    char shortKey[512];
    if (most <= sizeof shortKey) return {shortKey, map(shortKey, sizeof shortKey)};
    std::string key(most, '\0');
    key.resize(map(key.data(), key.size()));
    return key;
}

}  // namespace tellwick::windows
