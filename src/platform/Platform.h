// Everything the program needs from its surroundings, one port each.
#pragma once

#include "platform/Bitmaps.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/Forms.h"
#include "platform/Locale.h"
#include "platform/Locks.h"
#include "platform/MessageLoop.h"
#include "platform/Object.h"
#include "platform/PendingError.h"
#include "platform/Programs.h"
#include "platform/Registry.h"
#include "platform/Timer.h"

namespace tellwick {

struct Platform {
    PendingError& errors;
    Registry& registry;
    FileSystem& fileSystem;
    Programs& programs;
    MessageLoop& messageLoop;
    Dialogs& dialogs;
    Clock& clock;
    Locale& locale;
    Automation& automation;
    Bitmaps& bitmaps;
    Timers& timers;
    Locks& locks;
};

}  // namespace tellwick
