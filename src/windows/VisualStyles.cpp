#include "windows/VisualStyles.h"

#include "windows/Server.h"

namespace tellwick::windows {

namespace {

constexpr WORD LibraryManifest = 2;  // the resource that a library's own context is made from

// Structures and flags newer than the oldest system, as that system's headers lack them.
struct ContextRequest {
    ULONG size;
    DWORD flags;
    LPCWSTR source;
    USHORT processorArchitecture;
    LANGID language;
    LPCWSTR assemblyDirectory;
    LPCWSTR resourceName;
    LPCWSTR applicationName;
    HMODULE module;
};
constexpr DWORD ResourceNameValid = 0x008;
constexpr DWORD ModuleValid = 0x080;

using CreateContext = HANDLE(WINAPI*)(const ContextRequest*);
using ActivateContext = BOOL(WINAPI*)(HANDLE, ULONG_PTR*);
using DeactivateContext = BOOL(WINAPI*)(DWORD, ULONG_PTR);

HANDLE LibraryContext() {
    const auto create = SystemFunction<CreateContext>(L"kernel32.dll", "CreateActCtxW");
    if (!create) return INVALID_HANDLE_VALUE;
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(Library(), path, MAX_PATH);
    ContextRequest request{};
    request.size = sizeof request;
    request.flags = ResourceNameValid | ModuleValid;
    request.source = path;
    request.resourceName = MAKEINTRESOURCEW(LibraryManifest);
    request.module = Library();
    return create(&request);
}

}  // namespace

VisualStyles::VisualStyles() {
    static const HANDLE context = LibraryContext();
    static const auto activate = SystemFunction<ActivateContext>(L"kernel32.dll", "ActivateActCtx");
    if (context == INVALID_HANDLE_VALUE || !activate || !activate(context, &cookie)) cookie = 0;
}

VisualStyles::~VisualStyles() {
    static const auto deactivate =
        SystemFunction<DeactivateContext>(L"kernel32.dll", "DeactivateActCtx");
    if (cookie && deactivate) deactivate(0, cookie);
}

}  // namespace tellwick::windows
