// The modules of settings and language over some platform.
#pragma once

#include "language/Language.h"
#include "platform/Platform.h"
#include "settings/Debug.h"
#include "settings/Documents.h"
#include "settings/ErrorBoxes.h"
#include "settings/Files.h"
#include "settings/IniFile.h"
#include "settings/InifilesLite.h"
#include "settings/MessageBoxes.h"
#include "settings/Paths.h"
#include "settings/PhoneModels.h"
#include "settings/Policies.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"
#include "settings/SettingsLocator.h"
#include "settings/TraceSwitch.h"

namespace tellwick::test {

struct Modules {
    explicit Modules(const Platform& platform) : ports(platform) {}

    Platform ports;
    MessageBoxes messageBoxes{ports.dialogs};
    ErrorBoxes errorBoxes{messageBoxes};
    Debug debug{ports.errors,     ports.registry, errorBoxes,
                ports.fileSystem, ports.clock,    ports.locale};
    RegEdit regEdit{ports.registry, debug};
    Paths paths{regEdit, ports.programs};
    Files files{ports.errors, debug, messageBoxes, ports.fileSystem, ports.locale};
    IniFile iniFile{debug, files, ports.fileSystem, ports.locks, ports.locale};
    Policies policies{ports.registry, debug};
    InifilesLite inifilesLite{debug, regEdit, iniFile, policies};
    PhoneModels phoneModels{iniFile, inifilesLite};
    Language language{debug, regEdit,      iniFile,          inifilesLite,
                      paths, messageBoxes, ports.fileSystem, ports.locale};
    QuestionBox questionBox{debug, language, inifilesLite, ports.dialogs};
    TraceSwitch traceSwitch{debug,       regEdit,          inifilesLite,   paths,       language,
                            questionBox, ports.fileSystem, ports.programs, ports.locale};
    SettingsLocator settingsLocator{debug, regEdit,  inifilesLite, files,
                                    paths, language, questionBox,  ports.fileSystem};
    Documents documents{debug, regEdit, ports.programs};
};

}  // namespace tellwick::test
