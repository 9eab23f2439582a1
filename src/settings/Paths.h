// The folders the program works in.
#pragma once

#include "platform/FileSystem.h"
#include "platform/Programs.h"
#include "platform/Text.h"

namespace tellwick {

class RegEdit;

// Every folder ends in "\"; a folder that is not known is empty.
class Paths {
public:
    Paths(RegEdit& regEdit, Programs& programs);

    // Fills all fields: the folder of the library, and the user's and the machine's
    // application-data folders from the shell's folder list.
    void PathsInit();

    // The folder of the library; the first call initialises the paths.
    const Text& ProgramFolder();

    Text programFolder;
    Text applicationData;
    Text localApplicationData;
    Text commonApplicationData;

private:
    RegEdit& regEdit;
    Programs& programs;
};

}  // namespace tellwick
