// Port: the system's registry.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

// The predefined root handles, by their system values.
enum class Hive : std::uint32_t {
    ClassesRoot = 0x80000000,
    CurrentUser = 0x80000001,
    LocalMachine = 0x80000002,
};

enum class RegistryType : std::uint32_t { String = 1, ExpandString = 2, Number = 4 };

struct RegistryValue {
    Text name;
    // String also for an expandable one; empty for every other type but these two.
    std::optional<RegistryType> type;
    Text text;  // as Registry::ReadExpanded or Registry::Read gives it
};

// Key paths are relative to the hive, without a leading "\". A value name of "" is the key's
// default value. No function notes a pending error: the caller decides from the result.
class Registry {
public:
    virtual ~Registry() = default;

    // The value as text: strings without their terminating NUL, 32-bit numbers in (unsigned)
    // decimal. Empty optional when key or value is missing, cannot be read, or has another type.
    virtual std::optional<Text> Read(Hive hive, TextView key, TextView name) = 0;

    // A string whatever letters it has, with the environment variables in one of type ExpandString
    // replaced; empty for what is no string.
    virtual std::optional<Text> ReadExpanded(Hive hive, TextView key, TextView name) = 0;

    // All values of a key. Empty optional when there is no such key, and so none below it either,
    // or it cannot be read.
    virtual std::optional<std::vector<RegistryValue>> Values(Hive hive, TextView key) = 0;

    // Creates the key with its missing levels, then writes. False when either fails.
    virtual bool WriteString(Hive hive, TextView key, TextView name, TextView value) = 0;
    virtual bool WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) = 0;

    // False when there is nothing to delete or it cannot be deleted.
    virtual bool DeleteValue(Hive hive, TextView key, TextView name) = 0;

    // Deletes the sub-key (with its values) of key; sub-keys below it make it fail, as on NT.
    virtual bool DeleteKey(Hive hive, TextView key, TextView subkey) = 0;
};

}  // namespace tellwick
