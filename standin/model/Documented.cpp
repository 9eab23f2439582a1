#include "model/Documented.h"

#include <algorithm>
#include <array>

namespace tellwick::standin {

namespace {

constexpr std::int32_t Oldest = 9;
constexpr std::int32_t Newest = 16;

// Outlook 2000 is 9, 2002 10, 2003 11, 2007 12, 2010 14, and 2016 to Microsoft 365 are 16.
constexpr auto Rows = std::to_array<DocumentedRow>({
    {Documented::ConversationLines, u"conversation-lines", 14, Newest, true, DocumentedRow::InModel,
     u"a selected conversation counts as nothing selected; its header gives its mails"},
    {Documented::RibbonAskedLate, u"ribbon-asked-late", 12, Newest, true, DocumentedRow::InModel,
     u"a ribbon is asked for when the first window of its kind comes, and never again"},
    {Documented::BarsAfterStartup, u"bars-after-startup", Oldest, Oldest, false,
     DocumentedRow::InModel, u"no active explorer and no bars before OnStartupComplete"},
    {Documented::QuietEnd, u"quiet-end", 14, Newest, true, DocumentedRow::InModel,
     u"add-ins hear nothing of the end but Quit"},
    {Documented::SecurityQuestion, u"security-question", Oldest, 10, true, DocumentedRow::InModel,
     u"the user is asked before sender, body and recipients are handed out"},
    {Documented::UntrustedObjects, u"untrusted-objects", 11, Newest, true, DocumentedRow::InModel,
     u"so only for objects that do not come from OnConnection's application"},
    {Documented::HeldItem, u"held-item", Oldest, Newest, true, DocumentedRow::InModel,
     u"an item that is held stays as it was when the store changes, and cannot be saved then"},
    {Documented::NoDefaultMember, u"no-default-member", Oldest, Newest, false,
     DocumentedRow::InModel, u"a mail has no default property"},
    {Documented::ArrayLargerThanTable, u"array-larger-than-table", 12, 12, true,
     DocumentedRow::InModel, u"a table gives no array of more rows than it has"},
    {Documented::LargeTableUncounted, u"large-table-uncounted", 12, Newest, true,
     DocumentedRow::InModel, u"a large table does not count its rows"},
    {Documented::RowByRow, u"row-by-row", 12, Newest, true, DocumentedRow::InModel,
     u"a table gives its rows one by one in any case"},
    {Documented::PublicStore, u"public-store", Oldest, Newest, true, DocumentedRow::InModel,
     u"the public folders are a store like any other"},
    {Documented::ClosedStore, u"closed-store", 12, Newest, true, DocumentedRow::InModel,
     u"a store tells whether it is open, and its kind"},
    {Documented::PasswordAsked, u"password-asked", Oldest, Newest, true, DocumentedRow::InModel,
     u"touching a closed file with a password asks for it"},
    {Documented::SlowStore, u"slow-store", Oldest, Newest, true, DocumentedRow::InModel,
     u"a store on a server takes its time for every call"},
    {Documented::SharedFolder, u"shared-folder", 12, Newest, true, DocumentedRow::InModel,
     u"others' folders are in the navigation pane alone"},
    {Documented::DeletedFolder, u"deleted-folder", Oldest, Newest, true, DocumentedRow::InModel,
     u"deleted folders lie below that of deleted items"},
    {Documented::HiddenFolder, u"hidden-folder", 12, Newest, true, DocumentedRow::InModel,
     u"a folder has a property that hides it from the user"},
    {Documented::LateChange, u"late-change", Oldest, Newest, true, DocumentedRow::InModel,
     u"a change can be older than the newest one known"},
    {Documented::LocalDates, u"local-dates", Oldest, Newest, true, DocumentedRow::InModel,
     u"dates are those of the user's time zone"},
    {Documented::UniversalDates, u"universal-dates", 12, Newest, true, DocumentedRow::InModel,
     u"a table gives universal dates by their MAPI names"},
    {Documented::OtherCalendar, u"other-calendar", Oldest, Newest, false, DocumentedRow::InModel,
     u"a date in a filter is read by another calendar"},
    {Documented::CountFails, u"count-fails", Oldest, Newest, true, DocumentedRow::InModel,
     u"the items of one folder cannot be counted"},
    {Documented::FoldersLimited, u"folders-limited", Oldest, Newest, true, DocumentedRow::InModel,
     u"too many open folders end the session"},
    {Documented::SystemDpiCalls, u"system-dpi-calls", 16, Newest, true, DocumentedRow::OnDesktop,
     u"the loop follows monitors, and add-ins are called with the thread in the system's context"},
    {Documented::OwnedClipboard, u"owned-clipboard", Oldest, Newest, true, DocumentedRow::OnDesktop,
     u"a clipboard that was emptied for no window takes nothing"},
    {Documented::BusyClipboard, u"busy-clipboard", Oldest, Newest, false, DocumentedRow::OnDesktop,
     u"a viewer of the clipboard has it open just after a change"},
    {Documented::NoRedemption, u"no-redemption", 12, Newest, true, DocumentedRow::OnDesktop,
     u"few machines have the library that reads mails without a question"},
    {Documented::ForeignUser, u"foreign-user", Oldest, Newest, false, DocumentedRow::OnDesktop,
     u"the user's name, and so the temporary folder, has letters outside the code page"},
    {Documented::UnreadableProcess, u"unreadable-process", Oldest, Newest, false,
     DocumentedRow::OnDesktop,
     u"the sender runs with more rights: it is in the list of processes, and its path is not told"},
    {Documented::RunningAfterFocus, u"running-after-focus", Oldest, Newest, true,
     DocumentedRow::OnDesktop, u"other programs find it running once it has lost the focus"},
});

}  // namespace

std::span<const DocumentedRow> DocumentedRows() {
    return Rows;
}

const DocumentedRow& RowOf(Documented behaviour) {
    return *std::ranges::find(Rows, behaviour, &DocumentedRow::behaviour);
}

}  // namespace tellwick::standin
