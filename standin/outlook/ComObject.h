// One object of the model as a COM object: late binding by name, events through connection points,
// and the class name as type information.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <map>

#include "outlook/ComObjects.h"

namespace tellwick::standin {

// Asked of a foreign reference to find out that it is one of these objects.
inline constexpr GUID ComObjectIdentifier = {
    0x5b0e6f0d, 0x7a41, 0x4c1e, {0x9d, 0x2b, 0x61, 0x0f, 0x3c, 0x88, 0x24, 0x97}};

class ComObject : public IDispatch, public IProvideClassInfo, public IConnectionPointContainer {
public:
    ComObject(ComObjects& objects, ObjectPtr handle) : objects(objects), handle(std::move(handle)) {
        objects.alive[this->handle.get()] = this;
    }
    virtual ~ComObject() { objects.alive.erase(handle.get()); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* identifiers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID identifier, REFIID, LCID, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID identifier,
                                                  IConnectionPoint** point) override;

    HRESULT Advise(const EventInterface& events, IUnknown* sink, DWORD* cookie);
    HRESULT Unadvise(DWORD cookie) {
        return subscriptions.erase(cookie) != 0 ? S_OK : CONNECT_E_NOCONNECTION;
    }
    const ObjectPtr& Handle() const { return handle; }
    ComObjects::Living Life() const {
        return {handle->TypeName(), references, subscriptions.size()};
    }

private:
    // Null when the model has gone.
    const MemberTable* Table() const {
        const auto target = TargetOf(handle);
        return target ? &target->Table() : nullptr;
    }
    DISPID FirstIdentifier() const;
    HRESULT CallMember(const Member& member, WORD flags, const DISPPARAMS& parameters,
                       VARIANT* result, EXCEPINFO* exception);
    HRESULT PutMember(const Member& member, WORD flags, const DISPPARAMS& parameters,
                      EXCEPINFO* exception);
    // Invokes the default member of the object that the member gives.
    HRESULT InvokeDefault(const Member& member, const std::vector<Value>& index, WORD flags,
                          const DISPPARAMS& parameters, EXCEPINFO* exception,
                          VARIANT* result = nullptr);

    ULONG references = 0;
    ComObjects& objects;
    ObjectPtr handle;
    std::map<DWORD, SubscriptionPtr> subscriptions;
    DWORD lastCookie = 0;
};

}  // namespace tellwick::standin
