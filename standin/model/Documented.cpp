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
});

}  // namespace

std::span<const DocumentedRow> DocumentedRows() {
    return Rows;
}

const DocumentedRow& RowOf(Documented behaviour) {
    return *std::ranges::find(Rows, behaviour, &DocumentedRow::behaviour);
}

}  // namespace tellwick::standin
