// Identifiers of menu entries and accelerators.
#pragma once

namespace tellwick::standin::menu {

enum Identifier {
    NewWindow = 100,
    NewMail,
    OpenItem,
    Close,
    Exit,
    Delete,
    Reply,
    Inbox,
    Calendar,
    Contacts
};

}  // namespace tellwick::standin::menu
