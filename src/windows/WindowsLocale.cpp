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
    const Text terminated(text);
    std::string key(8 * text.size() + 16, '\0');
    const int size = LCMapStringW(LOCALE_USER_DEFAULT, Flags, Wide(terminated), int(text.size()),
                                  reinterpret_cast<wchar_t*>(key.data()), int(key.size()));
    key.resize(std::size_t(std::max(size - 1, 0)));  // without the closing NUL
    return key;
}

}  // namespace tellwick::windows
