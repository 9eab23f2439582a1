#include "outlook/Face.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <memory>

#include "outlook/Com.h"
#include "outlook/ComObjects.h"

namespace tellwick::standin {

namespace {

struct BitmapDeleter {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<HBITMAP, BitmapDeleter>;

// Outlook's own faces, one letter a pixel: "." transparent, "#" outline, others see ColourOf.
constexpr const char* NewFace[FaceSize] = {
    "................", "................", ".##############.", ".#YwwwwwwwwwwY#.",
    ".#wYwwwwwwwwYw#.", ".#wwYwwwwwwYww#.", ".#wwwYwwwwYwww#.", ".#wwwwYwwYwwww#.",
    ".#wwwYwYYwYwww#.", ".#wwYwwwwwwYww#.", ".#wYwwwwwwwwYw#.", ".#YwwwwwwwwwwY#.",
    ".##############.", "................", "................", "................"};
constexpr const char* ReplyFace[FaceSize] = {
    "................", ".....#..........", "....##..........", "...#B#..........",
    "..#BB#####......", ".#BBBBBBBB##....", "#BBBBBBBBBBB#...", ".#BBBBBBBBBBB#..",
    "..#BB####BBBB#..", "...#B#...#BBB#..", "....##....#BB#..", ".....#....#BB#..",
    "..........#BB#..", "..........#BB#..", "..........####..", "................"};
constexpr const char* PrintFace[FaceSize] = {
    "................", "....########....", "....#wwwwww#....", "....#wBBBBw#....",
    "....#wwwwww#....", "....#wBBBBw#....", "..############..", ".#gggggggggggg#.",
    ".#gggggggggYgg#.", ".#gggggggggggg#.", ".##############.", "...#wwwwwwww#...",
    "...#wBBBBBBw#...", "...#wwwwwwww#...", "...##########...", "................"};
constexpr const char* DeleteFace[FaceSize] = {
    "................", ".RR.........RR..", ".RRR.......RRR..", "..RRR.....RRR...",
    "...RRR...RRR....", "....RRR.RRR.....", ".....RRRRR......", "......RRR.......",
    ".....RRRRR......", "....RRR.RRR.....", "...RRR...RRR....", "..RRR.....RRR...",
    ".RRR.......RRR..", ".RR.........RR..", "................", "................"};
constexpr const char* AppointmentFace[FaceSize] = {
    "................", "..############..", "..#BBBBBBBBBB#..", "..#BBBBBBBBBB#..",
    "..############..", "..#ww#ww#ww#w#..", "..############..", "..#ww#RR#ww#w#..",
    "..############..", "..#ww#ww#ww#w#..", "..############..", "..#ww#ww#ww#w#..",
    "..############..", "................", "................", "................"};
constexpr const char* ContactFace[FaceSize] = {
    "................", ".##############.", ".#wwwwwwwwwwww#.", ".#wwYYYwwBBBBw#.",
    ".#wwYYYwwwwwww#.", ".#wwYYYwwBBBBw#.", ".#wwwYwwwwwwww#.", ".#wBBBBBwBBBBw#.",
    ".#wBBBBBwwwwww#.", ".#wBBBBBwBBBBw#.", ".#wwwwwwwwwwww#.", ".##############.",
    "................", "................", "................", "................"};

std::uint32_t ColourOf(char letter) {
    switch (letter) {
        case '#':
            return 0x404040;
        case 'w':
            return 0xFFFFFF;
        case 'g':
            return 0xD0D0D0;
        case 'Y':
            return 0xE0B060;
        case 'B':
            return 0x4A7EBB;
        case 'R':
            return 0xC03030;
        default:
            return Transparent;
    }
}

Face ReadBitmap(HBITMAP bitmap) {
    Face face;
    BITMAP size{};
    if (!bitmap || GetObjectW(bitmap, sizeof size, &size) == 0) return face;
    if (size.bmWidth < 1 || size.bmHeight < 1 || size.bmWidth > 256 || size.bmHeight > 256) {
        return face;
    }
    BITMAPINFO information{};
    information.bmiHeader.biSize = sizeof information.bmiHeader;
    information.bmiHeader.biWidth = size.bmWidth;
    information.bmiHeader.biHeight = -size.bmHeight;
    information.bmiHeader.biPlanes = 1;
    information.bmiHeader.biBitCount = 32;
    face.pixels.resize(std::size_t(size.bmWidth) * std::size_t(size.bmHeight));
    const HDC screen = GetDC(nullptr);
    const int lines = GetDIBits(screen, bitmap, 0, UINT(size.bmHeight), face.pixels.data(),
                                &information, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    if (lines != size.bmHeight) return Face();
    const bool transparent = std::any_of(face.pixels.begin(), face.pixels.end(),
                                         [](std::uint32_t pixel) { return pixel > 0x00FFFFFF; });
    for (std::uint32_t& pixel : face.pixels) {
        pixel = transparent ? pixel ^ Transparent : pixel & 0x00FFFFFF;
    }
    face.width = size.bmWidth;
    face.height = size.bmHeight;
    return face;
}

}  // namespace

std::uintptr_t PasteBitmap() {
    static std::vector<Bitmap> kept;
    if (!OpenClipboard(nullptr)) return 0;
    const HANDLE shared = GetClipboardData(CF_BITMAP);
    const HANDLE copy =
        shared ? CopyImage(shared, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION) : nullptr;
    CloseClipboard();
    if (!copy) return 0;
    kept.emplace_back(static_cast<HBITMAP>(copy));
    return reinterpret_cast<std::uintptr_t>(copy);
}

Face OwnFace(const Text& caption) {
    static const struct {
        TextView caption;
        const char* const* rows;
    } Faces[] = {{u"New", NewFace},
                 {u"Mail Message", NewFace},
                 {u"New E-mail", NewFace},
                 {u"Reply", ReplyFace},
                 {u"Print", PrintFace},
                 {u"Delete", DeleteFace},
                 {u"Appointment", AppointmentFace},
                 {u"Contact", ContactFace},
                 {u"New Contact", ContactFace},
                 {u"New Appointment", AppointmentFace}};
    Face face;
    for (const auto& own : Faces) {
        if (ReplaceAll(caption, u"&", u"") != own.caption) continue;
        face.width = face.height = FaceSize;
        for (int row = 0; row < FaceSize; ++row) {
            for (int column = 0; column < FaceSize; ++column) {
                face.pixels.push_back(ColourOf(own.rows[row][column]));
            }
        }
    }
    return face;
}

Face FaceOfPicture(const ObjectPtr& object) {
    const auto picture = ForeignDispatch(object).As<IPicture>(IID_IPicture);
    OLE_HANDLE handle = 0;
    if (!picture || FAILED(picture->get_Handle(&handle))) return Face();
    // Handles keep their meaning when they are sign-extended to the pointer's width.
    return ReadBitmap(reinterpret_cast<HBITMAP>(LONG_PTR(LONG(handle))));
}

Face FaceOf(const CommandBarControl& control) {
    if (control.BuiltIn()) return OwnFace(control.caption);
    const auto* button = dynamic_cast<const CommandBarButton*>(&control);
    if (!button) return Face();
    Face face = FaceOfPicture(button->picture);
    if (face.IsEmpty()) return ReadBitmap(reinterpret_cast<HBITMAP>(button->pastedFace));
    const Face mask = FaceOfPicture(button->mask);
    if (mask.width == face.width && mask.height == face.height) {
        for (std::size_t index = 0; index < face.pixels.size(); ++index) {
            if (mask.pixels[index] == 0x00FFFFFF) face.pixels[index] = Transparent;
        }
    }
    return face;
}

void DrawFace(HDC context, const Face& face, int left, int top, int size) {
    if (face.IsEmpty()) return;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int row = y * face.height / size;
            const int column = x * face.width / size;
            const std::uint32_t pixel =
                face.pixels[std::size_t(row) * std::size_t(face.width) + std::size_t(column)];
            const std::uint32_t through = pixel >> 24;
            if (through == 0xFF) continue;
            const COLORREF behind = through ? GetPixel(context, left + x, top + y) : 0;
            const auto mixed = [&](std::uint32_t colour, std::uint32_t other) {
                return BYTE(std::min<std::uint32_t>(255, (colour & 0xFF) + other * through / 255));
            };
            SetPixelV(context, left + x, top + y,
                      RGB(mixed(pixel >> 16, GetRValue(behind)),
                          mixed(pixel >> 8, GetGValue(behind)), mixed(pixel, GetBValue(behind))));
        }
    }
}

}  // namespace tellwick::standin
