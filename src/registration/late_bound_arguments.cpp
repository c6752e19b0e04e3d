#include "registration/late_bound_arguments.h"

#include <oleauto.h>

#include "registration/variant_store.h"

namespace corvid::registration {
namespace {

// The automation type a declared type stands for: enums are 32-bit integers, aliases
// are followed. VT_EMPTY when there is none (interfaces, records).
VARTYPE AutomationType(ITypeInfo* info, const TYPEDESC& type) {
    if (type.vt != VT_USERDEFINED) return type.vt;
    ITypeInfo* referenced = nullptr;
    if (FAILED(info->GetRefTypeInfo(type.hreftype, &referenced))) return VT_EMPTY;
    VARTYPE result = VT_EMPTY;
    TYPEATTR* attributes = nullptr;
    if (SUCCEEDED(referenced->GetTypeAttr(&attributes))) {
        if (attributes->typekind == TKIND_ENUM) result = VT_I4;
        if (attributes->typekind == TKIND_ALIAS) {
            result = AutomationType(referenced, attributes->tdescAlias);
        }
        referenced->ReleaseTypeAttr(attributes);
    }
    referenced->Release();
    return result;
}

// The IID of the interface `type` names, when it names one (a parameter taking an object).
bool InterfaceNamed(ITypeInfo* info, const TYPEDESC& type, IID* iid) {
    if (type.vt != VT_USERDEFINED) return false;
    ITypeInfo* referenced = nullptr;
    if (FAILED(info->GetRefTypeInfo(type.hreftype, &referenced))) return false;
    bool named = false;
    TYPEATTR* attributes = nullptr;
    if (SUCCEEDED(referenced->GetTypeAttr(&attributes))) {
        named = attributes->typekind == TKIND_INTERFACE || attributes->typekind == TKIND_DISPATCH;
        if (named) *iid = attributes->guid;
        referenced->ReleaseTypeAttr(attributes);
    }
    referenced->Release();
    return named;
}

// The function `member` names for a call with `flags`; the caller releases it.
FUNCDESC* FindFunction(ITypeInfo* info, DISPID member, WORD flags) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes))) return nullptr;
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(info->GetFuncDesc(i, &function))) continue;
        if (function->memid == member && (function->invkind & flags) != 0) return function;
        info->ReleaseFuncDesc(function);
    }
    return nullptr;
}

// Where the argument of each declared parameter sits in rgvarg (-1 when not passed).
std::vector<int> ArgumentPositions(const DISPPARAMS& given, UINT parameters) {
    std::vector<int> positions(parameters, -1);
    const UINT positional = given.cArgs >= given.cNamedArgs ? given.cArgs - given.cNamedArgs : 0;
    for (UINT i = 0; i < positional && i < parameters; ++i) {
        positions[i] = static_cast<int>(given.cArgs - 1 - i);
    }
    for (UINT j = 0; j < given.cNamedArgs; ++j) {
        const DISPID name = given.rgdispidNamedArgs[j];
        const int parameter =
            name == DISPID_PROPERTYPUT ? static_cast<int>(parameters) - 1 : static_cast<int>(name);
        if (parameter >= 0 && parameter < static_cast<int>(parameters)) {
            positions[static_cast<std::size_t>(parameter)] = static_cast<int>(j);
        }
    }
    return positions;
}

}  // namespace

LateBoundArguments::~LateBoundArguments() {
    for (auto& temporary : temporaries_) VariantClear(&temporary->value);
}

HRESULT LateBoundArguments::Adapt(ITypeInfo* info, DISPID member, WORD flags, DISPPARAMS* given,
                                  UINT* arg_error) {
    given_ = given;
    adapted_ = *given;
    if (given->cArgs == 0) return S_OK;
    arguments_.assign(given->rgvarg, given->rgvarg + given->cArgs);
    adapted_.rgvarg = arguments_.data();

    FUNCDESC* function = FindFunction(info, member, flags);
    if (function == nullptr) return S_OK;
    const std::vector<int> positions =
        ArgumentPositions(*given, static_cast<UINT>(function->cParams));
    HRESULT hr = S_OK;
    for (std::size_t p = 0; p < positions.size() && SUCCEEDED(hr); ++p) {
        if (positions[p] < 0) continue;
        const UINT index = static_cast<UINT>(positions[p]);
        hr = AdaptOne(info, function->lprgelemdescParam[p].tdesc, index);
        if (FAILED(hr) && arg_error != nullptr) *arg_error = index;
    }
    info->ReleaseFuncDesc(function);
    return hr;
}

HRESULT LateBoundArguments::AdaptOne(ITypeInfo* info, const TYPEDESC& declared, UINT index) {
    VARIANTARG& argument = arguments_[index];
    const bool by_reference = (argument.vt & VT_BYREF) != 0;

    if (declared.vt != VT_PTR) {
        // A by-value parameter: hand over the value the reference leads to.
        if (!by_reference) return S_OK;
        Temporary& temporary = NewTemporary(index, false);
        const HRESULT hr = VariantCopyInd(&temporary.value, Innermost(&argument));
        if (FAILED(hr)) return hr;
        argument = temporary.value;
        return S_OK;
    }

    IID wanted;
    if (InterfaceNamed(info, *declared.lptdesc, &wanted)) return AdaptObject(wanted, index);

    const VARTYPE type = AutomationType(info, *declared.lptdesc);
    if (type == VT_EMPTY || argument.vt == (VT_BYREF | type)) return S_OK;

    Temporary& temporary = NewTemporary(index, by_reference);
    HRESULT hr = VariantCopyInd(&temporary.value, Innermost(&argument));
    if (FAILED(hr)) return hr;
    if (type != VT_VARIANT) {
        hr = VariantChangeType(&temporary.value, &temporary.value, VARIANT_ALPHABOOL, type);
        if (FAILED(hr)) return hr;
    }
    VariantInit(&argument);
    if (type == VT_VARIANT) {
        argument.vt = VT_BYREF | VT_VARIANT;
        argument.pvarVal = &temporary.value;
    } else {
        argument.vt = static_cast<VARTYPE>(VT_BYREF | type);
        // Every member of the value union starts at the same address.
        argument.byref = &temporary.value.bVal;
    }
    return S_OK;
}

HRESULT LateBoundArguments::AdaptObject(REFIID iid, UINT index) {
    VARIANTARG& argument = arguments_[index];
    Temporary& temporary = NewTemporary(index, false);
    VARIANT& value = temporary.value;
    const HRESULT hr = VariantCopyInd(&value, Innermost(&argument));
    if (FAILED(hr)) return hr;
    if (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN) return DISP_E_TYPEMISMATCH;
    if (value.punkVal != nullptr) {
        void* object = nullptr;
        if (FAILED(value.punkVal->QueryInterface(iid, &object))) return DISP_E_TYPEMISMATCH;
        value.punkVal->Release();
        // The server's interfaces are all dual: the one asked for is an IDispatch.
        value.vt = VT_DISPATCH;
        value.pdispVal = static_cast<IDispatch*>(object);
    }
    argument = value;
    return S_OK;
}

LateBoundArguments::Temporary& LateBoundArguments::NewTemporary(UINT index, bool write_back) {
    auto temporary = std::make_unique<Temporary>();
    temporary->index = index;
    temporary->write_back = write_back;
    VariantInit(&temporary->value);
    temporaries_.push_back(std::move(temporary));
    return *temporaries_.back();
}

void LateBoundArguments::WriteBack() {
    for (auto& temporary : temporaries_) {
        if (!temporary->write_back) continue;
        StoreThroughReference(&given_->rgvarg[temporary->index], temporary->value);
    }
}

}  // namespace corvid::registration
