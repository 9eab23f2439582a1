// A menu that opens at a point.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "outlook/Face.h"

namespace tellwick::standin {

class Popup {
public:
    explicit Popup(int faceSize) : faceSize(faceSize), menu(CreatePopupMenu()) {}
    ~Popup();
    Popup(const Popup&) = delete;
    Popup& operator=(const Popup&) = delete;

    void AddSeparator() { AppendMenuW(menu, MF_SEPARATOR, 0, nullptr); }
    void Add(const Text& caption, const Face& face, bool enabled, std::function<void()> choose);
    // Shows it and does what the user chooses. The owner hears its messages.
    void Run(HWND owner, POINT corner);

private:
    int faceSize;
    HMENU menu;
    std::vector<HBITMAP> bitmaps;
    std::vector<std::function<void()>> actions;
};

}  // namespace tellwick::standin
