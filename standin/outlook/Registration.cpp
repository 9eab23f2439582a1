#include "outlook/Registration.h"

#include <new>

#include <shlwapi.h>

namespace tellwick::standin {

namespace {

class Factory : public ComClass<IClassFactory, IID_IClassFactory> {
public:
    explicit Factory(ObjectSource source) : source(std::move(source)) {}
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID identifier,
                                             void** object) override {
        return EntryPoint([&]() -> HRESULT {
            if (!object) return E_POINTER;
            *object = nullptr;
            if (outer) return CLASS_E_NOAGGREGATION;
            const ComPtr<IDispatch> created = source();
            return created ? created->QueryInterface(identifier, object) : E_FAIL;
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    ObjectSource source;
};

bool WriteDefault(HKEY hive, const Text& key, TextView value) {
    const Text text(value);
    return SHSetValueW(hive, Wide(key), nullptr, REG_SZ, text.c_str(),
                       DWORD((text.size() + 1) * sizeof(char16_t))) == ERROR_SUCCESS;
}

const Text ClassesKey = u"Software\\Classes\\";

// For the whole machine where that is allowed, else for the user.
void WriteClass(TextView programmaticIdentifier, TextView classIdentifier, bool local) {
    for (const HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        const Text name = ClassesKey + Text(programmaticIdentifier);
        const Text type = ClassesKey + u"CLSID\\" + Text(classIdentifier);
        wchar_t program[MAX_PATH] = L"";
        GetModuleFileNameW(nullptr, program, MAX_PATH - 1);
        if (WriteDefault(hive, name + u"\\CLSID", classIdentifier) &&
            WriteDefault(hive, type + u"\\ProgID", programmaticIdentifier) &&
            (!local || WriteDefault(hive, type + u"\\LocalServer32", FromWide(program)))) {
            return;
        }
    }
}

}  // namespace

void ForgetClass(TextView programmaticIdentifier, TextView classIdentifier) {
    for (const HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        SHDeleteKeyW(hive, Wide(ClassesKey + Text(programmaticIdentifier)));
        SHDeleteKeyW(hive, Wide(ClassesKey + u"CLSID\\" + Text(classIdentifier)));
    }
}

RegisteredClass::RegisteredClass(TextView programmaticIdentifier, TextView classIdentifier,
                                 bool local, ObjectSource source)
    : programmaticIdentifier(programmaticIdentifier), classIdentifier(classIdentifier) {
    WriteClass(programmaticIdentifier, classIdentifier, local);
    const ComPtr<IClassFactory> factory =
        ComPtr<IClassFactory>::Attach(new Factory(std::move(source)));
    CoRegisterClassObject(ToGuid(classIdentifier), factory.Get(),
                          local ? CLSCTX_LOCAL_SERVER : CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                          &cookie);
}

RegisteredClass::~RegisteredClass() {
    if (cookie != 0) CoRevokeClassObject(cookie);
    ForgetClass(programmaticIdentifier, classIdentifier);
}

RunningObject::RunningObject(TextView classIdentifier, const ComPtr<IDispatch>& object, Since since)
    : classIdentifier(classIdentifier), object(object) {
    if (since == Start) {
        Register();
        return;
    }
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = L"OutlookStandInRunning";
    RegisterClassW(&type);
    window = CreateWindowExW(WS_EX_TOOLWINDOW, type.lpszClassName, nullptr, WS_POPUP, 0, 0, 0, 0,
                             nullptr, nullptr, type.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

LRESULT CALLBACK RunningObject::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const self = reinterpret_cast<RunningObject*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && message == WM_ACTIVATEAPP && !first) self->Register();
    return DefWindowProcW(window, message, first, second);
}

void RunningObject::Register() {
    if (cookie != 0) return;
    RegisterActiveObject(object.Get(), ToGuid(classIdentifier), ACTIVEOBJECT_STRONG, &cookie);
}

RunningObject::~RunningObject() {
    if (window) DestroyWindow(window);
    if (cookie != 0) RevokeActiveObject(cookie, nullptr);
}

}  // namespace tellwick::standin
