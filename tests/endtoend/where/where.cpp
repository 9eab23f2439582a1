// where TITLE CONTROL: prints the middle of a control on the screen, "x y", for a script that moves
// a real mouse there. The control is named by its text, its window class, "#" and its number, or
// "~" and a part of its text.
#include <cstdio>

#include "endtoend/Desktop.h"

using namespace tellwick::endtoend;

int wmain(int count, wchar_t** arguments) {
    if (count != 3) return 2;
    HWND control = nullptr;
    WaitUntil(
        [&] {
            const HWND window = FindTopWindow(arguments[1]);
            if (!window) return false;
            const std::wstring name = arguments[2];
            control = name[0] == L'#' ? GetDlgItem(window, _wtoi(name.c_str() + 1))
                                      : FindByText(window, name);
            if (!control) control = FindByClass(window, arguments[2]);
            for (const HWND child : Descendants(window)) {
                if (name[0] == L'~' && TextOf(child).find(name.substr(1)) != std::wstring::npos)
                    control = child;
            }
            return control != nullptr && IsWindowVisible(control);
        },
        20000);
    if (!control) return 1;
    RECT place{};
    GetWindowRect(control, &place);
    std::printf("%ld %ld\n", (place.left + place.right) / 2, (place.top + place.bottom) / 2);
    return 0;
}
