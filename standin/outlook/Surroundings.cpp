#include "outlook/Surroundings.h"

#include <aclapi.h>
#include <tlhelp32.h>

#include <filesystem>

namespace tellwick::standin {

namespace {

constexpr DWORD ViewingTime = 40;  // milliseconds
constexpr int MostAttempts = 50;

LRESULT CALLBACK ViewClipboard(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message != WM_DRAWCLIPBOARD) return DefWindowProcW(window, message, first, second);
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        if (OpenClipboard(window)) {
            Sleep(ViewingTime);
            CloseClipboard();
            break;
        }
        Sleep(1);
    }
    return 0;
}

DWORD WINAPI RunViewer(void* ready) {
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ViewClipboard));
    const HWND next = SetClipboardViewer(window);
    SetEvent(ready);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    ChangeClipboardChain(window, next);
    DestroyWindow(window);
    return 0;
}

}  // namespace

ClipboardViewer::ClipboardViewer() {
    const HANDLE ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    thread = CreateThread(nullptr, 0, &RunViewer, ready, 0, &identifier);
    WaitForSingleObject(ready, INFINITE);
    CloseHandle(ready);
}

ClipboardViewer::~ClipboardViewer() {
    PostThreadMessageW(identifier, WM_QUIT, 0, 0);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

void BecomeForeignUser() {
    wchar_t users[MAX_PATH] = L"";
    GetEnvironmentVariableW(L"PUBLIC", users, MAX_PATH);
    const auto folder = std::filesystem::path(users).parent_path() /
                        L"\u017Dlu\u0165 \u0141\u03C3" / L"Local Settings" / L"Temp";
    std::filesystem::create_directories(folder);
    for (const wchar_t* const name : {L"TMP", L"TEMP"})
        SetEnvironmentVariableW(name, folder.c_str());
}

void LockProcesses(const wchar_t* executable) {
    // Everybody may wait for them and end them.
    BYTE everybody[SECURITY_MAX_SID_SIZE];
    SID_IDENTIFIER_AUTHORITY world = {SECURITY_WORLD_SID_AUTHORITY};
    InitializeSid(everybody, &world, 1);
    *GetSidSubAuthority(everybody, 0) = SECURITY_WORLD_RID;
    BYTE memory[256];
    auto* const list = reinterpret_cast<ACL*>(memory);
    InitializeAcl(list, sizeof memory, ACL_REVISION);
    AddAccessAllowedAce(list, ACL_REVISION, SYNCHRONIZE | PROCESS_TERMINATE, everybody);

    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL found = Process32FirstW(snapshot, &entry); found;
         found = Process32NextW(snapshot, &entry)) {
        if (lstrcmpiW(entry.szExeFile, executable) != 0) continue;
        const HANDLE process = OpenProcess(WRITE_DAC, FALSE, entry.th32ProcessID);
        SetSecurityInfo(process, SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                        list, nullptr);
        CloseHandle(process);
    }
    CloseHandle(snapshot);
}

}  // namespace tellwick::standin
