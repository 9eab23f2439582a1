// The bitmaps of the library's resources, pictures of them, and the clipboard.
#pragma once

#include "platform/Bitmaps.h"
#include "windows/Com.h"

namespace tellwick::windows {

class WindowsBitmaps : public Bitmaps {
public:
    WindowsBitmaps(PendingError& errors, HMODULE library) : errors(errors), library(library) {}
    WindowsBitmaps(const WindowsBitmaps&) = delete;
    WindowsBitmaps& operator=(const WindowsBitmaps&) = delete;
    ~WindowsBitmaps() override;
    BitmapHandle CreateMapped(std::int32_t resource, SystemColour lightGrey) override;
    BitmapHandle Load(std::int32_t resource) override;
    ObjectPtr CreatePicture(BitmapHandle bitmap) override;
    ObjectPtr CreateIconPicture(std::int32_t resource, std::int32_t size) override;
    std::int32_t Resolution() override;
    void ClearClipboard() override;
    void PutOnClipboard(const ObjectPtr& picture) override;

private:
    ObjectPtr MakePicture(GdiObject bitmap);
    HWND ClipboardWindow();

    PendingError& errors;
    HMODULE library;
    HWND clipboardWindow = nullptr;  // made when the clipboard is first opened
};

}  // namespace tellwick::windows
