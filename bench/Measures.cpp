#include "Measures.h"

#include <cstdio>
#include <cstdlib>

#include "platform/Product.h"

namespace tellwick::bench {

namespace {

void Expect(bool holds, const char* what) {
    if (holds) return;
    std::printf("wrong result: %s\n", what);
    std::exit(1);
}

std::string Ascii(TextView text) {
    return {text.begin(), text.end()};
}

}  // namespace

void Report(const char* what, double value, const char* unit, double target) {
    std::printf("%-58s %10.2f %s", what, value, unit);
    if (target > 0)
        std::printf("  (target below %g: %s)", target, value < target ? "met" : "MISSED");
    std::printf("\n");
}

FormSettings::FormSettings() {
    const struct {
        TextView section, stem;
        int count;
    } groups[] = {{u"Settings", u"Port", 6},         {u"SMS", u"Option", 12},
                  {u"Positions", u"SMSSend", 5},     {u"Editor", u"Font", 2},
                  {u"SMSNumberList", u"Number", 10}, {u"Texte", u"Text", 5}};
    for (const auto& group : groups) {
        // Each behind the settings of other forms.
        for (int other = 0; other < 5; ++other) {
            file += "[Other" + Ascii(group.section) + std::to_string(other) + "]\r\n";
            for (int i = 0; i < 70; ++i) {
                file += "Setting" + std::to_string(i) +
                        "=some value of another form, 45 characters\r\n";
            }
        }
        file += "[" + Ascii(group.section) + "]\r\n";
        for (int i = 0; i < group.count; ++i) {
            settings.push_back({Text(group.section), Text(group.stem) + NumberText(i)});
            const std::string value = "value " + std::to_string(i);
            characters += value.size();
            file += Ascii(settings.back().key) + "=" + value + "\r\n";
        }
    }
}

double ReadFormSettings(test::Modules& modules, const FormSettings& form, const Text& path) {
    std::size_t read = 0;
    const double taken = Nanoseconds(1000, [&] {
        for (const FormSettings::Setting& setting : form.settings) {
            read += modules.iniFile.ReadFromIniFile(path, setting.section, setting.key).size();
        }
    });
    Expect(read == form.characters * 7 * 1000, "settings read");
    return taken / 1000;
}

void MeasureSettings(test::Modules& modules, const Text& folder) {
    const FormSettings form;
    const Text path = folder + u"bench.ini";
    FileSystem& disk = modules.ports.fileSystem;
    disk.Write(path, form.file, WriteMode::Replace);
    std::printf("a settings file of %zu bytes, %zu settings\n", form.file.size(),
                form.settings.size());
    Report("reading the settings, file held", ReadFormSettings(modules, form, path), "us", 0);
    const double loading = Nanoseconds(20, [&] {
        modules.iniFile.ReadFromIniFile(folder + u"none.ini", u"x", u"x");
        for (const FormSettings::Setting& setting : form.settings) {
            modules.iniFile.ReadFromIniFile(path, setting.section, setting.key);
        }
    });
    Report("reading the settings, file loaded first", loading / 1000, "us", 0);
    bool written = true;
    const double writing = Nanoseconds(20, [&] {
        for (const FormSettings::Setting& setting : form.settings) {
            written &= modules.iniFile.WriteToIniFile(path, setting.section, setting.key,
                                                      u"value 0", false);
        }
        written &= modules.iniFile.Flush();
    });
    const std::size_t shorter = form.characters - 40 * Text(u"value 0").size();
    Expect(written && disk.Length(path) == std::int64_t(form.file.size() - shorter),
           "settings written");
    Report("writing the settings with one flush", writing / 1000, "us", 0);
    disk.Delete(path);
}

void MeasureLanguage(test::Modules& modules) {
    struct Lookup {
        Text section, key;
    };
    std::vector<Lookup> lookups;
    std::string file;
    for (int section = 0; section < 40; ++section) {
        const Text name = u"FormOfTheProgram" + NumberText(section);
        file += "[" + Ascii(name) + "]\r\n";
        for (int i = 0; i < 60; ++i) {
            const Text key = u"ButtonWithCaption" + NumberText(i);
            if (i % 12 < 5) lookups.push_back({name, key});
            file += Ascii(key) + "=The caption of a button\\nin &two lines of this language\r\n";
        }
    }
    const Text path = modules.paths.ProgramFolder() + u"English.lng";
    modules.ports.fileSystem.Write(path, file, WriteMode::Replace);
    std::size_t found = 0;
    const auto lookUp = [&] {
        for (const Lookup& lookup : lookups) {
            found += modules.language.GetLanguageString(lookup.section, lookup.key).empty() ? 0 : 1;
        }
    };
    lookUp();
    Expect(lookups.size() == 1000 && found == 1000, "texts found");
    std::printf("a language file of %zu bytes\n", file.size());
    Report("1,000 language lookups", Nanoseconds(20, lookUp) / 1e6, "ms", 1);
    modules.ports.fileSystem.Delete(path);
}

void MeasureTrace(test::Modules& modules) {
    Debug& debug = modules.debug;
    Expect(!debug.Active(), "tracing off");
    Report("one trace call, tracing off",
           Nanoseconds(10'000'000, [&] { debug.DebugTrace(u"Procedure", 1); }), "ns", 5);
    const auto setMode = [&](TextView mode) {
        modules.regEdit.WriteValue(Hive::CurrentUser, AddInKey, u"DebugMode", mode);
    };
    setMode(u"1");
    debug.DebugInit(true, false);
    Expect(debug.Active(), "tracing on");
    Report("one trace call, tracing on",
           Nanoseconds(2000, [&] { debug.DebugTrace(u"Procedure", 1); }) / 1000, "us", 0);
    setMode(u"0");
}

}  // namespace tellwick::bench
