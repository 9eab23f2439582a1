// A user's part of an installation by an administrator, whose set-up cannot reach it: what the
// set-up program for one user does at once is made up for when the user's Outlook first loads the
// add-in.
#pragma once

namespace tellwick {

class FormOptions;
class RegEdit;

class FirstUse {
public:
    FirstUse(RegEdit& regEdit, FormOptions& formOptions);

    // Where the registry says that it is due, once for each user: country codes as proposed for the
    // user's country, where neither the user nor an administrator has given any. Asks nothing.
    void SetUp();

private:
    RegEdit& regEdit;
    FormOptions& formOptions;
};

}  // namespace tellwick
