#include "windows/WindowsRegistry.h"

#include <cstring>

#include "windows/Com.h"
#include "windows/WindowsLocale.h"

namespace tellwick::windows {

namespace {

HKEY Root(Hive hive) {
    return reinterpret_cast<HKEY>(LONG_PTR(LONG(hive)));
}

RegistryKey CreateKey(Hive hive, TextView key) {
    HKEY opened = nullptr;
    RegCreateKeyA(Root(hive), ToAnsi(key).c_str(), &opened);
    return RegistryKey(opened);
}

RegistryKey OpenKey(Hive hive, TextView key) {
    HKEY opened = nullptr;
    RegOpenKeyA(Root(hive), ToAnsi(key).c_str(), &opened);
    return RegistryKey(opened);
}

bool SetValue(const RegistryKey& key, TextView name, DWORD type, const void* data, DWORD size) {
    return key && RegSetValueExA(key.get(), ToAnsi(name).c_str(), 0, type,
                                 static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

// The value as text, and its type.
std::optional<Text> ReadTyped(Hive hive, TextView key, TextView name, DWORD& type) {
    const RegistryKey opened = OpenKey(hive, key);
    if (!opened) return {};
    const std::string valueName = ToAnsi(name);
    std::string data(256, '\0');
    auto size = DWORD(data.size());
    LSTATUS status = RegQueryValueExA(opened.get(), valueName.c_str(), nullptr, &type,
                                      reinterpret_cast<BYTE*>(data.data()), &size);
    // Another program may make the value longer between two calls.
    while (status == ERROR_MORE_DATA) {
        data.resize(size + 1);
        size = DWORD(data.size());
        status = RegQueryValueExA(opened.get(), valueName.c_str(), nullptr, &type,
                                  reinterpret_cast<BYTE*>(data.data()), &size);
    }
    if (status != ERROR_SUCCESS) return {};
    data.resize(size);
    if (type == REG_DWORD && size == sizeof(DWORD)) {
        DWORD number;
        std::memcpy(&number, data.data(), sizeof number);
        return NumberText(number);
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ) return {};
    if (!data.empty() && data.back() == '\0') data.pop_back();
    return FromAnsi(data);
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
    const std::string data = ToAnsi(value);
    return SetValue(CreateKey(hive, key), name, REG_SZ, data.c_str(), DWORD(data.size() + 1));
}

bool WindowsRegistry::WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) {
    const DWORD number = value;
    return SetValue(CreateKey(hive, key), name, REG_DWORD, &number, sizeof number);
}

bool WindowsRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
    const RegistryKey opened = OpenKey(hive, key);
    return opened && RegDeleteValueA(opened.get(), ToAnsi(name).c_str()) == ERROR_SUCCESS;
}

bool WindowsRegistry::DeleteKey(Hive hive, TextView key, TextView subkey) {
    const RegistryKey opened = OpenKey(hive, key);
    return opened && RegDeleteKeyA(opened.get(), ToAnsi(subkey).c_str()) == ERROR_SUCCESS;
}

}  // namespace tellwick::windows
