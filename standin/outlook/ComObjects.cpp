#include "outlook/ComObjects.h"

#include "outlook/ComObject.h"
#include "platform/Grid.h"

namespace tellwick::standin {

namespace {

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

}  // namespace

HRESULT AutomationCode(const PendingError& errors) {
    constexpr auto AutomationFacility = HRESULT(0x800A0000);
    return errors.number < 0 ? errors.number : AutomationFacility + errors.number;
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
    } else if (const auto* grid = std::get_if<GridPtr>(&value)) {
        SAFEARRAYBOUND bounds[] = {{ULONG((*grid)->First()), 0}, {ULONG((*grid)->Second()), 0}};
        SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, 2, bounds);
        VARIANT* cells = nullptr;
        if (!array || FAILED(SafeArrayAccessData(array, reinterpret_cast<void**>(&cells)))) return;
        // The first index runs fastest in memory.
        for (std::size_t i = 0; i < (*grid)->First(); ++i) {
            for (std::size_t j = 0; j < (*grid)->Second(); ++j)
                ToVariant((*grid)->At((*grid)->CellAt(i, j)), cells[j * (*grid)->First() + i]);
        }
        SafeArrayUnaccessData(array);
        variant.vt = VT_ARRAY | VT_VARIANT;
        variant.parray = array;
    }
}

void ComObjects::Disconnect() {
    std::vector<ComPtr<IDispatch>> held;
    for (const auto& [object, wrapper] : alive) held.emplace_back(wrapper);
    for (const auto& object : held) CoDisconnectObject(object.Get(), 0);
}

std::vector<ComObjects::Living> ComObjects::Alive() const {
    std::vector<Living> living;
    for (const auto& [object, wrapper] : alive) living.push_back(wrapper->Life());
    return living;
}

}  // namespace tellwick::standin
