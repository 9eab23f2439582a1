#include "outlook/TypeInfo.h"

#include <new>

namespace tellwick::standin {

namespace {

class NamedTypeInfo : public ComClass<ITypeInfo, IID_ITypeInfo> {
public:
    NamedTypeInfo(TextView name, TYPEKIND kind) : name(name) { attributes.typekind = kind; }

    HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** result) override {
        if (!result) return E_POINTER;
        *result = &attributes;
        return S_OK;
    }
    void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR*) override {}
    HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* typeName, BSTR* description,
                                               DWORD* helpContext, BSTR* helpFile) override {
        if (typeName) *typeName = nullptr;
        if (description) *description = nullptr;
        if (helpContext) *helpContext = 0;
        if (helpFile) *helpFile = nullptr;
        if (member != MEMBERID_NIL) return TYPE_E_ELEMENTNOTFOUND;
        if (typeName) *typeName = NewBstr(name);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT, FUNCDESC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNames(MEMBERID, BSTR*, UINT, UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT, HREFTYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT, INT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR*, UINT, MEMBERID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, PVOID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib**, UINT*) override { return E_NOTIMPL; }
    void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC*) override {}
    void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override {}

private:
    Text name;
    TYPEATTR attributes{};
};

}  // namespace

ComPtr<ITypeInfo> DescribeType(TextView name, TYPEKIND kind) {
    return ComPtr<ITypeInfo>::Attach(new NamedTypeInfo(name, kind));
}

}  // namespace tellwick::standin
