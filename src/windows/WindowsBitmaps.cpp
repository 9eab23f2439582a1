#include "windows/WindowsBitmaps.h"

#include <ocidl.h>
#include <olectl.h>

#include "windows/AutomationObject.h"
#include "windows/MessageFont.h"
#include "windows/Values.h"

namespace tellwick::windows {

namespace {

constexpr COLORREF LightGrey = RGB(192, 192, 192);

// A device context that the bitmap is selected into for as long as it lives.
class Canvas {
public:
    explicit Canvas(HGDIOBJ bitmap)
        : context(CreateCompatibleDC(nullptr)), previous(SelectObject(context, bitmap)) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(context, previous);
        DeleteDC(context);
    }
    HDC Get() const { return context; }

private:
    HDC context;
    HGDIOBJ previous;
};

// A viewer of the clipboard has it open just after a change.
constexpr int MostAttempts = 20;
constexpr DWORD AttemptPause = 10;  // milliseconds

// The clipboard, open for a window from construction to destruction if it could be opened.
class OpenClipboardScope {
public:
    explicit OpenClipboardScope(HWND window) : open(window && OpenClipboard(window)) {
        for (int attempt = 1; window && !open && attempt < MostAttempts; ++attempt) {
            Sleep(AttemptPause);
            open = OpenClipboard(window) != 0;
        }
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    ~OpenClipboardScope() {
        if (open) CloseClipboard();
    }
    explicit operator bool() const { return open; }

private:
    bool open;
};

}  // namespace

WindowsBitmaps::~WindowsBitmaps() {
    if (clipboardWindow) DestroyWindow(clipboardWindow);
}

// What is emptied for no window takes nothing afterwards.
HWND WindowsBitmaps::ClipboardWindow() {
    if (!clipboardWindow) {
        clipboardWindow = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE,
                                          nullptr, library, nullptr);
    }
    return clipboardWindow;
}

BitmapHandle WindowsBitmaps::Load(std::int32_t resource) {
    const HANDLE bitmap =
        LoadImageW(library, MAKEINTRESOURCEW(resource), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    if (!bitmap) NoteFailure(errors, HRESULT_FROM_WIN32(GetLastError()));
    return reinterpret_cast<BitmapHandle>(bitmap);
}

BitmapHandle WindowsBitmaps::CreateMapped(std::int32_t resource, SystemColour lightGrey) {
    const BitmapHandle handle = Load(resource);
    const auto bitmap = reinterpret_cast<HBITMAP>(handle);
    BITMAP size;
    if (!bitmap || !GetObjectW(bitmap, sizeof size, &size)) return handle;
    const COLORREF replacement = GetSysColor(int(lightGrey));
    const Canvas canvas(bitmap);
    for (int y = 0; y < size.bmHeight; ++y) {
        for (int x = 0; x < size.bmWidth; ++x) {
            if (GetPixel(canvas.Get(), x, y) == LightGrey) {
                SetPixelV(canvas.Get(), x, y, replacement);
            }
        }
    }
    return handle;
}

ObjectPtr WindowsBitmaps::CreatePicture(BitmapHandle bitmap) {
    return MakePicture(GdiObject(reinterpret_cast<HBITMAP>(bitmap)));
}

std::int32_t WindowsBitmaps::Resolution() {
    return ResolutionOf(GetActiveWindow());
}

ObjectPtr WindowsBitmaps::CreateIconPicture(std::int32_t resource, std::int32_t size) {
    const int side = MulDiv(size, Resolution(), 96);
    const IconHandle icon = LoadLibraryIcon(resource, side);
    BITMAPINFO pixels{};
    pixels.bmiHeader.biSize = sizeof pixels.bmiHeader;
    pixels.bmiHeader.biWidth = side;
    pixels.bmiHeader.biHeight = -side;
    pixels.bmiHeader.biPlanes = 1;
    pixels.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    GdiObject bitmap(CreateDIBSection(nullptr, &pixels, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!icon || !bitmap) {
        NoteFailure(errors, HRESULT_FROM_WIN32(GetLastError()));
        return nullptr;
    }
    // Drawn over nothing at all, the icon brings its transparency along.
    DrawIconEx(Canvas(bitmap.get()).Get(), 0, 0, icon.get(), side, side, 0, nullptr, DI_NORMAL);
    return MakePicture(std::move(bitmap));
}

ObjectPtr WindowsBitmaps::MakePicture(GdiObject bitmap) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = static_cast<HBITMAP>(bitmap.get());
    ComPtr<IDispatch> picture;
    const HRESULT result = OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                                    reinterpret_cast<void**>(picture.Out()));
    if (FAILED(result)) {
        NoteFailure(errors, result);
    } else {
        static_cast<void>(bitmap.release());
    }
    return WrapDispatch(errors, picture.Get());
}

void WindowsBitmaps::ClearClipboard() {
    // To open it costs more than to look.
    if (CountClipboardFormats() == 0) return;
    const OpenClipboardScope clipboard(ClipboardWindow());
    if (!clipboard || !EmptyClipboard()) {
        NoteFailure(errors, HRESULT_FROM_WIN32(GetLastError()));
    }
}

void WindowsBitmaps::PutOnClipboard(const ObjectPtr& picture) {
    ComPtr<IPicture> source;
    if (IDispatch* dispatch = DispatchOf(picture)) {
        dispatch->QueryInterface(IID_IPicture, reinterpret_cast<void**>(source.Out()));
    }
    OLE_HANDLE handle = 0;
    if (!source || FAILED(source->get_Handle(&handle))) {
        errors.Note(error::ObjectNotSet, u"Object variable or With block variable not set");
        return;
    }
    // A copy of the screen's kind, which is what the clipboard hands on everywhere.
    GdiObject copy(CopyImage(reinterpret_cast<HBITMAP>(ULONG_PTR(handle)), IMAGE_BITMAP, 0, 0, 0));
    const OpenClipboardScope clipboard(ClipboardWindow());
    const bool own = clipboard && (GetClipboardOwner() == clipboardWindow || EmptyClipboard());
    if (own && SetClipboardData(CF_BITMAP, copy.get())) {
        static_cast<void>(copy.release());
    } else {
        NoteFailure(errors, HRESULT_FROM_WIN32(GetLastError()));
    }
}

}  // namespace tellwick::windows
