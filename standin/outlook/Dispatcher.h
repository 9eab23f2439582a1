// Work to be done later on the user-interface thread, from its own message loop or a modal one.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>

namespace tellwick::standin {

class Dispatcher {
public:
    Dispatcher();
    ~Dispatcher();
    Dispatcher(const Dispatcher&) = delete;
    Dispatcher& operator=(const Dispatcher&) = delete;

    // From any thread. Work is done in the order it was posted; work posted while a piece runs a
    // message loop of its own is done inside that loop, unless Hold is in effect.
    void Post(std::function<void()> work);
    // While held (the calls nest) nothing is done.
    void Hold() { ++holds; }
    void Release();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    void RunNext();

    HWND window = nullptr;
    CRITICAL_SECTION section;
    std::deque<std::function<void()>> queue;
    int holds = 0;
};

// Nothing is done as long as it lives.
class Held {
public:
    explicit Held(Dispatcher& dispatcher) : dispatcher(dispatcher) { dispatcher.Hold(); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { dispatcher.Release(); }

private:
    Dispatcher& dispatcher;
};

}  // namespace tellwick::standin
