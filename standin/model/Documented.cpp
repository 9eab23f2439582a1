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
});

}  // namespace

std::span<const DocumentedRow> DocumentedRows() {
    return Rows;
}

const DocumentedRow& RowOf(Documented behaviour) {
    return *std::ranges::find(Rows, behaviour, &DocumentedRow::behaviour);
}

}  // namespace tellwick::standin
