// An add-in that does nothing: what the connection of any add-in costs. Its class is registered by
// tools/bench.
#include <windows.h>

#include <olectl.h>

namespace {

// {7C1D7A8E-6A2B-4B0C-9E0C-3B5B8D3A1F60}
constexpr CLSID EmptyAddIn = {
    0x7c1d7a8e, 0x6a2b, 0x4b0c, {0x9e, 0x0c, 0x3b, 0x5b, 0x8d, 0x3a, 0x1f, 0x60}};

LONG alive = 0;

// Connection and class object in one; every method of the connection succeeds.
class AddIn final : public IDispatch {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        AddRef();
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ULONG(InterlockedIncrement(&alive)); }
    ULONG STDMETHODCALLTYPE Release() override { return ULONG(InterlockedDecrement(&alive)); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch*, int, IDispatch*, SAFEARRAY**) {
        return S_OK;
    }
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(int, SAFEARRAY**) { return S_OK; }
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY**) { return S_OK; }
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY**) { return S_OK; }
    virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY**) { return S_OK; }
};

AddIn addIn;

class Factory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID identifier, void** object) override {
        return addIn.QueryInterface(identifier, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

Factory factory;

}  // namespace

STDAPI DllCanUnloadNow() {
    return alive ? S_FALSE : S_OK;
}

STDAPI DllGetClassObject(REFCLSID classIdentifier, REFIID identifier, void** object) {
    if (classIdentifier != EmptyAddIn) return CLASS_E_CLASSNOTAVAILABLE;
    return factory.QueryInterface(identifier, object);
}
