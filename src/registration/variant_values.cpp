#include "registration/variant_values.h"

#include <oleauto.h>

#include <new>

#include "automation/vb_error.h"
#include "registration/bstr_text.h"
#include "registration/variant_store.h"

namespace corvid::registration {
namespace {

using automation::VbError;
namespace vb_errors = automation::vb_errors;

[[noreturn]] void RaiseConversionError(HRESULT hr) {
    if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
    throw VbError::Standard(hr == DISP_E_OVERFLOW ? vb_errors::kOverflow
                                                  : vb_errors::kTypeMismatch);
}

// Owns a VARIANT for the length of a conversion.
class ScopedVariant {
  public:
    ScopedVariant() { VariantInit(&value_); }
    ~ScopedVariant() { VariantClear(&value_); }
    ScopedVariant(const ScopedVariant&) = delete;
    ScopedVariant& operator=(const ScopedVariant&) = delete;
    VARIANT* get() { return &value_; }

  private:
    VARIANT value_;
};

void ConvertInto(ScopedVariant& converted, const VARIANT& value, VARTYPE type) {
    const HRESULT hr =
        VariantChangeType(converted.get(), Source(Innermost(&value)), VARIANT_ALPHABOOL, type);
    if (FAILED(hr)) RaiseConversionError(hr);
}

SAFEARRAY* NewArray(VARTYPE type, std::size_t count) {
    SAFEARRAY* array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
    if (array == nullptr) throw std::bad_alloc();
    return array;
}

void Check(HRESULT hr, SAFEARRAY* array) {
    if (SUCCEEDED(hr)) return;
    SafeArrayDestroy(array);
    RaiseConversionError(hr);
}

// A zero-based array of Variants, element i filled by fill(&variant, items[i]).
template <typename Items, typename Fill>
SAFEARRAY* VariantArrayOf(const Items& items, Fill fill) {
    SAFEARRAY* array = NewArray(VT_VARIANT, items.size());
    for (LONG i = 0; i < static_cast<LONG>(items.size()); ++i) {
        VARIANT element;
        VariantInit(&element);
        try {
            fill(&element, items[static_cast<std::size_t>(i)]);
        } catch (...) {
            SafeArrayDestroy(array);
            throw;
        }
        const HRESULT hr = SafeArrayPutElement(array, &i, &element);  // copies
        VariantClear(&element);
        Check(hr, array);
    }
    return array;
}

SAFEARRAY* VariantStrings(const std::vector<std::string>& fields) {
    return VariantArrayOf(fields, [](VARIANT* element, const std::string& field) {
        element->bstrVal = BstrFromBytes(field);
        element->vt = VT_BSTR;
    });
}

}  // namespace

bool IsMissing(const VARIANT* value) {
    if (value == nullptr) return true;
    const VARIANT* inner = Innermost(value);
    return inner->vt == VT_ERROR && inner->scode == DISP_E_PARAMNOTFOUND;
}

bool IsNull(const VARIANT& value) { return Innermost(&value)->vt == VT_NULL; }

std::string TextFromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_BSTR);
    return BytesFromBstr(converted.get()->bstrVal);
}

std::u16string Utf16FromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_BSTR);
    return Utf16FromBstr(converted.get()->bstrVal);
}

std::int16_t ShortFromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_I2);
    return converted.get()->iVal;
}

std::int32_t LongFromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_I4);
    return converted.get()->lVal;
}

double DoubleFromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_R8);
    return converted.get()->dblVal;
}

automation::Currency CurrencyFromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_CY);
    return automation::Currency::FromScaled(converted.get()->cyVal.int64);
}

bool BoolFromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_BOOL);
    return converted.get()->boolVal != VARIANT_FALSE;
}

automation::Date DateFromVariant(const VARIANT& value) {
    ScopedVariant converted;
    ConvertInto(converted, value, VT_DATE);
    return automation::Date{converted.get()->date};
}

automation::Variant ValueFromVariant(const VARIANT& value) {
    ScopedVariant copy;
    const HRESULT hr = VariantCopyInd(copy.get(), Source(Innermost(&value)));
    if (FAILED(hr)) RaiseConversionError(hr);
    const VARIANT& inner = *copy.get();
    switch (inner.vt) {
        case VT_EMPTY:
            return automation::Empty{};
        case VT_NULL:
            return automation::Null{};
        case VT_BOOL:
            return inner.boolVal != VARIANT_FALSE;
        case VT_UI1:
            return std::int16_t{inner.bVal};
        case VT_I2:
            return std::int16_t{inner.iVal};
        case VT_I4:
            return std::int32_t{inner.lVal};
        case VT_R4:
            return inner.fltVal;
        case VT_R8:
            return inner.dblVal;
        case VT_CY:
            return automation::Currency::FromScaled(inner.cyVal.int64);
        case VT_DATE:
            return automation::Date{inner.date};
        case VT_BSTR:
            return BytesFromBstr(inner.bstrVal);
        case VT_ERROR:
            return automation::ErrorValue{inner.scode};
        default:
            // Other integers and Decimals; an object gives its default value, an array fails.
            return DoubleFromVariant(inner);
    }
}

void SetText(VARIANT* result, std::string_view text) {
    BSTR converted = BstrFromBytes(text);
    VariantInit(result);
    result->vt = VT_BSTR;
    result->bstrVal = converted;
}

void SetShort(VARIANT* result, std::int16_t number) {
    VariantInit(result);
    result->vt = VT_I2;
    result->iVal = number;
}

void SetVariantArray(VARIANT* result, const std::vector<std::string>& fields) {
    SAFEARRAY* array = VariantStrings(fields);
    VariantInit(result);
    result->vt = VT_ARRAY | VT_VARIANT;
    result->parray = array;
}

void SetStringArray(VARIANT* result, const std::vector<std::string>& fields) {
    SAFEARRAY* array = NewArray(VT_BSTR, fields.size());
    for (LONG i = 0; i < static_cast<LONG>(fields.size()); ++i) {
        BSTR element = nullptr;
        try {
            element = BstrFromBytes(fields[static_cast<std::size_t>(i)]);
        } catch (...) {
            SafeArrayDestroy(array);
            throw;
        }
        const HRESULT hr = SafeArrayPutElement(array, &i, element);  // copies
        SysFreeString(element);
        Check(hr, array);
    }
    VariantInit(result);
    result->vt = VT_ARRAY | VT_BSTR;
    result->parray = array;
}

void SetArrayOfArrays(VARIANT* result, const std::vector<std::vector<std::string>>& blocks) {
    SAFEARRAY* array = VariantArrayOf(blocks, SetVariantArray);
    VariantInit(result);
    result->vt = VT_ARRAY | VT_VARIANT;
    result->parray = array;
}

}  // namespace corvid::registration
