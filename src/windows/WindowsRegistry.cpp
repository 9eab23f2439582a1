#include "windows/WindowsRegistry.h"

#include <cstring>

#include "windows/Com.h"

namespace tellwick::windows {

namespace {

HKEY Root(Hive hive) {
    return reinterpret_cast<HKEY>(LONG_PTR(LONG(hive)));
}

RegistryKey CreateKey(Hive hive, TextView key) {
    HKEY opened = nullptr;
    RegCreateKeyW(Root(hive), Wide(Text(key)), &opened);
    return RegistryKey(opened);
}

RegistryKey OpenKey(Hive hive, TextView key) {
    HKEY opened = nullptr;
    RegOpenKeyW(Root(hive), Wide(Text(key)), &opened);
    return RegistryKey(opened);
}

bool SetValue(const RegistryKey& key, TextView name, DWORD type, const void* data, DWORD size) {
    return key && RegSetValueExW(key.get(), Wide(Text(name)), 0, type,
                                 static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

// The value as text, and its type.
std::optional<Text> ReadTyped(Hive hive, TextView key, TextView name, DWORD& type) {
    const RegistryKey opened = OpenKey(hive, key);
    if (!opened) return {};
    const Text valueName(name);
    Text data(128, u'\0');
    DWORD size = 0;
    LSTATUS status = ERROR_SUCCESS;
    const auto query = [&] {
        size = DWORD(data.size() * sizeof(char16_t));
        status = RegQueryValueExW(opened.get(), Wide(valueName), nullptr, &type,
                                  reinterpret_cast<BYTE*>(data.data()), &size);
    };
    query();
    // Another program may make the value longer between two calls.
    while (status == ERROR_MORE_DATA) {
        data.resize(size / sizeof(char16_t) + 1);
        query();
    }
    if (status != ERROR_SUCCESS) return {};
    if (type == REG_DWORD && size == sizeof(DWORD)) {
        DWORD number;
        std::memcpy(&number, data.data(), sizeof number);
        return NumberText(number);
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ) return {};
    data.resize(size / sizeof(char16_t));
    if (!data.empty() && data.back() == u'\0') data.pop_back();
    return data;
}

}  // namespace

std::optional<Text> WindowsRegistry::Read(Hive hive, TextView key, TextView name) {
    DWORD type = 0;
    return ReadTyped(hive, key, name, type);
}

std::optional<Text> WindowsRegistry::ReadExpanded(Hive hive, TextView key, TextView name) {
    DWORD type = 0;
    std::optional<Text> value = ReadTyped(hive, key, name, type);
    if (!value || type != REG_EXPAND_SZ) return value;
    const DWORD length = ExpandEnvironmentStringsW(Wide(*value), nullptr, 0);
    Text expanded(length, u'\0');
    if (ExpandEnvironmentStringsW(Wide(*value), reinterpret_cast<wchar_t*>(expanded.data()),
                                  length) != length ||
        length == 0) {
        return value;
    }
    expanded.pop_back();  // the closing NUL
    return expanded;
}

bool WindowsRegistry::WriteString(Hive hive, TextView key, TextView name, TextView value) {
    const Text data(value);
    return SetValue(CreateKey(hive, key), name, REG_SZ, data.c_str(),
                    DWORD((data.size() + 1) * sizeof(char16_t)));
}

bool WindowsRegistry::WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) {
    const DWORD number = value;
    return SetValue(CreateKey(hive, key), name, REG_DWORD, &number, sizeof number);
}

bool WindowsRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
    const RegistryKey opened = OpenKey(hive, key);
    return opened && RegDeleteValueW(opened.get(), Wide(Text(name))) == ERROR_SUCCESS;
}

bool WindowsRegistry::DeleteKey(Hive hive, TextView key, TextView subkey) {
    const RegistryKey opened = OpenKey(hive, key);
    return opened && RegDeleteKeyW(opened.get(), Wide(Text(subkey))) == ERROR_SUCCESS;
}

}  // namespace tellwick::windows
