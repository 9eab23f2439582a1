// HTTP and HTTPS through the system's own library.
#pragma once

#include <map>
#include <memory>

#include "carrier/HttpRequests.h"
#include "windows/MainThread.h"

namespace tellwick::sender {

// Requests are made one after the other, in a thread that the first one starts.
class WindowsHttpRequests : public HttpRequests {
public:
    explicit WindowsHttpRequests(const MainThread& mainThread);
    WindowsHttpRequests(const WindowsHttpRequests&) = delete;
    WindowsHttpRequests& operator=(const WindowsHttpRequests&) = delete;
    // Does not wait for a request that is under way.
    ~WindowsHttpRequests() override;

    void Send(const HttpRequest& request, Done done) override;

private:
    struct Worker;
    void Answered(int number, const HttpAnswer& answer);

    MainThread mainThread;
    std::shared_ptr<Worker> worker;
    bool running = false;         // its thread
    std::map<int, Done> waiting;  // by the request's number
    int lastNumber = 0;
};

}  // namespace tellwick::sender
