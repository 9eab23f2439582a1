// The registry.
#pragma once

#include "platform/Registry.h"

namespace tellwick::windows {

// Texts are wide in it: what the code page has is the same to programs that read bytes, and a path
// that it has not is still found.
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
