#include <windows.h>

#include "Measures.h"

namespace tellwick::bench {

void CompareWithProfileFunctions(test::Modules& modules, const Text& folder) {
    const FormSettings form;
    const Text path = folder + u"profile.ini";
    modules.ports.fileSystem.Write(path, form.file, WriteMode::Replace);
    const double engine = ReadFormSettings(modules, form, path);

    struct Setting {
        std::string section, key;
    };
    std::vector<Setting> settings;
    for (const auto& [section, key] : form.settings) {
        settings.push_back(
            {modules.ports.locale.ToAnsi(section), modules.ports.locale.ToAnsi(key)});
    }
    const std::string file = modules.ports.locale.ToAnsi(path);
    const double system =
        Nanoseconds(10,
                    [&] {
                        char value[256];
                        for (const Setting& setting : settings) {
                            GetPrivateProfileStringA(setting.section.c_str(), setting.key.c_str(),
                                                     "", value, sizeof(value), file.c_str());
                        }
                    }) /
        1000;
    Report("reading the settings through the profile functions", system, "us", 0);
    Report("through the engine", engine, "us", system / 50);
    modules.ports.fileSystem.Delete(path);
}

}  // namespace tellwick::bench
