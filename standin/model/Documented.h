// What public documentation says of Outlook, Office and Windows where a host made for tests would
// rather be kind. Every row is shown by a test: in tests/unit/Documented.cpp, or where it takes a
// desktop in tests/endtoend/Documented.cpp.
#pragma once

#include <cstdint>
#include <span>

#include "platform/Text.h"

namespace tellwick::standin {

enum class Documented {
    ConversationLines,
    RibbonAskedLate,
    BarsAfterStartup,
    QuietEnd,
    SecurityQuestion,
    UntrustedObjects,
    HeldItem,
    NoDefaultMember,

    // Contacts and folders.
    ArrayLargerThanTable,
    LargeTableUncounted,
    RowByRow,
    PublicStore,
    ClosedStore,
    PasswordAsked,
    SlowStore,
    SharedFolder,
    DeletedFolder,
    HiddenFolder,
    LateChange,
    LocalDates,
    UniversalDates,
    OtherCalendar,
    CountFails,
    FoldersLimited,
    SystemDpiCalls,
    OwnedClipboard,
    BusyClipboard,
    NoRedemption,
    ForeignUser,
    UnreadableProcess,
    RunningAfterFocus,
};

struct DocumentedRow {
    Documented behaviour;
    TextView name;       // as `--switch` takes it
    std::int32_t first;  // of the major versions that it holds for
    std::int32_t last;
    bool usual;                         // else only where it is switched on
    enum { InModel, OnDesktop } shown;  // by which of the two tests
    TextView what;
};

std::span<const DocumentedRow> DocumentedRows();
const DocumentedRow& RowOf(Documented behaviour);

}  // namespace tellwick::standin
