#include "windows/VisualStyles.h"

#include "windows/ModulePath.h"
#include "windows/Server.h"
#include "windows/SystemFunction.h"

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
using ReleaseContext = void(WINAPI*)(HANDLE);
using ActivateContext = BOOL(WINAPI*)(HANDLE, ULONG_PTR*);
using DeactivateContext = BOOL(WINAPI*)(DWORD, ULONG_PTR);

// The context that the library's manifest describes, for as long as the library is loaded.
class LibraryContext {
public:
    LibraryContext() : release(SystemFunction<ReleaseContext>(L"kernel32.dll", "ReleaseActCtx")) {
        const auto create = SystemFunction<CreateContext>(L"kernel32.dll", "CreateActCtxW");
        if (!create) return;
        const Text path = ModulePath(Library());
        ContextRequest request{};
        request.size = sizeof request;
        request.flags = ResourceNameValid | ModuleValid;
        request.source = Wide(path);
        request.resourceName = MAKEINTRESOURCEW(LibraryManifest);
        request.module = Library();
        handle = create(&request);
    }
    ~LibraryContext() {
        if (release && handle != INVALID_HANDLE_VALUE) release(handle);
    }
    LibraryContext(const LibraryContext&) = delete;
    LibraryContext& operator=(const LibraryContext&) = delete;

    // INVALID_HANDLE_VALUE when there is none.
    HANDLE Get() const { return handle; }

private:
    ReleaseContext release;
    HANDLE handle = INVALID_HANDLE_VALUE;
};

}  // namespace

VisualStyles::VisualStyles() {
    static const LibraryContext context;
    static const auto activate = SystemFunction<ActivateContext>(L"kernel32.dll", "ActivateActCtx");
    if (context.Get() == INVALID_HANDLE_VALUE || !activate || !activate(context.Get(), &cookie))
        cookie = 0;
}

VisualStyles::~VisualStyles() {
    static const auto deactivate =
        SystemFunction<DeactivateContext>(L"kernel32.dll", "DeactivateActCtx");
    if (cookie && deactivate) deactivate(0, cookie);
}

}  // namespace tellwick::windows
