// The library's entry points, and the one program it holds.
#include "windows/Com.h"

#include <olectl.h>

#include "addin/Program.h"
#include "recipients/Countries.h"
#include "windows/AutomationObject.h"
#include "windows/ConnectServer.h"
#include "windows/FormOptionsWindow.h"
#include "windows/FormSmsPreviewWindow.h"
#include "windows/FormSmsSelectAddressWindow.h"
#include "windows/FormSmsSendWindow.h"
#include "windows/FormSupportWindow.h"
#include "windows/Lifetime.h"
#include "windows/ModulePath.h"
#include "windows/Server.h"
#include "windows/WindowsBitmaps.h"
#include "windows/WindowsClock.h"
#include "windows/WindowsDialogs.h"
#include "windows/WindowsFileSystem.h"
#include "windows/WindowsLocale.h"
#include "windows/WindowsLocks.h"
#include "windows/WindowsMessageLoop.h"
#include "windows/WindowsPrograms.h"
#include "windows/WindowsRegistry.h"
#include "windows/WindowsTimers.h"

namespace tellwick::windows {

namespace {

HMODULE library = nullptr;

// The program over the real system.
template <class Dialogs>
struct Assembly {
    PendingError errors;
    WindowsRegistry registry;
    WindowsAutomation automation{errors};
    WindowsFileSystem fileSystem{errors, automation};
    WindowsPrograms programs{errors, library};
    WindowsMessageLoop messageLoop;
    Dialogs dialogs;
    WindowsClock clock;
    WindowsLocale locale;
    WindowsBitmaps bitmaps{errors, library};
    WindowsTimers timers;
    WindowsLocks locks;
    FormSmsSendWindow formSmsSend;
    FormSmsSelectAddressWindow formSmsSelectAddress;
    FormOptionsWindow formOptions{formSmsSend};
    FormSmsPreviewWindow formSmsPreview{formSmsSend};
    FormSupportWindow formSupport{formOptions};
    Program program{{errors, registry, fileSystem, programs, messageLoop, dialogs, clock, locale,
                     automation, bitmaps, timers, locks},
                    formSmsSend,
                    formSmsSelectAddress,
                    formOptions,
                    formSmsPreview,
                    formSupport};
};

// Ended by DllCanUnloadNow, never by the end of the process: by then the system's parts that it
// would call may be gone.
Assembly<WindowsDialogs>* assembly = nullptr;

// Another reference to this library, as long as there is a program: the end of COM in Outlook's
// thread asks nobody, and would take the code from under timers, windows and hook.
HMODULE held = nullptr;

void HoldLibrary() {
    // Windows 2000 lacks it.
    using GetModule = BOOL(WINAPI*)(DWORD, LPCWSTR, HMODULE*);
    const auto getModule = reinterpret_cast<GetModule>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetModuleHandleExW")));
    constexpr DWORD FromAddress = 4;
    if (getModule) {
        getModule(FromAddress, reinterpret_cast<LPCWSTR>(&assembly), &held);
    } else {
        held = LoadLibraryW(Wide(ModulePath(library)));
    }
}

}  // namespace

HMODULE Library() {
    return library;
}

IconHandle LoadLibraryIcon(int resource, int size) {
    return IconHandle(static_cast<HICON>(
        LoadImageW(library, MAKEINTRESOURCEW(resource), IMAGE_ICON, size, size, 0)));
}

void ReportException() noexcept {
    if (assembly) assembly->program.debug.TraceException();
}

Program& TheProgram() {
    if (!assembly) {
        assembly = new Assembly<WindowsDialogs>;
        HoldLibrary();
    }
    return assembly->program;
}

}  // namespace tellwick::windows

using namespace tellwick::windows;

namespace __gnu_cxx {
// NOLINTNEXTLINE(bugprone-reserved-identifier)
void __freeres();  // of the language's runtime; it declares it nowhere
}  // namespace __gnu_cxx

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* processEnds) {
    if (reason == DLL_PROCESS_ATTACH) {
        library = instance;
        DisableThreadLibraryCalls(instance);
    } else if (reason == DLL_PROCESS_DETACH && !processEnds) {
        // The runtime's reserve for exceptions, taken at every load and else never given back.
        __gnu_cxx::__freeres();
    }
    return TRUE;
}

STDAPI DllCanUnloadNow() {
    if (Lifetime::AnythingAlive()) return S_FALSE;
    delete std::exchange(assembly, nullptr);
    // Whoever asks holds the library, too.
    if (held) FreeLibrary(std::exchange(held, nullptr));
    return S_OK;
}

STDAPI DllGetClassObject(REFCLSID classIdentifier, REFIID interfaceIdentifier, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (classIdentifier != ConnectClass) return CLASS_E_CLASSNOTAVAILABLE;
    return GetConnectFactory(interfaceIdentifier, object);
}

STDAPI DllRegisterServer() {
    bool done = false;
    const HRESULT result = EntryPoint([&] { done = Register(); });
    return FAILED(result) || done ? result : SELFREG_E_CLASS;
}

// For the set-up program, by `regsvr32 /i:prefix=+49`: writes the country prefix where the user has
// none yet; by `/i:prefix=` what is proposed for the user's country. Asks nothing.
STDAPI DllInstall(BOOL install, const wchar_t* words) {
    using namespace tellwick;
    constexpr TextView Prefix = u"prefix=";
    const Text text = FromWide(words);
    if (!install || !StartsWith(text, Prefix)) return E_INVALIDARG;
    return EntryPoint([&] {
        Assembly<NoDialogs> own;
        Program& program = own.program;
        program.inifilesLite.GetIniFile();
        program.formOptions.SetFirstPrefixes(TextView(text).substr(Prefix.size()));
        program.iniFile.Flush();
    });
}

// For the set-up program, before it has installed anything: the prefix to propose in the user's
// country, as a text of at most `size` characters with its end; empty where that is not known.
// S_FALSE, and nothing to propose, where the user's settings have one.
STDAPI ProposePrefix(wchar_t* prefix, int size) {
    if (!prefix || size <= 0) return E_INVALIDARG;
    *prefix = 0;
    bool has = false;
    const HRESULT result = EntryPoint([&] {
        Assembly<NoDialogs> own;
        own.program.inifilesLite.GetIniFile();
        has = own.program.formOptions.HasPrefixes();
        if (has) return;
        lstrcpynW(prefix, Wide(tellwick::ProposedPrefix(own.locale.Country())), size);
    });
    return FAILED(result) || !has ? result : S_FALSE;
}

// For the set-up program: S_OK where the text is country codes, S_FALSE where it is none.
STDAPI CheckCountryCodes(const wchar_t* typed) {
    bool are = false;
    const HRESULT result =
        EntryPoint([&] { are = tellwick::CountryCodes(FromWide(typed)).has_value(); });
    return FAILED(result) || are ? result : S_FALSE;
}

STDAPI DllUnregisterServer() {
    bool done = false;
    const HRESULT result = EntryPoint([&] { done = Unregister(); });
    return FAILED(result) || done ? result : SELFREG_E_CLASS;
}
