#include "outlook/RibbonAddIn.h"

#include "outlook/DpiContexts.h"

namespace tellwick::standin {

// Office's interface, a dual one. Not in the nameless namespace: the compiler would know of no
// class that implements it, and call nothing.
struct IRibbonExtensibility : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* xml) = 0;
};

namespace {

constexpr GUID ExtensibilityIdentifier = {
    0x000C0396, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

class ComRibbonAddIn : public RibbonAddIn {
public:
    ComRibbonAddIn(ComObjects& objects, ComPtr<IRibbonExtensibility> source,
                   ComPtr<IDispatch> callbacks)
        : objects(objects), source(std::move(source)), callbacks(std::move(callbacks)) {}

    Text GetCustomUI(TextView ribbonId) override {
        const BSTR asked = NewBstr(ribbonId);
        BSTR answer = nullptr;
        {
            const AddInCall call(u"GetCustomUI");
            source->GetCustomUI(asked, &answer);
        }
        const Text xml = FromBstr(answer);
        SysFreeString(asked);
        SysFreeString(answer);
        return xml;
    }
    bool HasCallback(TextView name) override { return IdentifierOf(name) != DISPID_UNKNOWN; }
    Value Call(TextView callback, const ObjectPtr& argument) override {
        Variant passed;
        objects.ToVariant(argument, passed);
        DISPPARAMS parameters{&passed, nullptr, 1, 0};
        Variant result;
        const AddInCall call(callback);
        const HRESULT called =
            callbacks->Invoke(IdentifierOf(callback), IID_NULL, LOCALE_USER_DEFAULT,
                              DISPATCH_METHOD, &parameters, &result, nullptr, nullptr);
        if (FAILED(called)) objects.outlook.errors.Note(error::Automation, u"The callback failed");
        return objects.ToValue(result);
    }

private:
    DISPID IdentifierOf(TextView name) const {
        Text text(name);
        auto* wide = const_cast<wchar_t*>(Wide(text));
        DISPID identifier = DISPID_UNKNOWN;
        callbacks->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &identifier);
        return identifier;
    }

    ComObjects& objects;
    ComPtr<IRibbonExtensibility> source;
    ComPtr<IDispatch> callbacks;
};

}  // namespace

std::shared_ptr<RibbonAddIn> RibbonAddInOf(ComObjects& objects, IUnknown* addIn) {
    const ComPtr<IUnknown> object(addIn);
    auto source = object.As<IRibbonExtensibility>(ExtensibilityIdentifier);
    auto callbacks = object.As<IDispatch>(IID_IDispatch);
    if (!source || !callbacks) return nullptr;
    return std::make_shared<ComRibbonAddIn>(objects, std::move(source), std::move(callbacks));
}

}  // namespace tellwick::standin
