#include "outlook/ComObject.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>

#include "outlook/TypeInfo.h"

namespace tellwick::standin {

namespace {

constexpr HRESULT AutomationFacility = HRESULT(0x800A0000);
// Members' identifiers differ from version to version, as Outlook's do.
constexpr DISPID IdentifiersPerVersion = 1000;
// Office 2000 offers class information only through IDispatch::GetTypeInfo.
constexpr std::int32_t FirstWithClassInfo = 10;

// Asked of a foreign reference to find out that it is one of these objects.
constexpr GUID ComObjectIdentifier = {
    0x5b0e6f0d, 0x7a41, 0x4c1e, {0x9d, 0x2b, 0x61, 0x0f, 0x3c, 0x88, 0x24, 0x97}};

// An object of somebody else, kept for him (a picture, an add-in's object).
class ForeignObject : public Object {
public:
    ForeignObject(PendingError& errors, ComPtr<IDispatch> dispatch)
        : errors(errors), dispatch(std::move(dispatch)) {}
    Value Get(TextView, const std::vector<Value>&) override { return Refuse(); }
    void Put(TextView, const Value&) override { Refuse(); }
    Value Call(TextView, const std::vector<Value>&, const std::vector<NamedValue>&) override {
        return Refuse();
    }
    Text TypeName() override { return {}; }
    SubscriptionPtr Advise(const EventInterface&, EventHandler) override {
        Refuse();
        return nullptr;
    }
    const ComPtr<IDispatch>& Dispatch() const { return dispatch; }

private:
    Value Refuse() {
        errors.Note(error::NoSuchMember, u"Not an object of this program");
        return {};
    }
    PendingError& errors;
    ComPtr<IDispatch> dispatch;
};

// Keeps what is pending outside a call from being mixed up with what the call notes.
class ErrorScope {
public:
    explicit ErrorScope(PendingError& errors) : errors(errors), before(errors) { errors.Clear(); }
    ~ErrorScope() { errors = before; }
    ErrorScope(const ErrorScope&) = delete;
    ErrorScope& operator=(const ErrorScope&) = delete;

private:
    PendingError& errors;
    PendingError before;
};

void InvokeSink(ComObjects& objects, const ComPtr<IDispatch>& sink, std::int32_t event,
                std::vector<Value>& arguments) {
    const std::size_t count = arguments.size();
    std::vector<VARIANT_BOOL> truths(count);
    std::vector<VARIANT> variants(count);
    for (std::size_t index = 0; index < count; ++index) {
        VARIANT& variant = variants[count - 1 - index];  // last argument first
        VariantInit(&variant);
        if (const bool* truth = std::get_if<bool>(&arguments[index])) {
            truths[index] = *truth ? VARIANT_TRUE : VARIANT_FALSE;
            variant.vt = VT_BYREF | VT_BOOL;
            variant.pboolVal = &truths[index];
        } else {
            objects.ToVariant(arguments[index], variant);
        }
    }
    DISPPARAMS parameters{variants.data(), nullptr, UINT(count), 0};
    Variant result;
    EXCEPINFO exception{};
    UINT wrongArgument = 0;
    sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result,
                 &exception, &wrongArgument);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    for (std::size_t index = 0; index < count; ++index) {
        if (std::holds_alternative<bool>(arguments[index])) {
            arguments[index] = truths[index] != VARIANT_FALSE;
        }
        VariantClear(&variants[count - 1 - index]);
    }
}

}  // namespace

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
    DISPID FirstIdentifier() const {
        return DISPID(objects.outlook.version) * IdentifiersPerVersion + 1;
    }
    HRESULT CallMember(const Member& member, WORD flags, const DISPPARAMS& parameters,
                       VARIANT* result);

    ULONG references = 0;
    ComObjects& objects;
    ObjectPtr handle;
    std::map<DWORD, SubscriptionPtr> subscriptions;
    DWORD lastCookie = 0;
};

namespace {

// The connection point of an object's one event interface.
class ConnectionPoint : public IConnectionPoint {
public:
    ConnectionPoint(ComObject& object, const EventInterface& events)
        : object(&object), events(events) {}
    virtual ~ConnectionPoint() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (identifier != IID_IUnknown && identifier != IID_IConnectionPoint) return E_NOINTERFACE;
        AddRef();
        *result = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }
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
        return Guarded([&] { return object->Advise(events, sink, cookie); });
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        return Guarded([&] { return object->Unadvise(cookie); });
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

private:
    ULONG references = 1;
    ComPtr<ComObject> object;
    EventInterface events;
};

// Which member has identifier 0, the one a reference stands for by itself.
const Member* DefaultMember(const MemberTable& table) {
    for (const TextView name : {u"Item", u"Value", u"Subject", u"Name", u"Caption"}) {
        if (const Member* member = table.Find(name)) return member;
    }
    return nullptr;
}

}  // namespace

HRESULT ComObject::QueryInterface(REFIID identifier, void** object) {
    return Guarded([&]() -> HRESULT {
        if (!object) return E_POINTER;
        *object = nullptr;
        const auto target = TargetOf(handle);
        if (identifier == IID_IUnknown || identifier == IID_IDispatch) {
            *object = static_cast<IDispatch*>(this);
        } else if (identifier == IID_IProvideClassInfo &&
                   objects.outlook.version >= FirstWithClassInfo) {
            *object = static_cast<IProvideClassInfo*>(this);
        } else if (identifier == IID_IConnectionPointContainer && target && target->Events()) {
            *object = static_cast<IConnectionPointContainer*>(this);
        } else if (identifier == ComObjectIdentifier) {
            *object = this;
        } else {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    });
}

HRESULT ComObject::GetTypeInfo(UINT index, LCID, ITypeInfo** information) {
    return Guarded([&]() -> HRESULT {
        if (!information) return E_POINTER;
        *information = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        *information = DescribeType(u"_" + handle->TypeName(), TKIND_DISPATCH).Detach();
        return S_OK;
    });
}

HRESULT ComObject::GetClassInfo(ITypeInfo** information) {
    return Guarded([&]() -> HRESULT {
        if (!information) return E_POINTER;
        *information = DescribeType(handle->TypeName(), TKIND_COCLASS).Detach();
        return S_OK;
    });
}

HRESULT ComObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* identifiers) {
    return Guarded([&]() -> HRESULT {
        if (!names || !identifiers || count == 0) return E_INVALIDARG;
        std::fill(identifiers, identifiers + count, DISPID_UNKNOWN);
        const MemberTable* table = Table();
        if (!table) return RPC_E_DISCONNECTED;
        const Member* member = table->Find(FromWide(names[0]));
        if (!member || member->firstVersion > objects.outlook.version) return DISP_E_UNKNOWNNAME;
        identifiers[0] = FirstIdentifier() + DISPID(member - table->All().data());
        HRESULT result = S_OK;
        for (UINT index = 1; index < count; ++index) {
            const Text name = FromWide(names[index]);
            const auto& arguments = member->arguments;
            const auto found =
                std::find_if(arguments.begin(), arguments.end(),
                             [&](TextView other) { return EqualFolded(other, name); });
            if (found == arguments.end()) {
                result = DISP_E_UNKNOWNNAME;
            } else {
                identifiers[index] = DISPID(found - arguments.begin());
            }
        }
        return result;
    });
}

HRESULT ComObject::Invoke(DISPID identifier, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                          VARIANT* result, EXCEPINFO* exception, UINT*) {
    const ComPtr<ComObject> self(this);
    return Guarded([&]() -> HRESULT {
        if (result) VariantInit(result);
        if (!parameters) return E_INVALIDARG;
        const MemberTable* table = Table();
        if (!table) return RPC_E_DISCONNECTED;
        const auto& members = table->All();
        const DISPID index = identifier - FirstIdentifier();
        const Member* member = identifier == DISPID_VALUE ? DefaultMember(*table)
                               : index >= 0 && std::size_t(index) < members.size()
                                   ? &members[std::size_t(index)]
                                   : nullptr;
        if (!member) return DISP_E_MEMBERNOTFOUND;

        const ErrorScope scope(objects.outlook.errors);
        const HRESULT called = CallMember(*member, flags, *parameters, result);
        const PendingError& errors = objects.outlook.errors;
        if (FAILED(called) || !errors) return called;
        if (result) VariantClear(result);
        if (errors.number < 0) return errors.number;  // a failure of the call itself
        if (exception) {
            *exception = EXCEPINFO{};
            exception->scode = AutomationFacility + errors.number;
            exception->bstrSource = NewBstr(u"Microsoft Outlook");
            exception->bstrDescription = NewBstr(errors.description);
        }
        return DISP_E_EXCEPTION;
    });
}

HRESULT ComObject::CallMember(const Member& member, WORD flags, const DISPPARAMS& parameters,
                              VARIANT* result) {
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        if (parameters.cArgs != 1 || parameters.cNamedArgs != 1 ||
            parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
            return DISP_E_BADPARAMCOUNT;
        }
        if (!member.put) return DISP_E_MEMBERNOTFOUND;
        handle->Put(member.name, objects.ToValue(parameters.rgvarg[0]));
        return S_OK;
    }
    if (!(flags & (member.isMethod ? DISPATCH_METHOD : DISPATCH_PROPERTYGET))) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (parameters.cArgs > member.arguments.size()) return DISP_E_BADPARAMCOUNT;
    std::vector<Value> positional;
    std::vector<NamedValue> named;
    for (UINT index = parameters.cArgs; index-- > parameters.cNamedArgs;) {
        positional.push_back(objects.ToValue(parameters.rgvarg[index]));
    }
    for (UINT index = 0; index < parameters.cNamedArgs; ++index) {
        const DISPID argument = parameters.rgdispidNamedArgs[index];
        if (argument < 0 || std::size_t(argument) >= member.arguments.size()) {
            return DISP_E_PARAMNOTFOUND;
        }
        named.push_back(
            {member.arguments[std::size_t(argument)], objects.ToValue(parameters.rgvarg[index])});
    }
    const Value value = handle->Call(member.name, positional, named);
    if (result) objects.ToVariant(value, *result);
    return S_OK;
}

HRESULT ComObject::FindConnectionPoint(REFIID identifier, IConnectionPoint** point) {
    return Guarded([&]() -> HRESULT {
        if (!point) return E_POINTER;
        *point = nullptr;
        const auto target = TargetOf(handle);
        const EventInterface* events = target ? target->Events() : nullptr;
        if (!events || ToGuid(events->identifier) != identifier) return CONNECT_E_NOCONNECTION;
        *point = new ConnectionPoint(*this, *events);
        return S_OK;
    });
}

HRESULT ComObject::Advise(const EventInterface& events, IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    ComPtr<IDispatch> dispatch;
    if (FAILED(sink->QueryInterface(ToGuid(events.identifier), dispatch.ReceiveVoid()))) {
        return CONNECT_E_CANNOTCONNECT;
    }
    const ErrorScope scope(objects.outlook.errors);
    SubscriptionPtr subscription =
        handle->Advise(events, [this, dispatch](std::int32_t event, std::vector<Value>& arguments) {
            ComObjects& all = objects;
            // The sink may be unadvised, and this object released, while it runs.
            const ComPtr<IDispatch> running = dispatch;
            InvokeSink(all, running, event, arguments);
        });
    if (!subscription) return CONNECT_E_CANNOTCONNECT;
    *cookie = ++lastCookie;
    subscriptions[*cookie] = std::move(subscription);
    return S_OK;
}

ComPtr<IDispatch> ForeignDispatch(const ObjectPtr& object) {
    const auto* foreign = dynamic_cast<const ForeignObject*>(object.get());
    return foreign ? foreign->Dispatch() : ComPtr<IDispatch>();
}

ComPtr<IDispatch> ComObjects::Wrap(const ObjectPtr& object) {
    if (!object) return {};
    if (ComPtr<IDispatch> foreign = ForeignDispatch(object)) return foreign;
    const auto found = alive.find(object.get());
    ComObject* wrapper = found != alive.end() ? found->second : new ComObject(*this, object);
    return ComPtr<IDispatch>(wrapper);
}

Value ComObjects::ToValue(const VARIANT& variant) {
    Variant plain;
    if (FAILED(VariantCopyInd(&plain, const_cast<VARIANT*>(&variant)))) return {};
    switch (plain.vt) {
        case VT_BOOL:
            return plain.boolVal != VARIANT_FALSE;
        case VT_BSTR:
            return FromBstr(plain.bstrVal);
        case VT_DISPATCH:
        case VT_UNKNOWN: {
            const ComPtr<IUnknown> unknown(plain.punkVal);
            if (!unknown) return ObjectPtr();
            if (const auto ours = unknown.As<ComObject>(ComObjectIdentifier)) return ours->Handle();
            ComPtr<IDispatch> dispatch = unknown.As<IDispatch>(IID_IDispatch);
            if (!dispatch) return ObjectPtr();
            return ObjectPtr(std::make_shared<ForeignObject>(outlook.errors, std::move(dispatch)));
        }
        case VT_I1:
        case VT_UI1:
        case VT_I2:
        case VT_UI2:
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT: {
            Variant number;
            if (FAILED(VariantChangeType(&number, &plain, 0, VT_I4))) return {};
            return std::int32_t(number.lVal);
        }
        case VT_I8:
        case VT_UI8:
        case VT_R4:
        case VT_R8:
        case VT_DATE:
        case VT_CY:
        case VT_DECIMAL: {
            Variant number;
            if (FAILED(VariantChangeType(&number, &plain, 0, VT_R8))) return {};
            return number.dblVal;
        }
        default:
            return {};
    }
}

void ComObjects::ToVariant(const Value& value, VARIANT& variant) {
    VariantInit(&variant);
    if (const auto* truth = std::get_if<bool>(&value)) {
        variant.vt = VT_BOOL;
        variant.boolVal = *truth ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (const auto* number = std::get_if<std::int32_t>(&value)) {
        variant.vt = VT_I4;
        variant.lVal = *number;
    } else if (const auto* real = std::get_if<double>(&value)) {
        variant.vt = VT_R8;
        variant.dblVal = *real;
    } else if (const auto* text = std::get_if<Text>(&value)) {
        variant.vt = VT_BSTR;
        variant.bstrVal = NewBstr(*text);
    } else if (const auto* object = std::get_if<ObjectPtr>(&value)) {
        variant.vt = VT_DISPATCH;
        variant.pdispVal = Wrap(*object).Detach();
    }
}

std::vector<ComObjects::Living> ComObjects::Alive() const {
    std::vector<Living> living;
    for (const auto& [object, wrapper] : alive) living.push_back(wrapper->Life());
    return living;
}

}  // namespace tellwick::standin
