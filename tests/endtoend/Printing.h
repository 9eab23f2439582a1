// Lets a failed check show the texts it compared.
#pragma once

#include <windows.h>

#include <doctest.h>
#include <optional>
#include <string>

namespace doctest {

template <>
struct StringMaker<std::wstring> {
    static String convert(const std::wstring& text) {
        std::string bytes(text.size() * 3 + 1, '\0');
        bytes.resize(static_cast<std::size_t>(
            WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
        return ('"' + bytes + '"').c_str();
    }
};

template <std::size_t size>
struct StringMaker<wchar_t[size]> {
    static String convert(const wchar_t* text) { return StringMaker<std::wstring>::convert(text); }
};

template <typename Value>
struct StringMaker<std::optional<Value>> {
    static String convert(const std::optional<Value>& value) {
        return value ? toString(*value) : String("nothing");
    }
};

}  // namespace doctest
