// What an administrator gives: settings that are fixed, which win over the user's, and defaults,
// which hold where the user has set nothing. They stand in the registry, where only an
// administrator writes; packaging/policies describes them for his tools.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/Registry.h"

namespace tellwick {

class Debug;

// The key of what is fixed, of the machine or of the user; below it that of the defaults, and below
// either that of the text templates, whose values are texts of any name.
inline constexpr TextView PolicyKey = u"Software\\Policies\\Tellwick\\Outlook";
inline constexpr TextView PolicyDefaults = u"Defaults";
inline constexpr TextView PolicyTemplates = u"Templates";

class Policies {
public:
    // A value of the registry, and the setting that it gives.
    struct Known {
        TextView name;
        RegistryType type;  // a number stands for itself, or for no (0) and yes
        TextView section, key;
    };
    static std::span<const Known> All();

    Policies(Registry& registry, Debug& debug);

    // Reads them anew. Those of the machine win over those of the user. A value of another type is
    // as if it were not there, and leaves a trace record.
    void Load();

    std::optional<Text> Fixed(TextView section, TextView key) const;
    std::optional<Text> Default(TextView section, TextView key) const;

    // In the order of their values' names, as they stand in settings; empty where none are given.
    const std::vector<Text>& FixedTemplates() const { return fixed.templates; }
    const std::vector<Text>& DefaultTemplates() const { return defaults.templates; }

private:
    struct Given {
        std::vector<std::optional<Text>> values;  // in the order of All()
        std::vector<Text> templates;
    };

    // Both take those that are not given yet; Read is false when there is no such key.
    bool Read(Hive hive, const Text& key, Given& given);
    void TakeValues(std::vector<RegistryValue>& values, const Text& key, Given& given);
    std::vector<Text> ReadTemplates(Hive hive, const Text& key);
    void TraceType(const Text& key, const Text& name);
    static std::optional<Text> Find(const Given& given, TextView section, TextView key);

    Given fixed;
    Given defaults;

    Registry& registry;
    Debug& debug;
};

}  // namespace tellwick
