#include "endtoend/Desktop.h"

#include <stdexcept>
#include <utility>

namespace tellwick::endtoend {

namespace {

INPUT KeyInput(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    return input;
}

void Send(std::vector<INPUT> inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    // A person's pace: the receiver handles one stroke before the next one comes.
    Sleep(15);
}

std::wstring WithoutMnemonic(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

struct Stroke {
    WORD key;
    std::vector<WORD> modifiers;
};

// The stroke that gives the character on the current layout. (VkKeyScan knows only ASCII in Wine.)
Stroke StrokeOf(wchar_t character) {
    const std::vector<WORD> planes[] = {{}, {VK_SHIFT}, {VK_CONTROL, VK_MENU}};
    for (const auto& modifiers : planes) {
        BYTE state[256]{};
        for (const WORD modifier : modifiers) state[modifier] = 0x80;
        for (WORD key = VK_BACK; key < 0xFF; ++key) {
            wchar_t produced[8]{};
            const UINT scan = MapVirtualKeyW(key, MAPVK_VK_TO_VSC);
            if (ToUnicode(key, scan, state, produced, 8, 0) == 1 && produced[0] == character)
                return {key, modifiers};
        }
    }
    throw std::runtime_error("no key gives character " + std::to_string(character));
}

struct WindowSearch {
    std::wstring title;      // a part of it
    std::wstring className;  // empty: any
    HWND found = nullptr;
};

BOOL CALLBACK Match(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    if (!IsWindowVisible(window)) return TRUE;
    if (!search.className.empty() && ClassOf(window) != search.className) return TRUE;
    if (TextOf(window).find(search.title) == std::wstring::npos) return TRUE;
    search.found = window;
    return FALSE;
}

HWND Find(WindowSearch search) {
    EnumWindows(Match, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

BOOL CALLBACK Collect(HWND child, LPARAM parameter) {
    reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
    return TRUE;
}

// Waits until a window of that kind is there and the window manager has placed it.
HWND WaitFor(const WindowSearch& search, int milliseconds) {
    HWND found = nullptr;
    RECT place{};
    WaitUntil(
        [&] {
            RECT now{};
            const HWND before = std::exchange(found, Find(search));
            GetWindowRect(found, &now);
            const bool settled = found && found == before && EqualRect(&now, &place);
            place = now;
            if (!settled) Sleep(50);
            return settled;
        },
        milliseconds);
    return found;
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, int milliseconds) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > static_cast<DWORD>(milliseconds)) return false;
        Sleep(10);
    }
    return true;
}

HWND FindTopWindow(const std::wstring& title) {
    return Find({title, L""});
}

HWND WaitForWindow(const std::wstring& title, int milliseconds) {
    return WaitFor({title, L""}, milliseconds);
}

HWND WaitForBox(int milliseconds) {
    return WaitFor({L"", L"#32770"}, milliseconds);
}

bool WaitUntilGone(HWND window, int milliseconds) {
    return WaitUntil([&] { return !IsWindowVisible(window); }, milliseconds);
}

std::wstring TextOf(HWND window) {
    std::wstring text(65536, L'\0');
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_ABORTIFHUNG, 2000, &length);
    text.resize(length);
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[128]{};
    GetClassNameW(window, name, 128);
    return name;
}

std::vector<HWND> Descendants(HWND window) {
    std::vector<HWND> all;
    EnumChildWindows(window, Collect, reinterpret_cast<LPARAM>(&all));
    return all;
}

HWND FindByText(HWND window, const std::wstring& text) {
    for (HWND child : Descendants(window))
        if (WithoutMnemonic(TextOf(child)) == text) return child;
    return nullptr;
}

HWND FindByClass(HWND window, const std::wstring& className) {
    for (HWND child : Descendants(window))
        if (!lstrcmpiW(ClassOf(child).c_str(), className.c_str())) return child;
    return nullptr;
}

std::vector<std::wstring> Rows(HWND list) {
    std::vector<std::wstring> rows;
    for (LRESULT row = 0; row < SendMessageW(list, LB_GETCOUNT, 0, 0); ++row) {
        wchar_t text[256] = L"";
        SendMessageW(list, LB_GETTEXT, WPARAM(row), reinterpret_cast<LPARAM>(text));
        rows.emplace_back(text);
    }
    return rows;
}

HWND Focus() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(GetForegroundWindow(), nullptr), &info);
    return info.hwndFocus;
}

void Click(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    ClickAt((place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

void ClickAt(int x, int y) {
    SetCursorPos(x, y);
    INPUT down{};
    down.type = INPUT_MOUSE;
    down.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    INPUT up = down;
    up.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    Send({down});
    Send({up});
}

void Type(const std::wstring& text) {
    for (const wchar_t character : text) {
        const Stroke stroke = StrokeOf(character == L'\n' ? L'\r' : character);
        Press(stroke.key, stroke.modifiers);
    }
}

void TypeCharacters(const std::wstring& text) {
    for (const wchar_t character : text) {
        const INPUT down = KeyInput(0, character, KEYEVENTF_UNICODE);
        const INPUT up = KeyInput(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
        Send({down, up});
    }
}

void Press(WORD key, const std::vector<WORD>& modifiers) {
    const auto scan = [](WORD code) {
        return static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
    };
    std::vector<INPUT> inputs;
    inputs.reserve(2 * modifiers.size() + 2);
    for (const WORD modifier : modifiers) inputs.push_back(KeyInput(modifier, scan(modifier), 0));
    inputs.push_back(KeyInput(key, scan(key), 0));
    inputs.push_back(KeyInput(key, scan(key), KEYEVENTF_KEYUP));
    for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
        inputs.push_back(KeyInput(*modifier, scan(*modifier), KEYEVENTF_KEYUP));
    Send(inputs);
}

}  // namespace tellwick::endtoend
