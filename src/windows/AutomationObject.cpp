#include "windows/AutomationObject.h"

#include <ocidl.h>

#include <vector>

#include "platform/Grid.h"
#include "windows/EventSink.h"
#include "windows/MonitorAwareness.h"
#include "windows/Values.h"

namespace tellwick::windows {

namespace {

constexpr LCID Language = LOCALE_USER_DEFAULT;

Text SystemMessage(HRESULT result) {
    wchar_t buffer[256];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, DWORD(result), 0, buffer, 256, nullptr);
    return length ? Trimmed(FromWide(buffer, length)) : Text(u"Automation error");
}

class AutomationObject : public Object {
public:
    AutomationObject(PendingError& errors, ComPtr<IDispatch> dispatch)
        : errors(errors), dispatch(std::move(dispatch)) {}
    ~AutomationObject() override {
        const OutlooksContext context;
        dispatch = {};
    }

    Value Get(TextView member, const std::vector<Value>& arguments) override {
        return Invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, {});
    }

    Value Call(TextView member, const std::vector<Value>& arguments,
               const std::vector<NamedValue>& named) override {
        return Invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, named);
    }

    void Put(TextView member, const Value& value) override {
        const OutlooksContext context;
        std::vector<DISPID> identifiers;
        if (!Identify(member, {}, identifiers)) return;
        Variant argument;
        ToVariant(value, argument);
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&argument, &put, 1, 1};
        EXCEPINFO exception{};
        HRESULT result = E_FAIL;
        if (std::holds_alternative<ObjectPtr>(value)) {
            result = dispatch->Invoke(identifiers[0], IID_NULL, Language, DISPATCH_PROPERTYPUTREF,
                                      &parameters, nullptr, nullptr, nullptr);
        }
        if (FAILED(result)) {
            result = dispatch->Invoke(identifiers[0], IID_NULL, Language, DISPATCH_PROPERTYPUT,
                                      &parameters, nullptr, &exception, nullptr);
        }
        if (FAILED(result)) NoteFailure(errors, result, &exception);
        Free(exception);
    }

    Text TypeName() override {
        const OutlooksContext context;
        ComPtr<ITypeInfo> type;
        bool isInterface = false;
        if (const auto provider =
                ComPtr<IDispatch>(dispatch).As<IProvideClassInfo>(IID_IProvideClassInfo)) {
            provider->GetClassInfo(type.Out());
        }
        if (!type) {
            dispatch->GetTypeInfo(0, Language, type.Out());
            isInterface = true;
        }
        Bstr name;
        if (!type ||
            FAILED(type->GetDocumentation(MEMBERID_NIL, name.Out(), nullptr, nullptr, nullptr))) {
            return {};
        }
        Text text = name.AsText();
        if (isInterface && text.starts_with(u'_')) text.erase(0, 1);
        return text;
    }

    SubscriptionPtr Advise(const EventInterface& events, EventHandler handler) override {
        return AdviseEvents(errors, dispatch.Get(), events, std::move(handler));
    }

    IDispatch* Dispatch() const { return dispatch.Get(); }

private:
    // The member's identifier first, then those of the named arguments, all asked for at once.
    bool Identify(TextView member, const std::vector<NamedValue>& named,
                  std::vector<DISPID>& identifiers) {
        if (member == DefaultMember) {
            identifiers.assign(1, DISPID_VALUE);
            return true;
        }
        std::vector<Text> texts{Text(member)};
        for (const NamedValue& argument : named) texts.emplace_back(argument.name);
        std::vector<LPOLESTR> names;
        names.reserve(texts.size());
        for (const Text& text : texts) names.push_back(const_cast<LPOLESTR>(Wide(text)));
        identifiers.assign(names.size(), DISPID_UNKNOWN);
        const HRESULT result = dispatch->GetIDsOfNames(IID_NULL, names.data(), UINT(names.size()),
                                                       Language, identifiers.data());
        if (FAILED(result)) NoteFailure(errors, result);
        return SUCCEEDED(result);
    }

    Value Invoke(TextView member, WORD kind, const std::vector<Value>& arguments,
                 const std::vector<NamedValue>& named) {
        const OutlooksContext context;
        std::vector<DISPID> identifiers;
        if (!Identify(member, named, identifiers)) return {};
        // Named arguments come first, in the order of their identifiers; the others follow in
        // reverse.
        std::vector<Variant> variants(named.size() + arguments.size());
        std::size_t next = 0;
        for (const NamedValue& argument : named) ToVariant(argument.value, variants[next++]);
        for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
            ToVariant(*argument, variants[next++]);
        }
        DISPPARAMS parameters{variants.data(), identifiers.data() + 1, UINT(variants.size()),
                              UINT(named.size())};
        Variant returned;
        EXCEPINFO exception{};
        const HRESULT result = dispatch->Invoke(identifiers[0], IID_NULL, Language, kind,
                                                &parameters, &returned, &exception, nullptr);
        if (FAILED(result)) NoteFailure(errors, result, &exception);
        Free(exception);
        return SUCCEEDED(result) ? ToValue(errors, returned) : Value();
    }

    static void Free(EXCEPINFO& exception) {
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
    }

    PendingError& errors;
    ComPtr<IDispatch> dispatch;
};

std::int32_t ErrorNumber(HRESULT result) {
    switch (result) {
        case DISP_E_UNKNOWNNAME:
        case DISP_E_MEMBERNOTFOUND:
        case DISP_E_UNKNOWNINTERFACE:
            return error::NoSuchMember;
        case DISP_E_TYPEMISMATCH:
            return error::TypeMismatch;
        case DISP_E_BADINDEX:
            return error::SubscriptOutOfRange;
        case DISP_E_OVERFLOW:
            return error::Overflow;
        case E_OUTOFMEMORY:
            return error::OutOfMemory;
        default:
            return (DWORD(result) & 0xFFFF0000u) == 0x800A0000u ? result & 0xFFFF
                                                                : error::Automation;
    }
}

}  // namespace

void NoteFailure(PendingError& errors, HRESULT result, const EXCEPINFO* exception) {
    if (result == DISP_E_EXCEPTION && exception) {
        if (exception->pfnDeferredFillIn) {
            exception->pfnDeferredFillIn(const_cast<EXCEPINFO*>(exception));
        }
        const HRESULT cause =
            exception->wCode ? HRESULT(0x800A0000u + exception->wCode) : HRESULT(exception->scode);
        const std::int32_t number = ErrorNumber(cause);
        errors.Note(number, exception->bstrDescription ? FromWide(exception->bstrDescription)
                                                       : SystemMessage(cause));
        return;
    }
    errors.Note(ErrorNumber(result), SystemMessage(result));
}

ObjectPtr WrapDispatch(PendingError& errors, IDispatch* dispatch) {
    if (!dispatch) return nullptr;
    return std::make_shared<AutomationObject>(errors, ComPtr<IDispatch>::Share(dispatch));
}

IDispatch* DispatchOf(const ObjectPtr& object) {
    const auto* automationObject = dynamic_cast<const AutomationObject*>(object.get());
    return automationObject ? automationObject->Dispatch() : nullptr;
}

namespace {

// Empty for what is not an array of two dimensions of variants.
GridPtr ToGrid(PendingError& errors, SAFEARRAY& array) {
    VARTYPE type = VT_EMPTY;
    LONG low[2], high[2];
    if (SafeArrayGetDim(&array) != 2 || FAILED(SafeArrayGetVartype(&array, &type)) ||
        type != VT_VARIANT) {
        return nullptr;
    }
    for (UINT dimension = 0; dimension < 2; ++dimension) {
        if (FAILED(SafeArrayGetLBound(&array, dimension + 1, &low[dimension])) ||
            FAILED(SafeArrayGetUBound(&array, dimension + 1, &high[dimension])) ||
            high[dimension] < low[dimension]) {
            return nullptr;
        }
    }
    const VARIANT* data = nullptr;
    if (FAILED(SafeArrayAccessData(&array, reinterpret_cast<void**>(const_cast<VARIANT**>(&data)))))
        return nullptr;
    struct Unlocking {
        SAFEARRAY& array;
        ~Unlocking() { SafeArrayUnaccessData(&array); }
    } const unlocking{array};
    auto grid = std::make_shared<Grid>(std::size_t(high[0] - low[0]) + 1,
                                       std::size_t(high[1] - low[1]) + 1);
    // The first index runs fastest in memory.
    for (std::size_t i = 0; i < grid->First(); ++i) {
        for (std::size_t j = 0; j < grid->Second(); ++j) {
            const VARIANT& cell = data[j * grid->First() + i];
            if (cell.vt == VT_BSTR) {
                grid->AddText({reinterpret_cast<const char16_t*>(cell.bstrVal),
                               std::size_t(SysStringLen(cell.bstrVal))});
            } else {
                grid->Add(ToValue(errors, cell));
            }
        }
    }
    return grid;
}

}  // namespace

Value ToValue(PendingError& errors, const VARIANT& variant) {
    if (variant.vt == VT_BSTR) {
        return variant.bstrVal ? FromWide(variant.bstrVal, SysStringLen(variant.bstrVal)) : Text();
    }
    // Tables are full of these.
    if (variant.vt == VT_EMPTY) return {};
    if (variant.vt == VT_R8) return variant.dblVal;
    if (variant.vt == VT_DATE) return variant.date;
    if (variant.vt == (VT_ARRAY | VT_VARIANT)) {
        return variant.parray ? Value(ToGrid(errors, *variant.parray)) : Value();
    }
    const VARIANT* source = &variant;
    if (source->vt == (VT_BYREF | VT_VARIANT)) source = source->pvarVal;
    Variant direct;
    if (FAILED(VariantCopyInd(&direct, const_cast<VARIANT*>(source)))) return {};
    switch (direct.vt) {
        case VT_BOOL:
            return direct.boolVal != VARIANT_FALSE;
        case VT_BSTR:
            return ToValue(errors, direct);
        case VT_DISPATCH:
            return WrapDispatch(errors, direct.pdispVal);
        case VT_UNKNOWN: {
            ComPtr<IDispatch> dispatch;
            if (direct.punkVal) {
                direct.punkVal->QueryInterface(IID_IDispatch,
                                               reinterpret_cast<void**>(dispatch.Out()));
            }
            return WrapDispatch(errors, dispatch.Get());
        }
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
        case VT_DECIMAL: {
            Variant number;
            if (FAILED(VariantChangeType(&number, &direct, 0, VT_R8))) return {};
            return number.dblVal;
        }
        default: {
            Variant number;
            if (direct.vt == VT_EMPTY || direct.vt == VT_NULL || direct.vt == VT_ERROR ||
                FAILED(VariantChangeType(&number, &direct, 0, VT_I4))) {
                return {};
            }
            return std::int32_t(number.lVal);
        }
    }
}

void ToVariant(const Value& value, VARIANT& variant) {
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
        variant.bstrVal = Bstr(*text).Detach();
    } else if (const auto* object = std::get_if<ObjectPtr>(&value)) {
        variant.vt = VT_DISPATCH;
        variant.pdispVal = DispatchOf(*object);
        if (variant.pdispVal) variant.pdispVal->AddRef();
    } else {
        variant.vt = VT_ERROR;
        variant.scode = DISP_E_PARAMNOTFOUND;
    }
}

ObjectPtr WindowsAutomation::Create(TextView programmaticIdentifier) {
    const OutlooksContext context;
    CLSID identifier;
    ComPtr<IDispatch> object;
    HRESULT result = CLSIDFromProgID(Wide(Text(programmaticIdentifier)), &identifier);
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                  IID_IDispatch, reinterpret_cast<void**>(object.Out()));
    }
    if (FAILED(result)) errors.Note(error::CannotCreateObject, SystemMessage(result));
    return WrapDispatch(errors, object.Get());
}

ObjectPtr WindowsAutomation::Running(TextView programmaticIdentifier) {
    const OutlooksContext context;
    CLSID identifier;
    ComPtr<IUnknown> running;
    ComPtr<IDispatch> object;
    HRESULT result = CLSIDFromProgID(Wide(Text(programmaticIdentifier)), &identifier);
    if (SUCCEEDED(result)) result = GetActiveObject(identifier, nullptr, running.Out());
    if (SUCCEEDED(result)) {
        result = running->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(object.Out()));
    }
    if (FAILED(result)) errors.Note(error::CannotCreateObject, SystemMessage(result));
    return WrapDispatch(errors, object.Get());
}

}  // namespace tellwick::windows
