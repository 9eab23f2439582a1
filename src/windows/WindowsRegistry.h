// The registry.
#pragma once

#include "platform/Registry.h"
#include "windows/Com.h"

namespace tellwick::windows {

// Of an open key, as WindowsRegistry::Read does it.
std::optional<Text> ReadText(const RegistryKey& key, TextView name);

// The names of an open key's values. Empty optional when they cannot be listed.
std::optional<std::vector<Text>> ValueNames(const RegistryKey& key);

// Texts are bytes of the code page, as other programs of the system exchange them; but the places
// of programs and folders may have letters that it lacks, and are wide.
class WindowsRegistry : public Registry {
public:
    std::optional<Text> Read(Hive hive, TextView key, TextView name) override;
    std::optional<Text> ReadExpanded(Hive hive, TextView key, TextView name) override;
    std::optional<std::vector<RegistryValue>> Values(Hive hive, TextView key) override;
    bool WriteString(Hive hive, TextView key, TextView name, TextView value) override;
    // A text as it is, whatever the code page has.
    static bool WriteWide(Hive hive, TextView key, TextView name, TextView value);
    bool WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) override;
    bool DeleteValue(Hive hive, TextView key, TextView name) override;
    bool DeleteKey(Hive hive, TextView key, TextView subkey) override;
};

}  // namespace tellwick::windows
