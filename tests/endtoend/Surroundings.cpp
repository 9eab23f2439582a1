#include <doctest.h>
#include <windows.h>

// The surroundings that every other case takes for granted.
TEST_CASE("a window can be made and the code page is Western European") {
    HWND window = CreateWindowW(L"EDIT", L"x", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                                nullptr, nullptr, nullptr, nullptr);
    CHECK(window != nullptr);
    CHECK(GetACP() == 1252);
    DestroyWindow(window);
}
