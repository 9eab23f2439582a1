// Registry access: everything is exchanged as text, and the result alone tells a failure.
#pragma once

#include "platform/Registry.h"

namespace tellwick {

class Debug;

// Key paths may begin with one "\", which is dropped.
class RegEdit {
public:
    RegEdit(Registry& registry, Debug& debug);

    // The value as text (numbers in decimal); empty when key or value is missing or unreadable.
    Text ReadValue(Hive hive, TextView key, TextView name);

    // The same for the places of programs and folders, of which every letter counts: with the
    // environment variables of an expandable string replaced.
    Text ReadExpandedValue(Hive hive, TextView key, TextView name);

    // Writes text as a string (type String), or the integer part of its leading number (type
    // Number), creating the key. False, and a trace line, when that fails.
    bool WriteValue(Hive hive, TextView key, TextView name, TextView value,
                    RegistryType type = RegistryType::String);

    // False, with no trace line, when the value is not there.
    bool DeleteValue(Hive hive, TextView key, TextView name);

    // False, and a trace line, when the key cannot be deleted.
    bool DeleteKey(Hive hive, TextView key, TextView subkey);

private:
    void TraceFailure(Hive hive, TextView key, TextView name);

    Registry& registry;
    Debug& debug;
};

}  // namespace tellwick
