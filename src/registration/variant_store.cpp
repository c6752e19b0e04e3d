#include "registration/variant_store.h"

#include <oleauto.h>

#include <cstring>

namespace corvid::registration {
namespace {

// Bytes a scalar of type `type` occupies behind a VT_BYREF pointer; 0 if not a scalar.
std::size_t ScalarSize(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        default:
            return 0;
    }
}

}  // namespace

VARIANT* Innermost(VARIANT* value) {
    while (value->vt == (VT_BYREF | VT_VARIANT) && value->pvarVal != nullptr) {
        value = value->pvarVal;
    }
    return value;
}

const VARIANT* Innermost(const VARIANT* value) { return Innermost(const_cast<VARIANT*>(value)); }

HRESULT StoreThroughReference(VARIANT* destination, const VARIANT& value) {
    destination = Innermost(destination);
    if ((destination->vt & VT_BYREF) == 0) {
        VariantClear(destination);
        return VariantCopy(destination, Source(&value));
    }
    const VARTYPE type = static_cast<VARTYPE>(destination->vt & ~VT_BYREF);
    VARIANT converted;
    VariantInit(&converted);
    HRESULT hr = VariantChangeType(&converted, Source(&value), VARIANT_ALPHABOOL, type);
    if (FAILED(hr)) return hr;
    switch (type) {
        case VT_BSTR:
            SysFreeString(*destination->pbstrVal);
            *destination->pbstrVal = converted.bstrVal;
            return S_OK;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (*destination->ppunkVal != nullptr) (*destination->ppunkVal)->Release();
            *destination->ppunkVal = converted.punkVal;
            return S_OK;
        default:
            break;
    }
    const std::size_t size = ScalarSize(type);
    if (size == 0)
        hr = DISP_E_TYPEMISMATCH;
    else
        std::memcpy(destination->byref, &converted.bVal, size);
    VariantClear(&converted);
    return hr;
}

}  // namespace corvid::registration
