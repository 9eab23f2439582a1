#include "settings/Paths.h"

#include "settings/RegEdit.h"

namespace tellwick {

Paths::Paths(RegEdit& regEdit, Programs& programs) : regEdit(regEdit), programs(programs) {}

void Paths::PathsInit() {
    const auto shellFolder = [this](TextView name) {
        return WithBackslash(regEdit.ReadExpandedValue(
            Hive::CurrentUser,
            u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders", name));
    };
    programFolder = WithBackslash(programs.LibraryFolder());
    applicationData = shellFolder(u"AppData");
    localApplicationData = shellFolder(u"Local AppData");
    commonApplicationData = shellFolder(u"Common AppData");
}

const Text& Paths::ProgramFolder() {
    if (programFolder.empty()) PathsInit();
    return programFolder;
}

}  // namespace tellwick
