// Loads add-ins as Outlook does and calls their connection events.
#pragma once

#include <memory>
#include <set>
#include <vector>

#include "model/OutlookModel.h"
#include "outlook/Com.h"
#include "outlook/ComObjects.h"

namespace tellwick::standin {

class AddInLoader {
public:
    enum ConnectMode { AfterStartup = 0, Startup = 1 };
    enum DisconnectMode { HostShutdown = 0, UserClosed = 1 };

    AddInLoader(OutlookModel& outlook, ComObjects& objects);
    ~AddInLoader();
    AddInLoader(const AddInLoader&) = delete;
    AddInLoader& operator=(const AddInLoader&) = delete;

    // Reads the add-ins keys of user and machine into COMAddIns.
    void List();
    // Lists, and connects every add-in whose load behaviour asks for loading at start-up. The
    // number of add-ins connected.
    std::size_t LoadAll(ConnectMode mode);
    // Connects one add-in that is known already. False when it cannot be created or is connected.
    bool Connect(const std::shared_ptr<ComAddIn>& addIn, ConnectMode mode);
    bool Disconnect(const std::shared_ptr<ComAddIn>& addIn, DisconnectMode mode);
    void StartupComplete();
    // OnBeginShutdown of all, then OnDisconnection of all.
    void ShutDown();
    // Lets go of the add-ins' objects without a call, as the end of the process does.
    void Abandon();
    // Unloads libraries that are ready for it. True when no library of an add-in ever connected
    // is left.
    bool UnloadLibraries();
    // What the libraries still loaded say to that.
    bool CanUnloadLibraries() const;
    bool Loaded() const { return !libraries.empty(); }

    // Milliseconds the add-ins took, and private bytes of this process around the connection.
    double connectionTime = 0;
    double shutdownTime = 0;
    std::uint64_t bytesBeforeConnection = 0;
    std::uint64_t bytesAfterConnection = 0;

private:
    struct Connected;

    OutlookModel& outlook;
    ComObjects& objects;
    std::vector<Connected> connected;
    std::set<Text> libraries;  // paths
};

// Private memory of this process in bytes.
std::uint64_t PrivateBytes();

}  // namespace tellwick::standin
