#include "outlook/AddInLoader.h"

#include <psapi.h>
#include <shlwapi.h>

#include <algorithm>

#include "outlook/DpiContexts.h"
#include "outlook/RibbonAddIn.h"

namespace tellwick::standin {

// Office's interface of add-ins, a dual one. Not in the nameless namespace: the compiler would know
// of no class that implements it, and call nothing.
struct IDTExtensibility2 : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int mode,
                                                   IDispatch* addIn, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(int mode, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

namespace {

constexpr GUID ExtensibilityIdentifier = {
    0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};

const Text AddInsKey = u"Software\\Microsoft\\Office\\Outlook\\Addins";
constexpr DWORD LoadAtStartup = 2;

// The array that every connection event gets, with one empty element.
class CustomArray {
public:
    CustomArray() : array(SafeArrayCreateVector(VT_VARIANT, 1, 1)) {}
    ~CustomArray() {
        if (array) SafeArrayDestroy(array);
    }
    CustomArray(const CustomArray&) = delete;
    CustomArray& operator=(const CustomArray&) = delete;
    SAFEARRAY** Address() { return &array; }

private:
    SAFEARRAY* array;
};

class Stopwatch {
public:
    explicit Stopwatch(double& milliseconds) : milliseconds(milliseconds) {
        QueryPerformanceCounter(&start);
    }
    ~Stopwatch() {
        LARGE_INTEGER now;
        LARGE_INTEGER frequency;
        QueryPerformanceCounter(&now);
        QueryPerformanceFrequency(&frequency);
        milliseconds += double(now.QuadPart - start.QuadPart) * 1000.0 / double(frequency.QuadPart);
    }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    double& milliseconds;
    LARGE_INTEGER start;
};

// The default value, or the named one, as text; empty when there is none.
Text ReadText(HKEY hive, const Text& key, const wchar_t* name = nullptr) {
    wchar_t buffer[1024] = L"";
    DWORD size = sizeof buffer - sizeof(wchar_t);
    DWORD type = 0;
    if (SHGetValueW(hive, Wide(key), name, &type, buffer, &size) != ERROR_SUCCESS) return {};
    return type == REG_SZ || type == REG_EXPAND_SZ ? FromWide(buffer) : Text();
}

// False when there is no number.
bool ReadNumber(HKEY hive, const Text& key, const wchar_t* name, DWORD& number) {
    DWORD size = sizeof number;
    DWORD type = 0;
    return SHGetValueW(hive, Wide(key), name, &type, &number, &size) == ERROR_SUCCESS &&
           type == REG_DWORD;
}

DWORD LoadBehavior(const Text& progId) {
    const Text key = AddInsKey + u"\\" + progId;
    DWORD value = 0;
    return ReadNumber(HKEY_CURRENT_USER, key, L"LoadBehavior", value) ||
                   ReadNumber(HKEY_LOCAL_MACHINE, key, L"LoadBehavior", value)
               ? value
               : 0;
}

std::vector<Text> SubKeys(HKEY hive, const Text& key) {
    std::vector<Text> names;
    HKEY opened = nullptr;
    if (RegOpenKeyExW(hive, Wide(key), 0, KEY_READ, &opened) != ERROR_SUCCESS) return names;
    wchar_t name[256];
    DWORD length = 256;
    for (DWORD index = 0; RegEnumKeyExW(opened, index, name, &length, nullptr, nullptr, nullptr,
                                        nullptr) == ERROR_SUCCESS;
         ++index, length = 256) {
        names.push_back(FromWide(name));
    }
    RegCloseKey(opened);
    return names;
}

}  // namespace

struct AddInLoader::Connected {
    std::shared_ptr<ComAddIn> addIn;
    ComPtr<IDTExtensibility2> events;
    std::shared_ptr<RibbonAddIn> ribbon;  // null when it has none
};

std::uint64_t PrivateBytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

AddInLoader::AddInLoader(OutlookModel& outlook, ComObjects& objects)
    : outlook(outlook), objects(objects) {}

AddInLoader::~AddInLoader() = default;

void AddInLoader::List() {
    // The user's own first: one that is registered for the machine, too, is what the user's says.
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        for (const Text& progId : SubKeys(hive, AddInsKey)) {
            const auto& known = outlook.comAddIns->all;
            if (std::any_of(known.begin(), known.end(), [&](const auto& addIn) {
                    return EqualFolded(addIn->progId, progId);
                })) {
                continue;
            }
            outlook.AddAddIn(progId, ReadText(hive, AddInsKey + u"\\" + progId, L"FriendlyName"),
                             ReadText(HKEY_CLASSES_ROOT, progId + u"\\CLSID"));
        }
    }
}

std::size_t AddInLoader::LoadAll(ConnectMode mode) {
    List();
    std::size_t count = 0;
    const auto known = outlook.comAddIns->all;
    for (const auto& addIn : known) {
        if (!(LoadBehavior(addIn->progId) & LoadAtStartup)) continue;
        if (Connect(addIn, mode)) ++count;
    }
    return count;
}

bool AddInLoader::Connect(const std::shared_ptr<ComAddIn>& addIn, ConnectMode mode) {
    if (!addIn || addIn->connected) return false;
    const ComPtr<IDispatch> application = objects.Wrap(outlook.Application());
    const ComPtr<IDispatch> instance = objects.Wrap(addIn->Handle());
    if (bytesBeforeConnection == 0) bytesBeforeConnection = PrivateBytes();
    CLSID identifier{};
    {
        const Stopwatch stopwatch(connectionTime);
        if (FAILED(CLSIDFromProgID(Wide(addIn->progId), &identifier))) return false;
        ComPtr<IUnknown> created;
        if (FAILED(CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                    created.ReceiveVoid()))) {
            return false;
        }
        auto events = created.As<IDTExtensibility2>(ExtensibilityIdentifier);
        if (!events) return false;

        addIn->connected = true;
        const auto ribbon = RibbonAddInOf(objects, created.Get());
        connected.push_back({addIn, events, ribbon});
        CustomArray custom;
        const AddInCall call(u"OnConnection");
        events->OnConnection(application.Get(), mode, instance.Get(), custom.Address());
        if (ribbon) outlook.ribbons.Add(addIn->description, ribbon);
    }
    bytesAfterConnection = PrivateBytes();
    wchar_t* text = nullptr;
    if (SUCCEEDED(StringFromCLSID(identifier, &text))) {
        libraries.insert(
            ReadText(HKEY_CLASSES_ROOT, u"CLSID\\" + FromWide(text) + u"\\InprocServer32"));
        CoTaskMemFree(text);
    }
    return true;
}

bool AddInLoader::Disconnect(const std::shared_ptr<ComAddIn>& addIn, DisconnectMode mode) {
    const auto found = std::find_if(connected.begin(), connected.end(),
                                    [&](const Connected& one) { return one.addIn == addIn; });
    if (found == connected.end()) return false;
    const Connected one = *found;
    connected.erase(found);
    CustomArray custom;
    {
        const AddInCall call(u"OnDisconnection");
        one.events->OnDisconnection(mode, custom.Address());
    }
    outlook.ribbons.Remove(one.ribbon);
    addIn->connected = false;
    addIn->object.reset();
    return true;
}

void AddInLoader::StartupComplete() {
    const std::vector<Connected> all = connected;
    CustomArray custom;
    for (const Connected& one : all) {
        const AddInCall call(u"OnStartupComplete");
        one.events->OnStartupComplete(custom.Address());
    }
}

void AddInLoader::ShutDown() {
    const Stopwatch stopwatch(shutdownTime);
    const std::vector<Connected> all = connected;
    CustomArray custom;
    for (const Connected& one : all) {
        const AddInCall call(u"OnBeginShutdown");
        one.events->OnBeginShutdown(custom.Address());
    }
    for (const Connected& one : all) Disconnect(one.addIn, HostShutdown);
}

void AddInLoader::Abandon() {
    const std::vector<Connected> all = std::move(connected);
    connected.clear();
    for (const Connected& one : all) {
        outlook.ribbons.Remove(one.ribbon);
        one.addIn->connected = false;
        one.addIn->object.reset();
    }
}

bool AddInLoader::CanUnloadLibraries() const {
    return std::all_of(libraries.begin(), libraries.end(), [](const Text& path) {
        const HMODULE library = path.empty() ? nullptr : GetModuleHandleW(Wide(path));
        const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
            library ? GetProcAddress(library, "DllCanUnloadNow") : nullptr);
        return !canUnload || canUnload() == S_OK;
    });
}

bool AddInLoader::UnloadLibraries() {
    CoFreeUnusedLibrariesEx(0, 0);
    return std::none_of(libraries.begin(), libraries.end(), [](const Text& path) {
        return !path.empty() && GetModuleHandleW(Wide(path)) != nullptr;
    });
}

}  // namespace tellwick::standin
