#include "windows/WindowsRegistry.h"

#include <cstring>

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

// The bytes of a value, and its type; `query` is one of the system's two functions. Another program
// may make the value longer between two calls.
template <class Unit, class Query>
bool ReadBytes(const Query& query, std::basic_string<Unit>& data, DWORD& type) {
    data.resize(128);
    LSTATUS status = ERROR_MORE_DATA;
    for (DWORD size = 0; status == ERROR_MORE_DATA;) {
        if (size >= data.size() * sizeof(Unit)) data.resize(size / sizeof(Unit) + 1);
        size = DWORD(data.size() * sizeof(Unit));
        status = query(&type, reinterpret_cast<BYTE*>(data.data()), &size);
        if (status == ERROR_SUCCESS) data.resize(size / sizeof(Unit));
    }
    return status == ERROR_SUCCESS;
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ;
}

}  // namespace

std::optional<Text> WindowsRegistry::Read(Hive hive, TextView key, TextView name) {
    return ReadText(OpenKey(hive, key), name);
}

std::optional<Text> ReadText(const RegistryKey& key, TextView name) {
    if (!key) return {};
    const std::string valueName = ToAnsi(name);
    const auto query = [&](DWORD* type, BYTE* bytes, DWORD* size) {
        return RegQueryValueExA(key.get(), valueName.c_str(), nullptr, type, bytes, size);
    };
    std::string data;
    DWORD type = 0;
    if (!ReadBytes(query, data, type)) return {};
    if (type == REG_DWORD && data.size() == sizeof(DWORD)) {
        DWORD number;
        std::memcpy(&number, data.data(), sizeof number);
        return NumberText(number);
    }
    if (!IsText(type)) return {};
    if (!data.empty() && data.back() == '\0') data.pop_back();
    return FromAnsi(data);
}

std::optional<Text> WindowsRegistry::ReadExpanded(Hive hive, TextView key, TextView name) {
    const RegistryKey opened = OpenKey(hive, key);
    if (!opened) return {};
    const Text valueName(name);
    const auto query = [&](DWORD* type, BYTE* bytes, DWORD* size) {
        return RegQueryValueExW(opened.get(), Wide(valueName), nullptr, type, bytes, size);
    };
    Text value;
    DWORD type = 0;
    if (!ReadBytes(query, value, type) || !IsText(type)) return {};
    if (!value.empty() && value.back() == u'\0') value.pop_back();
    if (type != REG_EXPAND_SZ) return value;
    const DWORD length = ExpandEnvironmentStringsW(Wide(value), nullptr, 0);
    Text expanded(length, u'\0');
    if (ExpandEnvironmentStringsW(Wide(value), reinterpret_cast<wchar_t*>(expanded.data()),
                                  length) != length ||
        length == 0) {
        return value;
    }
    expanded.pop_back();  // the closing NUL
    return expanded;
}

std::optional<std::vector<Text>> ValueNames(const RegistryKey& key) {
    constexpr DWORD LongestName = 16'383;
    std::vector<Text> names;
    Text name(LongestName + 1, u'\0');
    for (DWORD index = 0;; ++index) {
        auto length = DWORD(name.size());
        const LSTATUS listed =
            RegEnumValueW(key.get(), index, reinterpret_cast<wchar_t*>(name.data()), &length,
                          nullptr, nullptr, nullptr, nullptr);
        if (listed == ERROR_NO_MORE_ITEMS) return names;
        if (listed != ERROR_SUCCESS) return {};
        names.push_back(name.substr(0, length));
    }
}

std::optional<std::vector<RegistryValue>> WindowsRegistry::Values(Hive hive, TextView key) {
    const RegistryKey opened = OpenKey(hive, key);
    if (!opened) return {};
    std::vector<RegistryValue> values;
    for (Text& name : ValueNames(opened).value_or(std::vector<Text>())) {
        RegistryValue value{std::move(name), {}, {}};
        if (auto text = ReadExpanded(hive, key, value.name)) {
            value.type = RegistryType::String;
            value.text = std::move(*text);
        } else if (auto number = ReadText(opened, value.name)) {
            value.type = RegistryType::Number;
            value.text = std::move(*number);
        }
        values.push_back(std::move(value));
    }
    return values;
}

bool WindowsRegistry::WriteString(Hive hive, TextView key, TextView name, TextView value) {
    const std::string data = ToAnsi(value);
    return SetValue(CreateKey(hive, key), name, REG_SZ, data.c_str(), DWORD(data.size() + 1));
}

bool WindowsRegistry::WriteWide(Hive hive, TextView key, TextView name, TextView value) {
    const RegistryKey opened = CreateKey(hive, key);
    const Text data(value);
    return opened && RegSetValueExW(opened.get(), Wide(Text(name)), 0, REG_SZ,
                                    reinterpret_cast<const BYTE*>(data.c_str()),
                                    DWORD((data.size() + 1) * sizeof(char16_t))) == ERROR_SUCCESS;
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
