// The settings of the phone models, of which one can be the same as another.
#pragma once

#include <cstdint>

#include "platform/Text.h"

namespace tellwick {

class IniFile;
class InifilesLite;

class PhoneModels {
public:
    PhoneModels(IniFile& iniFile, const InifilesLite& inifilesLite);

    // A phone model's setting, with the inheritance of "SameAs".
    Text GetMobileSetting(TextView section, TextView key, TextView defaultValue, bool userFileFirst,
                          std::int16_t flags, bool ignoreUserFile);
    // Whether the last read followed at least one "SameAs".
    bool ModelInherited() const { return modelInherited; }

private:
    Text WalkModels(const Text& section, TextView key, std::int16_t flags);

    Text userModelFile;     // the user's own phone models; no part of the program names one
    Text lastModelSection;  // first section and first target of the last walk through models
    Text lastSameAs;
    bool modelInherited = false;

    IniFile& iniFile;
    const InifilesLite& inifilesLite;
};

}  // namespace tellwick
