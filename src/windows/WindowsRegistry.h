// The registry.
#pragma once

#include "platform/Registry.h"

namespace tellwick::windows {

class WindowsRegistry : public Registry {
public:
    std::optional<Text> Read(Hive hive, TextView key, TextView name) override;
    std::optional<Text> ReadExpanded(Hive hive, TextView key, TextView name) override;
    bool WriteString(Hive hive, TextView key, TextView name, TextView value) override;
    bool WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) override;
    bool DeleteValue(Hive hive, TextView key, TextView name) override;
    bool DeleteKey(Hive hive, TextView key, TextView subkey) override;
};

}  // namespace tellwick::windows
