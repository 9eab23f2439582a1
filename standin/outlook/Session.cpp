#include "outlook/Session.h"

namespace tellwick::standin {

Session::Session(OutlookModel& outlook, AddInLoader& loader, Desk& desk, Dispatcher& dispatcher,
                 bool stay)
    : outlook(outlook), loader(loader), desk(desk), dispatcher(dispatcher), stay(stay) {
    outlook.shutDownAddIns = [this] { this->loader.ShutDown(); };
    outlook.connectAddIn = [this](const auto& addIn, bool connect) {
        return connect ? this->loader.Connect(addIn, AddInLoader::AfterStartup)
                       : this->loader.Disconnect(addIn, AddInLoader::UserClosed);
    };
    outlook.quitRequested = [this] { RequestEnd(); };
}

void Session::Start(bool window, bool late) {
    running = true;
    const std::shared_ptr<Explorer> first = window ? outlook.CreateExplorer() : nullptr;
    if (late) {
        loader.List();
    } else {
        loader.LoadAll(AddInLoader::Startup);
    }
    outlook.Activate(first);
    desk.Synchronise();
    outlook.startupComplete = true;
    loader.StartupComplete();
}

void Session::RequestEnd() {
    if (ending) return;
    ending = true;
    dispatcher.Post([this] { End(); });
}

void Session::RequestExit() {
    stay = false;
    RequestEnd();
}

void Session::End() {
    const bool ends = running;
    if (ends) {
        outlook.Quit();
        desk.Synchronise();
    }
    running = false;
    ending = false;
    if (stay && ends) {
        dispatcher.Post([this] { loader.Abandon(); });
    } else {
        PostQuitMessage(0);
    }
}

}  // namespace tellwick::standin
