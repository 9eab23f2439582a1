// The user's manual, opened at a topic: as compiled help, or as plain pages where there is none.
#pragma once

#include <cstdint>

#include "platform/FileSystem.h"
#include "platform/Programs.h"
#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class Documents;

class HelpViewer : private Services {
public:
    HelpViewer(const Services& services, Documents& documents, FileSystem& fileSystem,
               Programs& programs);

    // Opens the topic of the compiled help, or the page of the manual's folder. The user is told
    // when the help is in another language than the program, and when nothing could be started.
    // The flag has no meaning.
    void CallHelp(TextView topic, TextView page, std::int32_t flag);

private:
    void TellOfOtherLanguage();
    void OpenCompiled(TextView topic);

    Documents& documents;
    FileSystem& fileSystem;
    Programs& programs;
};

}  // namespace tellwick
