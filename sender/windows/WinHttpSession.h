// A conversation with HTTP servers through the system's own library. Waits for answers.
#pragma once

#include "windows/Com.h"

#include <memory>
#include <string>

#include "carrier/HttpRequests.h"

namespace tellwick::sender {

class WinHttpSession {
public:
    WinHttpSession();
    WinHttpSession(const WinHttpSession&) = delete;
    WinHttpSession& operator=(const WinHttpSession&) = delete;
    ~WinHttpSession();

    // Makes a request and waits for its answer. The connection stays open for the next one.
    HttpAnswer Exchange(const HttpRequest& request);

private:
    struct Library;
    struct Internet;

    bool Open();
    bool Connect(const Text& host, std::uint16_t port);
    HttpAnswer Failed(DWORD error, DWORD stage) const;

    std::unique_ptr<const Library> library;
    std::unique_ptr<Internet> session;
    std::unique_ptr<Internet> connection;
    Text connectedTo;  // host and port
};

}  // namespace tellwick::sender
