// The modules of settings and language over some platform.
#pragma once

#include "language/Language.h"
#include "platform/Platform.h"
#include "settings/Debug.h"
#include "settings/Documents.h"
#include "settings/Files.h"
#include "settings/IniFile.h"
#include "settings/InifilesLite.h"
#include "settings/MessageBoxes.h"
#include "settings/Paths.h"
#include "settings/PhoneModels.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"

namespace tellwick::test {

struct Modules {
    explicit Modules(const Platform& platform) : ports(platform) {}

    Platform ports;
    MessageBoxes messageBoxes{ports.dialogs};
    RegEdit regEdit{ports.registry, debug};
    Debug debug{ports.errors, regEdit,          inifilesLite,   paths,       language,
                questionBox,  ports.fileSystem, ports.programs, ports.clock, ports.locale};
    Paths paths{regEdit, ports.programs};
    QuestionBox questionBox{debug, language, inifilesLite, ports.dialogs};
    Files files{ports.errors, debug, messageBoxes, ports.fileSystem, ports.locale};
    IniFile iniFile{debug, files, ports.fileSystem, ports.locks, ports.locale};
    InifilesLite inifilesLite{debug, regEdit,  iniFile,     files,
                              paths, language, questionBox, ports.fileSystem};
    Language language{debug, regEdit,      iniFile,          inifilesLite,
                      paths, messageBoxes, ports.fileSystem, ports.locale};
    PhoneModels phoneModels{iniFile, inifilesLite};
    Documents documents{debug, regEdit, ports.programs};
};

}  // namespace tellwick::test
