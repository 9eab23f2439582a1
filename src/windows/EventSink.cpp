#include "windows/EventSink.h"

#include <ocidl.h>

#include <vector>

#include "windows/AutomationObject.h"
#include "windows/Server.h"
#include "windows/Values.h"

namespace tellwick::windows {

namespace {

class EventSink final : public IDispatch {
public:
    EventSink(PendingError& errors, REFIID eventInterface, EventHandler handler)
        : errors(errors),
          eventInterface(eventInterface),
          handler(std::make_shared<EventHandler>(std::move(handler))) {}

    // The source may go on holding the sink; its events then reach nobody.
    void Silence() { handler.reset(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (identifier != IID_IUnknown && identifier != IID_IDispatch &&
            identifier != eventInterface) {
            return E_NOINTERFACE;
        }
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT*, EXCEPINFO*, UINT*) override {
        const MonitorAware aware;
        try {
            // Both live until the handler is done, whatever it gives up.
            const auto self = ComPtr<EventSink>::Share(this);
            const std::shared_ptr<EventHandler> current = handler;
            if (!current) return S_OK;
            const UINT count = parameters ? parameters->cArgs : 0;
            std::vector<Value> arguments;
            for (UINT argument = count; argument-- > 0;) {
                arguments.push_back(ToValue(errors, parameters->rgvarg[argument]));
            }
            (*current)(event, arguments);
            for (UINT argument = 0; argument < count; ++argument) {
                VARIANT& passed = parameters->rgvarg[count - 1 - argument];
                if (passed.vt == (VT_BYREF | VT_BOOL) && passed.pboolVal) {
                    *passed.pboolVal =
                        AsBoolean(arguments[argument]) ? VARIANT_TRUE : VARIANT_FALSE;
                }
            }
            return S_OK;
        } catch (...) {
            ReportException();
            return E_UNEXPECTED;
        }
    }

private:
    ~EventSink() = default;

    PendingError& errors;
    const IID eventInterface;
    std::shared_ptr<EventHandler> handler;
    ULONG references = 1;
    Lifetime lifetime;
};

class Advice : public Subscription {
public:
    Advice(ComPtr<IConnectionPoint> point, ComPtr<EventSink> sink)
        : point(std::move(point)), sink(std::move(sink)) {}
    ~Advice() override {
        const OutlooksContext context;
        sink->Silence();
        if (advised) point->Unadvise(cookie);
    }
    HRESULT Advise() {
        const HRESULT result = point->Advise(sink.Get(), &cookie);
        advised = SUCCEEDED(result);
        return result;
    }

private:
    ComPtr<IConnectionPoint> point;
    ComPtr<EventSink> sink;
    DWORD cookie = 0;
    bool advised = false;
};

}  // namespace

SubscriptionPtr AdviseEvents(PendingError& errors, IDispatch* source, const EventInterface& events,
                             EventHandler handler) {
    const OutlooksContext context;
    IID identifier;
    HRESULT result = IIDFromString(Wide(Text(events.identifier)), &identifier);
    ComPtr<IConnectionPointContainer> container;
    if (SUCCEEDED(result)) {
        result = source->QueryInterface(IID_IConnectionPointContainer,
                                        reinterpret_cast<void**>(container.Out()));
    }
    ComPtr<IConnectionPoint> point;
    if (SUCCEEDED(result)) result = container->FindConnectionPoint(identifier, point.Out());
    // All that can fail for want of memory comes before the source has it.
    auto sink = ComPtr<EventSink>::Take(new EventSink(errors, identifier, std::move(handler)));
    auto advice = std::make_unique<Advice>(std::move(point), std::move(sink));
    if (SUCCEEDED(result)) result = advice->Advise();
    if (FAILED(result)) {
        NoteFailure(errors, result);
        return nullptr;
    }
    return advice;
}

}  // namespace tellwick::windows
