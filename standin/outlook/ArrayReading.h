// Takes contacts out of tables, in arrays, and does nothing with them: what reading cannot do
// without.
#pragma once

#include <oaidl.h>

namespace tellwick::standin {

// Of the items in the folders below the default contacts folder each property that the add-in
// reads, through COM; how many arrays it took. From Outlook 2007 on.
long ReadContactArrays(IDispatch& application);

}  // namespace tellwick::standin
