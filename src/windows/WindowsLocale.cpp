#include "windows/WindowsLocale.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "windows/SystemFunction.h"

namespace tellwick::windows {

namespace {

Text Decoded(UINT codePage, std::string_view bytes) {
    // No code page makes more units of a text than it has bytes.
    Text text(bytes.size(), u'\0');
    const int length =
        MultiByteToWideChar(codePage, 0, bytes.data(), int(bytes.size()),
                            reinterpret_cast<wchar_t*>(text.data()), int(text.size()));
    text.resize(std::size_t(length));
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

// Where the user is rather than how he likes dates; the other way on systems that do not ask (up to
// Windows 2000), and where the answer is no country.
Text WindowsLocale::Country() {
    constexpr int TwoLetters = 3;  // with the closing NUL
    wchar_t letters[8] = {};
    const auto home = SystemFunction<GEOID(WINAPI*)(GEOCLASS)>(L"kernel32.dll", "GetUserGeoID");
    const auto info = SystemFunction<int(WINAPI*)(GEOID, GEOTYPE, wchar_t*, int, LANGID)>(
        L"kernel32.dll", "GetGeoInfoW");
    const int count =
        home && info ? info(home(GEOCLASS_NATION), GEO_ISO2, letters, int(std::size(letters)), 0)
                     : 0;
    if (count == TwoLetters && std::wstring_view(letters) != L"XX") return FromWide(letters);
    return Text(
        CutAtNul(LocaleInfo(LOCALE_USER_DEFAULT, LOCALE_SISO3166CTRYNAME).value_or(Text())));
}

void WindowsLocale::AppendSortKey(TextView text, std::string& keys) {
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
    if (most <= sizeof shortKey) {
        keys.append(shortKey, map(shortKey, sizeof shortKey));
        return;
    }
    std::string key(most, '\0');
    keys.append(key, 0, map(key.data(), key.size()));
}

}  // namespace tellwick::windows
