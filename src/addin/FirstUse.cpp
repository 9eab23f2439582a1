#include "addin/FirstUse.h"

#include "compose/FormOptions.h"
#include "platform/Product.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

// Of the machine or of the user, as the package was made for; written by it, taken away with it.
constexpr TextView Due = u"FirstUse";
// Of the user.
constexpr TextView Done = u"FirstUseDone";

}  // namespace

FirstUse::FirstUse(RegEdit& regEdit, FormOptions& formOptions)
    : regEdit(regEdit), formOptions(formOptions) {}

void FirstUse::SetUp() {
    const bool due = !regEdit.ReadValue(Hive::LocalMachine, AddInKey, Due).empty() ||
                     !regEdit.ReadValue(Hive::CurrentUser, AddInKey, Due).empty();
    if (!due || !regEdit.ReadValue(Hive::CurrentUser, AddInKey, Done).empty()) return;
    formOptions.SetFirstPrefixes({});
    regEdit.WriteValue(Hive::CurrentUser, AddInKey, Done, u"1");
}

}  // namespace tellwick
