#include "model/Documented.h"

#include <algorithm>
#include <array>

namespace tellwick::standin {

namespace {

constexpr std::int32_t Oldest = 9;
constexpr std::int32_t Newest = 16;

// Outlook 2000 is 9, 2002 10, 2003 11, 2007 12, 2010 14, and 2016 to Microsoft 365 are 16.
constexpr auto Rows = std::to_array<DocumentedRow>({
    {Documented::NoDefaultMember, u"no-default-member", Oldest, Newest, false,
     DocumentedRow::InModel, u"a mail has no default property"},
    {Documented::SystemDpiCalls, u"system-dpi-calls", 16, Newest, true, DocumentedRow::OnDesktop,
     u"the loop follows monitors, and add-ins are called with the thread in the system's context"},
    {Documented::OwnedClipboard, u"owned-clipboard", Oldest, Newest, true, DocumentedRow::OnDesktop,
     u"a clipboard that was emptied for no window takes nothing"},
    {Documented::BusyClipboard, u"busy-clipboard", Oldest, Newest, false, DocumentedRow::OnDesktop,
     u"a viewer of the clipboard has it open just after a change"},
    {Documented::ForeignUser, u"foreign-user", Oldest, Newest, false, DocumentedRow::OnDesktop,
     u"the user's name, and so the temporary folder, has letters outside the code page"},
    {Documented::UnreadableProcess, u"unreadable-process", Oldest, Newest, false,
     DocumentedRow::OnDesktop,
     u"the sender runs with more rights: it is in the list of processes, and its path is not told"},
});

}  // namespace

std::span<const DocumentedRow> DocumentedRows() {
    return Rows;
}

const DocumentedRow& RowOf(Documented behaviour) {
    return *std::ranges::find(Rows, behaviour, &DocumentedRow::behaviour);
}

}  // namespace tellwick::standin
