// The whole program over the platform in memory, with its forms as plain values.
#pragma once

#include "addin/Program.h"
#include "platform/Keys.h"
#include "platform/MemoryForms.h"
#include "platform/MemoryPlatform.h"
#include "platform/Product.h"

namespace tellwick::test {

inline constexpr TextView QueueKey = u"Software\\Omberline\\Tellwick\\SMSQueue";

struct TestProgram {
    MemoryPlatform platform;
    MemoryFormSmsSendView view;
    MemoryFormSmsSelectAddressView selectAddressView;
    MemoryFormOptionsView optionsView;
    MemoryFormSmsPreviewView previewView;
    MemoryFormSupportView supportView;
    Program program{platform.Ports(), view,        selectAddressView,
                    optionsView,      previewView, supportView};

    TestProgram() {
        SetRegistry(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                    u"AppData", u"C:\\Data");
        program.inifilesLite.GetIniFile();
        // There is no language file, which the user is told of once.
        platform.dialogs.shown.clear();
    }

    Text Registry(TextView key, TextView name) {
        return platform.registry.Read(Hive::CurrentUser, key, name).value_or(Text());
    }
    void SetRegistry(TextView key, TextView name, TextView value) {
        platform.registry.WriteString(Hive::CurrentUser, key, name, value);
    }
    // The sender application runs, switched on and listening.
    void StartSender() {
        platform.programs.paths = {u"C:\\Tellwick.exe"};
        SetRegistry(RootKey, u"On", u"1");
        SetRegistry(RootKey, u"hWnd", u"4711");
    }
    // Also begins the trace's file.
    void SwitchTraceOn() {
        SetRegistry(AddInKey, u"DebugMode", u"1");
        program.debug.DebugInit(true, false);
    }
    std::string Trace() { return platform.fileSystem.files[TraceFile].contents; }
    Text Setting(TextView section, TextView key) {
        return program.inifilesLite.GetIniSetting(section, key);
    }
    void SetSetting(TextView section, TextView key, TextView value) {
        program.inifilesLite.SetIniSetting(section, key, value);
    }
};

}  // namespace tellwick::test
