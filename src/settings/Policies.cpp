#include "settings/Policies.h"

#include <algorithm>
#include <utility>

#include "settings/Debug.h"

namespace tellwick {

namespace {

constexpr RegistryType Words = RegistryType::String;
constexpr RegistryType Number = RegistryType::Number;

constexpr Policies::Known known[] = {
    {u"CountryCodes", Words, u"Prefixes", u"Remove0InPrefixes"},
    {u"Language", Words, u"Settings", u"Language"},
    {u"Font", Words, u"Editor", u"Font"},
    {u"FontSize", Number, u"Editor", u"FontSize"},
    {u"KeepContacts", Number, u"SMS", u"NumberCache"},
    {u"RememberNumbers", Number, u"SMS", u"StoreNumbers"},
    {u"RememberedNumbers", Number, u"SMS", u"NumUsedNumber"},
    {u"ShowAirCount", Number, u"SMS", u"AirCount"},
    {u"AskLostCharacters", Number, u"SMS", u"AskLostCharacters"},
    {u"UseGateway", Number, u"Sender", u"Gateway"},
    {u"GatewayAddress", Words, u"Sender", u"Address"},
    {u"GatewayUser", Words, u"Sender", u"User"},
};

// "2" before "10": tools number what they are given.
bool ByNumber(const RegistryValue& one, const RegistryValue& other) {
    const std::int64_t first = LeadingNumber(one.name);
    const std::int64_t second = LeadingNumber(other.name);
    return first != second ? first < second : one.name < other.name;
}

}  // namespace

std::span<const Policies::Known> Policies::All() {
    return known;
}

Policies::Policies(Registry& registry, Debug& debug) : registry(registry), debug(debug) {}

void Policies::Load() {
    const Text key(PolicyKey);
    const Text defaultsKey = Text(key).append(u"\\").append(PolicyDefaults);
    Given newFixed{std::vector<std::optional<Text>>(All().size()), {}};
    Given newDefaults = newFixed;
    for (const Hive hive : {Hive::LocalMachine, Hive::CurrentUser}) {
        // Outlook's start waits: nobody looks below a key that is not there.
        if (Read(hive, key, newFixed)) Read(hive, defaultsKey, newDefaults);
    }
    fixed = std::move(newFixed);
    defaults = std::move(newDefaults);
}

bool Policies::Read(Hive hive, const Text& key, Given& given) {
    std::optional<std::vector<RegistryValue>> values = registry.Values(hive, key);
    if (!values) return false;
    TakeValues(*values, key, given);
    if (given.templates.empty())
        given.templates = ReadTemplates(hive, Text(key).append(u"\\").append(PolicyTemplates));
    return true;
}

void Policies::TakeValues(std::vector<RegistryValue>& values, const Text& key, Given& given) {
    for (RegistryValue& value : values) {
        const auto place = std::find_if(std::begin(known), std::end(known), [&](const Known& one) {
            return EqualFolded(one.name, value.name);
        });
        if (place == std::end(known)) continue;
        std::optional<Text>& text = given.values[std::size_t(place - std::begin(known))];
        if (value.type != place->type) {
            TraceType(key, value.name);
        } else if (!text) {
            text = std::move(value.text);
        }
    }
}

std::vector<Text> Policies::ReadTemplates(Hive hive, const Text& key) {
    std::vector<RegistryValue> values =
        registry.Values(hive, key).value_or(std::vector<RegistryValue>());
    std::sort(values.begin(), values.end(), ByNumber);
    std::vector<Text> templates;
    for (RegistryValue& value : values) {
        if (value.type != Words) {
            TraceType(key, value.name);
        } else if (!value.text.empty()) {
            templates.push_back(std::move(value.text));
        }
    }
    return templates;
}

void Policies::TraceType(const Text& key, const Text& name) {
    debug.DebugTrace(u"Policy of another type: " + key + u" " + name, trace::FreeText);
}

std::optional<Text> Policies::Find(const Given& given, TextView section, TextView key) {
    for (std::size_t at = 0; at < given.values.size(); ++at) {
        if (given.values[at] && EqualFolded(known[at].key, key) &&
            EqualFolded(known[at].section, section)) {
            return given.values[at];
        }
    }
    return {};
}

std::optional<Text> Policies::Fixed(TextView section, TextView key) const {
    return Find(fixed, section, key);
}

std::optional<Text> Policies::Default(TextView section, TextView key) const {
    return Find(defaults, section, key);
}

}  // namespace tellwick
