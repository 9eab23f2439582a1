#include "windows/ConnectServer.h"

#include "addin/Connect.h"
#include "addin/Program.h"
#include "platform/Product.h"
#include "windows/AutomationObject.h"
#include "windows/Lifetime.h"
#include "windows/Server.h"

namespace tellwick::windows {

namespace {

// {B65AD801-ABAF-11D0-BB8B-00A0C90F2744}
constexpr IID ExtensibilityInterface = {
    0xb65ad801, 0xabaf, 0x11d0, {0xbb, 0x8b, 0x00, 0xa0, 0xc9, 0x0f, 0x27, 0x44}};

// Office's add-in interface, in the order of its table.
struct IDTExtensibility2 : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, LONG connectMode,
                                                   IDispatch* addInInstance,
                                                   SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(LONG removeMode, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

constexpr const wchar_t* Members[] = {L"OnConnection", L"OnDisconnection", L"OnAddInsUpdate",
                                      L"OnStartupComplete", L"OnBeginShutdown"};

class ConnectServer final : public IDTExtensibility2 {
public:
    ConnectServer() : connect(TheProgram()) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (identifier != IID_IUnknown && identifier != IID_IDispatch &&
            identifier != ExtensibilityInterface) {
            return E_NOINTERFACE;
        }
        *object = static_cast<IDTExtensibility2*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) {
            Guarded([this] { connect.AddinInstance_Terminate(); });
            delete this;
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* identifiers) override {
        if (!names || !identifiers || count == 0) return E_INVALIDARG;
        for (UINT name = 0; name < count; ++name) identifiers[name] = DISPID_UNKNOWN;
        for (DISPID member = 0; member < DISPID(std::size(Members)); ++member) {
            if (lstrcmpiW(names[0], Members[member]) == 0) identifiers[0] = member + 1;
        }
        return count == 1 && identifiers[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT*, EXCEPINFO*, UINT*) override {
        // Argument by position; they are passed in reverse.
        const auto argument = [&](UINT position, VARTYPE type, Variant& value) {
            const UINT count = parameters ? parameters->cArgs : 0;
            return position < count &&
                   SUCCEEDED(VariantChangeType(&value, &parameters->rgvarg[count - 1 - position], 0,
                                               type));
        };
        Variant first;
        Variant second;
        Variant third;
        switch (member) {
            case 1:
                if (!argument(0, VT_DISPATCH, first) || !argument(1, VT_I4, second) ||
                    !argument(2, VT_DISPATCH, third)) {
                    return DISP_E_TYPEMISMATCH;
                }
                return OnConnection(first.pdispVal, second.lVal, third.pdispVal, nullptr);
            case 2:
                if (!argument(0, VT_I4, first)) return DISP_E_TYPEMISMATCH;
                return OnDisconnection(first.lVal, nullptr);
            case 3:
                return OnAddInsUpdate(nullptr);
            case 4:
                return OnStartupComplete(nullptr);
            case 5:
                return OnBeginShutdown(nullptr);
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }

    HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, LONG connectMode,
                                           IDispatch* addInInstance, SAFEARRAY**) override {
        return Guarded([&] {
            PendingError& errors = TheProgram().errors;
            connect.AddinInstance_OnConnection(WrapDispatch(errors, application), connectMode,
                                               WrapDispatch(errors, addInInstance));
        });
    }
    HRESULT STDMETHODCALLTYPE OnDisconnection(LONG removeMode, SAFEARRAY**) override {
        return Guarded([&] { connect.AddinInstance_OnDisconnection(removeMode); });
    }
    HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY**) override {
        return Guarded([&] { connect.AddinInstance_OnAddInsUpdate(); });
    }
    HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY**) override {
        return Guarded([&] { connect.AddinInstance_OnStartupComplete(); });
    }
    HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY**) override {
        return Guarded([&] { connect.AddinInstance_OnBeginShutdown(); });
    }

private:
    ~ConnectServer() = default;

    Connect connect;
    ULONG references = 1;
    Lifetime lifetime;
};

class ConnectFactory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (identifier != IID_IUnknown && identifier != IID_IClassFactory) return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID identifier,
                                             void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        HRESULT result = E_UNEXPECTED;
        const HRESULT made = Guarded([&] {
            const auto server = ComPtr<ConnectServer>::Take(new ConnectServer);
            result = server->QueryInterface(identifier, object);
        });
        return FAILED(made) ? made : result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (lock) {
            locks.emplace_back();
        } else if (!locks.empty()) {
            locks.pop_back();
        }
        return S_OK;
    }

private:
    ~ConnectFactory() = default;

    // Outlive the factory that was asked.
    static inline std::vector<Lifetime> locks;
    ULONG references = 1;
    Lifetime lifetime;
};

}  // namespace

HRESULT GetConnectFactory(REFIID interfaceIdentifier, void** object) {
    HRESULT result = E_UNEXPECTED;
    const HRESULT made = Guarded([&] {
        const auto factory = ComPtr<ConnectFactory>::Take(new ConnectFactory);
        result = factory->QueryInterface(interfaceIdentifier, object);
    });
    return FAILED(made) ? made : result;
}

}  // namespace tellwick::windows
