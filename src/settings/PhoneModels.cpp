#include "settings/PhoneModels.h"

#include "settings/IniFile.h"
#include "settings/InifilesLite.h"

namespace tellwick {

namespace {

constexpr TextView NotSetHere = u"-x-";
constexpr int MaxModelReads = 5;

}  // namespace

PhoneModels::PhoneModels(IniFile& iniFile, const InifilesLite& inifilesLite)
    : iniFile(iniFile), inifilesLite(inifilesLite) {}

Text PhoneModels::GetMobileSetting(TextView section, TextView key, TextView defaultValue,
                                   bool userFileFirst, std::int16_t flags, bool ignoreUserFile) {
    // Deliberate: "Settings" is no phone model.
    const bool nested = StartsWithFolded(section, InifilesLite::NestedPrefix) &&
                        section.size() > InifilesLite::NestedPrefix.size();
    const Text model(nested ? section.substr(InifilesLite::NestedPrefix.size()) : section);
    const auto readUserFile = [&] {
        return iniFile.ReadFromIniFile(userModelFile, model, key, {}, flags);
    };
    Text value;
    modelInherited = false;
    if (userFileFirst && !ignoreUserFile) value = readUserFile();
    if (value.empty()) value = WalkModels(model, key, flags);
    if (value.empty() && !userFileFirst && !ignoreUserFile) value = readUserFile();
    if (value.empty()) value = defaultValue;
    return value == u"-" ? Text() : value;
}

// The key's value in the model's section or the first one it is the same as; "" when none has it.
Text PhoneModels::WalkModels(const Text& section, TextView key, std::int16_t flags) {
    const TextView marker = Contains(section, u"\\") ? NotSetHere : TextView();
    Text model = section;
    for (int read = 1; read <= MaxModelReads; ++read) {
        const Text value =
            iniFile.ReadFromIniFile(inifilesLite.Places().defaultsFile, model, key, marker, flags);
        if (value != NotSetHere) return value;
        if (read == MaxModelReads) break;
        if (read == 1 && section == lastModelSection && !lastSameAs.empty()) {
            model = lastSameAs;
        } else {
            Text target = iniFile.ReadFromIniFile(inifilesLite.Places().defaultsFile, model,
                                                  u"SameAs", {}, flags);
            if (target.empty()) {
                target = iniFile.ReadFromIniFile(userModelFile, model, u"SameAs", {}, flags);
            }
            if (target.empty()) return {};
            if (read == 1) {
                lastModelSection = section;
                lastSameAs = target;
            }
            model = target;
        }
        modelInherited = true;
    }
    return {};
}

}  // namespace tellwick
