// The settings, the texts and what they stand on, over the real system.
#pragma once

#include "language/Language.h"
#include "recipients/Prefixes.h"
#include "settings/Debug.h"
#include "settings/ErrorBoxes.h"
#include "settings/Files.h"
#include "settings/IniFile.h"
#include "settings/InifilesLite.h"
#include "settings/MessageBoxes.h"
#include "settings/Paths.h"
#include "settings/Policies.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"
#include "settings/SettingsLocator.h"
#include "windows/AutomationObject.h"
#include "windows/WindowsClock.h"
#include "windows/WindowsDialogs.h"
#include "windows/WindowsFileSystem.h"
#include "windows/WindowsLocale.h"
#include "windows/WindowsLocks.h"
#include "windows/WindowsPrograms.h"
#include "windows/WindowsRegistry.h"
#include "windows/WindowsTimers.h"

namespace tellwick::sender {

struct SenderModules {
    PendingError errors;
    windows::WindowsRegistry registry;
    windows::WindowsAutomation automation{errors};
    windows::WindowsFileSystem fileSystem{errors, automation};
    windows::WindowsPrograms programs{errors, GetModuleHandleW(nullptr)};
    windows::NoDialogs dialogs;  // a program that works in the background asks nothing
    windows::WindowsClock clock;
    windows::WindowsLocale locale;
    windows::WindowsTimers timers;
    windows::WindowsLocks locks;

    MessageBoxes messageBoxes{dialogs};
    ErrorBoxes errorBoxes{messageBoxes};
    Debug debug{errors, registry, errorBoxes, fileSystem, clock, locale};
    RegEdit regEdit{registry, debug};
    Paths paths{regEdit, programs};
    Files files{errors, debug, messageBoxes, fileSystem, locale};
    IniFile iniFile{debug, files, fileSystem, locks, locale};
    Policies policies{registry, debug};
    InifilesLite inifilesLite{debug, regEdit, iniFile, policies};
    Language language{debug, regEdit,      iniFile,    inifilesLite,
                      paths, messageBoxes, fileSystem, locale};
    QuestionBox questionBox{debug, language, inifilesLite, dialogs};
    SettingsLocator settingsLocator{debug, regEdit,  inifilesLite, files,
                                    paths, language, questionBox,  fileSystem};
    Prefixes prefixes{debug, inifilesLite, language};
};

}  // namespace tellwick::sender
