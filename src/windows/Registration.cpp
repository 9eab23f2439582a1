#include "platform/Product.h"
#include "windows/ModulePath.h"
#include "windows/Server.h"
#include "windows/WindowsRegistry.h"

namespace tellwick::windows {

namespace {

constexpr TextView Classes = u"Software\\Classes\\";
constexpr TextView AddIns = u"Software\\Microsoft\\Office\\Outlook\\Addins\\";
// The line break is part of the stored text.
constexpr TextView Description =
    u"Tellwick, send and receive SMS with Outlook (2000, 2002 (XP), 2003)\r\n";
constexpr std::uint32_t LoadAtStart = 3;

Text ClassKey() {
    return Text(Classes).append(u"CLSID\\").append(ConnectClassText);
}

}  // namespace

bool Register() {
    WindowsRegistry registry;
    const auto write = [&](const Text& key, TextView name, TextView value) {
        return registry.WriteWide(Hive::CurrentUser, key, name, value);
    };
    const Text progId = Text(Classes).append(ProgrammaticIdentifier);
    const Text addIn = Text(AddIns).append(ProgrammaticIdentifier);
    return write(progId, {}, ApplicationName) && write(progId + u"\\CLSID", {}, ConnectClassText) &&
           write(ClassKey(), {}, ApplicationName) &&
           write(ClassKey() + u"\\ProgID", {}, ProgrammaticIdentifier) &&
           write(ClassKey() + u"\\InprocServer32", {}, ModulePath(Library())) &&
           write(ClassKey() + u"\\InprocServer32", u"ThreadingModel", u"Apartment") &&
           write(addIn, u"FriendlyName", ApplicationName) &&
           write(addIn, u"Description", Description) &&
           registry.WriteNumber(Hive::CurrentUser, addIn, u"LoadBehavior", LoadAtStart);
}

bool Unregister() {
    WindowsRegistry registry;
    const auto remove = [&](const Text& key, TextView subkey) {
        registry.DeleteKey(Hive::CurrentUser, key, subkey);
        return !registry.Read(Hive::CurrentUser, key + u"\\" + Text(subkey), {});
    };
    bool removed = remove(Text(Classes).append(ProgrammaticIdentifier), u"CLSID");
    removed = remove(Text(Classes), ProgrammaticIdentifier) && removed;
    removed = remove(ClassKey(), u"ProgID") && removed;
    removed = remove(ClassKey(), u"InprocServer32") && removed;
    removed = remove(Text(Classes) + u"CLSID", ConnectClassText) && removed;
    return remove(Text(AddIns), ProgrammaticIdentifier) && removed;
}

}  // namespace tellwick::windows
