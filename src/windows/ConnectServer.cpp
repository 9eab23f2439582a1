#include "windows/ConnectServer.h"

#include "addin/Connect.h"
#include "addin/Program.h"
#include "platform/Product.h"
#include "windows/AutomationObject.h"
#include "windows/Lifetime.h"
#include "windows/Server.h"
#include "windows/Values.h"

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

// {000C0396-0000-0000-C000-000000000046}
constexpr IID RibbonInterface = {
    0x000c0396, 0x0000, 0x0000, {0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// Office's interface for those who add to its ribbon.
struct IRibbonExtensibility : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* xml) = 0;
};

constexpr const wchar_t* Members[] = {L"OnConnection", L"OnDisconnection", L"OnAddInsUpdate",
                                      L"OnStartupComplete", L"OnBeginShutdown"};

// The callbacks of the ribbon, behind the members of the add-in interface.
constexpr DISPID FirstCallback = 100;

// One argument of a call, by its position; arguments are passed in reverse. False when it is
// missing or of another type.
bool Argument(const DISPPARAMS* parameters, UINT position, VARTYPE type, Variant& value) {
    const UINT count = parameters ? parameters->cArgs : 0;
    return position < count &&
           SUCCEEDED(VariantChangeType(
               &value, const_cast<VARIANT*>(&parameters->rgvarg[count - 1 - position]), 0, type));
}

// The part of the add-in object that Office asks for the ribbon. It counts and identifies as that
// object; its own members are numbered from 1 once more.
class RibbonServer final : public IRibbonExtensibility {
public:
    RibbonServer(IDispatch& whole, Connect& connect) : whole(whole), connect(connect) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
        return whole.QueryInterface(identifier, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return whole.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return whole.Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return whole.GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* identifiers) override {
        if (!names || !identifiers || count != 1) return E_INVALIDARG;
        const bool known = lstrcmpiW(names[0], L"GetCustomUI") == 0;
        identifiers[0] = known ? 1 : DISPID_UNKNOWN;
        return known ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (member != 1) return DISP_E_MEMBERNOTFOUND;
        Variant ribbonId;
        if (!Argument(parameters, 0, VT_BSTR, ribbonId)) return DISP_E_TYPEMISMATCH;
        Variant xml;
        xml.vt = VT_BSTR;
        const HRESULT called = GetCustomUI(ribbonId.bstrVal, &xml.bstrVal);
        if (!result) return called;
        // What the caller has there may be anything.
        VariantInit(result);
        std::swap(*static_cast<VARIANT*>(&xml), *result);
        return called;
    }

    HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* xml) override {
        if (!xml) return E_POINTER;
        *xml = nullptr;
        const auto self = ComPtr<IDispatch>::Share(&whole);
        return EntryPoint([&] {
            *xml = Bstr(connect.GetCustomUI(ribbonId ? FromWide(ribbonId, SysStringLen(ribbonId))
                                                     : Text()))
                       .Detach();
        });
    }

private:
    ~RibbonServer() = default;
    friend class ConnectServer;

    IDispatch& whole;
    Connect& connect;
};

class ConnectServer final : public IDTExtensibility2 {
public:
    ConnectServer() : connect(TheProgram()), ribbon(*this, connect) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (identifier == IID_IUnknown || identifier == IID_IDispatch ||
            identifier == ExtensibilityInterface) {
            *object = static_cast<IDTExtensibility2*>(this);
        } else if (identifier == RibbonInterface) {
            *object = static_cast<IRibbonExtensibility*>(&ribbon);
        } else {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) {
            EntryPoint([this] { connect.AddinInstance_Terminate(); });
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
        const HRESULT looked = EntryPoint([&] {
            const auto callbacks = Ribbon::CallbackNames();
            for (std::size_t callback = 0; callback < callbacks.size(); ++callback) {
                if (lstrcmpiW(names[0], Wide(Text(callbacks[callback]))) == 0)
                    identifiers[0] = FirstCallback + DISPID(callback);
            }
        });
        if (FAILED(looked)) return looked;
        return count == 1 && identifiers[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        const auto argument = [&](UINT position, VARTYPE type, Variant& value) {
            return Argument(parameters, position, type, value);
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
                return CallRibbon(std::size_t(member - FirstCallback), parameters, result);
        }
    }

    HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, LONG connectMode,
                                           IDispatch* addInInstance, SAFEARRAY**) override {
        return EntryPoint([&] {
            PendingError& errors = TheProgram().errors;
            connect.AddinInstance_OnConnection(WrapDispatch(errors, application), connectMode,
                                               WrapDispatch(errors, addInInstance));
        });
    }
    HRESULT STDMETHODCALLTYPE OnDisconnection(LONG removeMode, SAFEARRAY**) override {
        return EntryPoint([&] { connect.AddinInstance_OnDisconnection(removeMode); });
    }
    HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY**) override {
        return EntryPoint([&] { connect.AddinInstance_OnAddInsUpdate(); });
    }
    HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY**) override {
        return EntryPoint([&] { connect.AddinInstance_OnStartupComplete(); });
    }
    HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY**) override {
        return EntryPoint([&] { connect.AddinInstance_OnBeginShutdown(); });
    }

private:
    ~ConnectServer() = default;

    // A callback of the ribbon, with the one object that it is handed.
    HRESULT CallRibbon(std::size_t callback, const DISPPARAMS* parameters, VARIANT* result) {
        if (callback >= Ribbon::CallbackNames().size()) return DISP_E_MEMBERNOTFOUND;
        // The user may take the add-in out while one runs.
        const auto self = ComPtr<ConnectServer>::Share(this);
        return EntryPoint([&] {
            Program& program = TheProgram();
            Variant argument;
            Argument(parameters, 0, VT_DISPATCH, argument);
            const Value value = program.ribbon.Call(
                callback, WrapDispatch(program.errors,
                                       argument.vt == VT_DISPATCH ? argument.pdispVal : nullptr));
            if (!result) return;
            VariantInit(result);
            if (value.index() != 0) ToVariant(value, *result);
        });
    }

    Connect connect;
    RibbonServer ribbon;
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
        const HRESULT made = EntryPoint([&] {
            const auto server = ComPtr<ConnectServer>::Take(new ConnectServer);
            result = server->QueryInterface(identifier, object);
        });
        return FAILED(made) ? made : result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        return EntryPoint([&] {
            if (lock) {
                locks.emplace_back();
            } else if (!locks.empty()) {
                locks.pop_back();
            }
        });
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
    const HRESULT made = EntryPoint([&] {
        const auto factory = ComPtr<ConnectFactory>::Take(new ConnectFactory);
        result = factory->QueryInterface(interfaceIdentifier, object);
    });
    return FAILED(made) ? made : result;
}

}  // namespace tellwick::windows
