#include "outlook/NaiveReading.h"

#include <initializer_list>

#include "outlook/Com.h"

namespace tellwick::standin {

namespace {

// A member of an object by name, with at most one argument.
class Read {
public:
    Read(IDispatch* object, const wchar_t* member, const VARIANT* argument = nullptr) {
        VariantInit(&result);
        auto* name = const_cast<wchar_t*>(member);
        DISPID identifier = DISPID_UNKNOWN;
        if (!object ||
            FAILED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &identifier))) {
            return;
        }
        DISPPARAMS arguments{const_cast<VARIANT*>(argument), nullptr, argument ? 1U : 0U, 0};
        object->Invoke(identifier, IID_NULL, LOCALE_USER_DEFAULT,
                       DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments, &result, nullptr,
                       nullptr);
    }
    Read(const Read&) = delete;
    Read& operator=(const Read&) = delete;
    ~Read() { VariantClear(&result); }
    IDispatch* Object() const { return result.vt == VT_DISPATCH ? result.pdispVal : nullptr; }
    long Number() const { return result.vt == VT_I4 ? result.lVal : 0; }

private:
    VARIANT result;
};

VARIANT Argument(long number) {
    VARIANT argument;
    argument.vt = VT_I4;
    argument.lVal = number;
    return argument;
}

}  // namespace

long ReadContactsNaively(IDispatch& application) {
    long count = 0;
    VARIANT mapi;
    mapi.vt = VT_BSTR;
    mapi.bstrVal = SysAllocString(L"MAPI");
    const Read nameSpace(&application, L"GetNamespace", &mapi);
    VariantClear(&mapi);
    constexpr long ContactsFolder = 10;
    const VARIANT wanted = Argument(ContactsFolder);
    const Read contacts(nameSpace.Object(), L"GetDefaultFolder", &wanted);
    const Read folders(contacts.Object(), L"Folders");
    for (long folder = 1; folder <= Read(folders.Object(), L"Count").Number(); ++folder) {
        const VARIANT place = Argument(folder);
        const Read of(folders.Object(), L"Item", &place);
        const Read items(of.Object(), L"Items");
        const long last = Read(items.Object(), L"Count").Number();
        for (long index = 1; index <= last; ++index) {
            const VARIANT at = Argument(index);
            const Read item(items.Object(), L"Item", &at);
            for (const wchar_t* property :
                 {L"Class", L"CreationTime", L"LastModificationTime", L"FullName", L"FileAs",
                  L"CompanyName", L"MobileTelephoneNumber", L"HomeTelephoneNumber",
                  L"Home2TelephoneNumber", L"BusinessTelephoneNumber", L"Business2TelephoneNumber",
                  L"CarTelephoneNumber", L"OtherTelephoneNumber", L"PrimaryTelephoneNumber"}) {
                const Read value(item.Object(), property);
            }
            ++count;
        }
    }
    return count;
}

}  // namespace tellwick::standin
