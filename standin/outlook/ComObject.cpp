#include "outlook/ComObject.h"

#include <algorithm>

#include "outlook/ConnectionPoint.h"
#include "outlook/DpiContexts.h"
#include "outlook/Enumerator.h"
#include "outlook/TypeInfo.h"

namespace tellwick::standin {

namespace {

// Members' identifiers differ from version to version, as Outlook's do.
constexpr DISPID IdentifiersPerVersion = 1000;
// Office 2000 offers class information only through IDispatch::GetTypeInfo.
constexpr std::int32_t FirstWithClassInfo = 10;

}  // namespace

HRESULT ComObject::QueryInterface(REFIID identifier, void** object) {
    return EntryPoint([&]() -> HRESULT {
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

DISPID ComObject::FirstIdentifier() const {
    return DISPID(objects.outlook.version) * IdentifiersPerVersion + 1;
}

HRESULT ComObject::GetTypeInfo(UINT index, LCID, ITypeInfo** information) {
    return EntryPoint([&]() -> HRESULT {
        if (!information) return E_POINTER;
        *information = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        *information = DescribeType(u"_" + handle->TypeName(), TKIND_DISPATCH).Detach();
        return S_OK;
    });
}

HRESULT ComObject::GetClassInfo(ITypeInfo** information) {
    return EntryPoint([&]() -> HRESULT {
        if (!information) return E_POINTER;
        *information = DescribeType(handle->TypeName(), TKIND_COCLASS).Detach();
        return S_OK;
    });
}

HRESULT ComObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* identifiers) {
    return EntryPoint([&]() -> HRESULT {
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
    const void* const caller = __builtin_return_address(0);
    const ComPtr<ComObject> self(this);
    return EntryPoint([&]() -> HRESULT {
        if (result) VariantInit(result);
        if (!parameters) return E_INVALIDARG;
        const MemberTable* table = Table();
        if (!table) return RPC_E_DISCONNECTED;
        if (identifier == DISPID_NEWENUM && table->IsCollection()) {
            if (result) {
                result->vt = VT_UNKNOWN;
                result->punkVal = new Enumerator(objects, self, 1);
            }
            return S_OK;
        }
        const auto& members = table->All();
        const DISPID index = identifier - FirstIdentifier();
        const Member* member = identifier == DISPID_VALUE ? table->Find(DefaultMember)
                               : index >= 0 && std::size_t(index) < members.size()
                                   ? &members[std::size_t(index)]
                                   : nullptr;
        if (!member) return DISP_E_MEMBERNOTFOUND;
        CheckContext(handle->TypeName() + u"." + Text(member->name), caller);

        const ErrorScope scope(objects.outlook.errors);
        const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        const HRESULT called = isPut ? PutMember(*member, flags, *parameters, exception)
                                     : CallMember(*member, flags, *parameters, result, exception);
        const PendingError& errors = objects.outlook.errors;
        if (FAILED(called) || !errors) return called;
        if (result) VariantClear(result);
        if (errors.number < 0) return errors.number;  // a failure of the call itself
        if (exception) {
            *exception = EXCEPINFO{};
            exception->scode = AutomationCode(errors);
            exception->bstrSource = NewBstr(u"Microsoft Outlook");
            exception->bstrDescription = NewBstr(errors.description);
        }
        return DISP_E_EXCEPTION;
    });
}

HRESULT ComObject::PutMember(const Member& member, WORD flags, const DISPPARAMS& parameters,
                             EXCEPINFO* exception) {
    if (parameters.cArgs < 1 || parameters.cNamedArgs != 1 ||
        parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
        return DISP_E_BADPARAMCOUNT;
    }
    if (parameters.cArgs == 1) {
        if (!member.put) return DISP_E_MEMBERNOTFOUND;
        handle->Put(member.name, objects.ToValue(parameters.rgvarg[0]));
        return S_OK;
    }
    // UserProperties("IsSMS") = True: the index leads to the object whose default member is put.
    if (member.arguments.empty()) return InvokeDefault(member, {}, flags, parameters, exception);
    DISPPARAMS value = parameters;
    value.cArgs = 1;
    std::vector<Value> index;
    for (UINT at = parameters.cArgs; at-- > 1;) {
        index.push_back(objects.ToValue(parameters.rgvarg[at]));
    }
    return InvokeDefault(member, index, flags, value, exception);
}

HRESULT ComObject::InvokeDefault(const Member& member, const std::vector<Value>& index, WORD flags,
                                 const DISPPARAMS& parameters, EXCEPINFO* exception,
                                 VARIANT* result) {
    const ComPtr<IDispatch> given = objects.Wrap(AsObject(handle->Call(member.name, index)));
    if (objects.outlook.errors) return S_OK;
    if (!given) return DISP_E_BADPARAMCOUNT;
    DISPPARAMS passed = parameters;
    return given->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, flags, &passed, result,
                         exception, nullptr);
}

HRESULT ComObject::CallMember(const Member& member, WORD flags, const DISPPARAMS& parameters,
                              VARIANT* result, EXCEPINFO* exception) {
    if (!(flags & (member.isMethod ? DISPATCH_METHOD : DISPATCH_PROPERTYGET))) {
        return DISP_E_MEMBERNOTFOUND;
    }
    // CommandBars("Standard"): the property has no arguments, they are those of its object.
    if (parameters.cArgs > 0 && !member.isMethod && member.arguments.empty()) {
        return InvokeDefault(member, {}, flags, parameters, exception, result);
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
    return EntryPoint([&]() -> HRESULT {
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
            InvokeSink(all, ComPtr<IDispatch>(dispatch), event, arguments);
        });
    if (!subscription) return CONNECT_E_CANNOTCONNECT;
    *cookie = ++lastCookie;
    subscriptions[*cookie] = std::move(subscription);
    return S_OK;
}

}  // namespace tellwick::standin
