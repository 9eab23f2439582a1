#include "settings/InifilesLite.h"

#include <optional>

#include "platform/Meanwhile.h"
#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/IniFile.h"
#include "settings/Policies.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

TextView WithoutTrailingBackslash(TextView section) {
    return section.ends_with(u'\\') ? section.substr(0, section.size() - 1) : section;
}

Text RegistryKey(TextView root, TextView section) {
    return Text(root).append(u"\\").append(section);
}

}  // namespace

Text ToSetting(TextView text) {
    return ReplaceAll(ReplaceAll(text, u"\r", u"\\13"), u"\n", u"\\10");
}

Text FromSetting(TextView value) {
    return ReplaceAll(ReplaceAll(value, u"\\13", u"\r"), u"\\10", u"\n");
}

InifilesLite::InifilesLite(Debug& debug, RegEdit& regEdit, IniFile& iniFile, Policies& policies)
    : debug(debug), regEdit(regEdit), iniFile(iniFile), policies(policies) {}

bool InifilesLite::IsFixed(TextView section, TextView key) const {
    return policies.Fixed(section, key).has_value();
}

void InifilesLite::LookForPolicies() {
    policies.Load();
}

void InifilesLite::GetIniFile() {
    Procedure procedure{debug, u"GetIniFile"};
    policies.Load();
    Once locating(located);
    if (locate) locate();
    locating.Done();
}

void InifilesLite::Use(SettingsPlaces newPlaces) {
    const bool otherBase = newPlaces.baseFile != places.baseFile;
    places = std::move(newPlaces);
    if (otherBase) {
        iniFile.SetMaxSize(LeadingNumber32(GetBaseIniSetting(u"Files", u"MaxSize")));
    }
}

Text InifilesLite::SettingsFolder() {
    if (!located) GetIniFile();
    return places.baseFile.substr(0, places.baseFile.rfind(u'\\') + 1);
}

Text InifilesLite::Read(const Text& file, TextView section, TextView key, TextView defaultValue,
                        bool registryFallback, std::int16_t flags) {
    if (auto fixed = policies.Fixed(section, key)) {
        return fixed->empty() ? Text(defaultValue) : *std::move(fixed);
    }
    Text value;
    if (places.saveIn == SettingsPlaces::InRegistry) {
        value = regEdit.ReadValue(Hive::CurrentUser, RegistryKey(RootKey, section), key);
        if (value.empty() && registryFallback) {
            value = regEdit.ReadValue(Hive::CurrentUser,
                                      RegistryKey(u"Software\\Kelp\\Vistrand Tool", section), key);
        }
    } else if (StartsWithFolded(section, NestedPrefix) && section.size() > 10) {
        value = iniFile.ReadFromIniFile(file, section.substr(NestedPrefix.size()), key, {}, flags);
    } else {
        value = iniFile.ReadFromIniFile(file, WithoutTrailingBackslash(section), key, {}, flags);
    }
    if (value.empty()) value = policies.Default(section, key).value_or(Text());
    return value.empty() ? Text(defaultValue) : value;
}

Text InifilesLite::GetIniSetting(TextView section, TextView key, TextView defaultValue,
                                 bool registryFallback, std::int16_t flags) {
    return Read(places.currentFile, section, key, defaultValue, registryFallback, flags);
}

Text InifilesLite::GetBaseIniSetting(TextView section, TextView key, TextView defaultValue,
                                     bool registryFallback, std::int16_t flags) {
    return Read(places.baseFile, section, key, defaultValue, registryFallback, flags);
}

std::int32_t InifilesLite::GetIniSettingNum(TextView section, TextView key, TextView defaultValue,
                                            std::int16_t flags) {
    return LeadingNumber32(GetIniSetting(section, key, defaultValue, false, flags));
}

bool InifilesLite::GetIniSettingBool(TextView section, TextView key, TextView defaultValue,
                                     std::int16_t flags) {
    return LeadingNumber(GetIniSetting(section, key, defaultValue, false, flags)) != 0;
}

bool InifilesLite::Write(const Text& file, TextView section, TextView key, TextView value) {
    std::optional<Procedure> procedure;
    if (debug.Mode() != 0) procedure.emplace(debug, u"SetIniSetting");
    if (places.saveIn == SettingsPlaces::InRegistry) {
        return regEdit.WriteValue(Hive::CurrentUser, RegistryKey(RootKey, section), key, value);
    }
    return iniFile.WriteToIniFile(file, WithoutTrailingBackslash(section), key, value,
                                  batches == 0);
}

bool InifilesLite::SetIniSetting(TextView section, TextView key, TextView value, std::int16_t) {
    return Write(places.currentFile, section, key, value);
}

bool InifilesLite::SetIniSetting(TextView section, TextView key, std::int16_t value,
                                 std::int16_t flags) {
    return SetIniSetting(section, key, NumberText(value), flags);
}

bool InifilesLite::SetIniSetting(TextView section, TextView key, std::int32_t value,
                                 std::int16_t flags) {
    return SetIniSetting(section, key, NumberText(value), flags);
}

bool InifilesLite::SetIniSettingWithTest(TextView section, TextView key, TextView value,
                                         std::int16_t) {
    return Write(places.baseFile, section, key, value);
}

bool InifilesLite::Flush() {
    return iniFile.Flush();
}

SettingsBatch::SettingsBatch(InifilesLite& inifilesLite) : inifilesLite(inifilesLite) {
    ++inifilesLite.batches;
}

SettingsBatch::~SettingsBatch() {
    // What cannot be written now stays in memory until the next write.
    if (--inifilesLite.batches == 0) {
        inifilesLite.debug.Guarded([this] { inifilesLite.Flush(); });
    }
}

}  // namespace tellwick
