// A form whose window exists, inside the message loop of another program: its keys come to it
// before that loop sees them.
#pragma once

#include <functional>

#include "windows/Com.h"
#include "windows/Lifetime.h"

namespace tellwick::windows {

class OpenForm {
public:
    // `input` gets every message for the window and its controls as it is taken from the queue;
    // true uses it up. It may destroy this object.
    OpenForm(HWND window, std::function<bool(MSG&)> input);
    OpenForm(const OpenForm&) = delete;
    OpenForm& operator=(const OpenForm&) = delete;
    ~OpenForm();

private:
    static LRESULT CALLBACK MessageHook(int code, WPARAM removal, LPARAM message);

    HWND window;
    std::function<bool(MSG&)> input;
    Lifetime lifetime;
};

}  // namespace tellwick::windows
