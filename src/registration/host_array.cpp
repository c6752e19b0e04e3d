#include "registration/host_array.h"

#include <oleauto.h>

#include <new>

#include "automation/vb_error.h"
#include "registration/variant_store.h"
#include "registration/variant_values.h"

namespace corvid::registration {
namespace {

using automation::VbError;
namespace vb_errors = automation::vb_errors;

void Check(HRESULT hr) {
    if (SUCCEEDED(hr)) return;
    if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
    throw VbError::Standard(hr == DISP_E_BADINDEX ? vb_errors::kSubscriptOutOfRange
                                                  : vb_errors::kTypeMismatch);
}

}  // namespace

HostArray HostArrayOf(const VARIANT& value) {
    const VARIANT* inner = Innermost(&value);
    HostArray result;
    if ((inner->vt & VT_ARRAY) != 0) {
        result.array = (inner->vt & VT_BYREF) != 0 ? *inner->pparray : inner->parray;
    }
    if (result.array == nullptr) throw VbError::Standard(vb_errors::kTypeMismatch);
    result.element_type = static_cast<VARTYPE>(inner->vt & VT_TYPEMASK);
    Check(SafeArrayGetLBound(result.array, 1, &result.lower));
    Check(SafeArrayGetUBound(result.array, 1, &result.upper));
    return result;
}

void ElementOf(const HostArray& array, LONG index, VARIANT* element) {
    if (SafeArrayGetDim(array.array) != 1) {
        throw VbError::Standard(vb_errors::kSubscriptOutOfRange);
    }
    VariantInit(element);
    switch (array.element_type) {
        case VT_VARIANT:
            Check(SafeArrayGetElement(array.array, &index, element));
            return;
        case VT_RECORD:
            throw VbError::Standard(vb_errors::kTypeMismatch);
        case VT_DECIMAL:
            // A DECIMAL fills the whole Variant, type field included: set the type after.
            Check(SafeArrayGetElement(array.array, &index, &element->decVal));
            break;
        default:
            // Every member of the value union starts at the same address.
            Check(SafeArrayGetElement(array.array, &index, &element->bVal));
            break;
    }
    element->vt = array.element_type;
}

std::vector<std::string> TextsOf(const VARIANT& value) {
    const HostArray array = HostArrayOf(value);
    std::vector<std::string> texts;
    for (LONG i = array.lower; i <= array.upper; ++i) {
        VARIANT element;
        ElementOf(array, i, &element);
        try {
            texts.push_back(TextFromVariant(element));
        } catch (...) {
            VariantClear(&element);
            throw;
        }
        VariantClear(&element);
    }
    return texts;
}

void MakeVariantArray(VARIANT* value) {
    if ((value->vt & VT_ARRAY) == 0 || (value->vt & VT_BYREF) != 0 ||
        value->vt == (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(value->parray) != 1) {
        return;
    }
    const HostArray typed = HostArrayOf(*value);
    const LONG count = typed.upper - typed.lower + 1;
    SAFEARRAY* variants = SafeArrayCreateVector(VT_VARIANT, typed.lower, static_cast<ULONG>(count));
    if (variants == nullptr) throw std::bad_alloc();
    for (LONG i = typed.lower; i <= typed.upper; ++i) {
        VARIANT element;
        try {
            ElementOf(typed, i, &element);
        } catch (...) {
            SafeArrayDestroy(variants);
            throw;
        }
        const HRESULT hr = SafeArrayPutElement(variants, &i, &element);  // copies
        VariantClear(&element);
        if (FAILED(hr)) {
            SafeArrayDestroy(variants);
            Check(hr);
        }
    }
    VariantClear(value);
    value->vt = VT_ARRAY | VT_VARIANT;
    value->parray = variants;
}

}  // namespace corvid::registration
