// The connection point of an object's one event interface.
#pragma once

#include "outlook/ComObject.h"

namespace tellwick::standin {

class ConnectionPoint : public ComClass<IConnectionPoint, IID_IConnectionPoint> {
public:
    ConnectionPoint(ComObject& object, const EventInterface& events)
        : object(&object), events(events) {}
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* identifier) override {
        if (!identifier) return E_POINTER;
        *identifier = ToGuid(events.identifier);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) override {
        if (!container) return E_POINTER;
        return object->QueryInterface(IID_IConnectionPointContainer,
                                      reinterpret_cast<void**>(container));
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
        return EntryPoint([&] { return object->Advise(events, sink, cookie); });
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        return EntryPoint([&] { return object->Unadvise(cookie); });
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

private:
    ComPtr<ComObject> object;
    EventInterface events;
};

// Calls one sink; Boolean arguments go by reference and come back changed.
void InvokeSink(ComObjects& objects, const ComPtr<IDispatch>& sink, std::int32_t event,
                std::vector<Value>& arguments);

}  // namespace tellwick::standin
