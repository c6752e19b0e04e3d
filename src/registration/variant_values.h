// Variants in and out of the members: conversions as VB does them (failures raise type
// mismatch, error 13, or overflow, error 6) and arrays of fields as hosts expect them.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/currency.h"
#include "automation/variant.h"

namespace corvid::registration {

// An optional argument the host left out (absent, or VT_ERROR DISP_E_PARAMNOTFOUND).
bool IsMissing(const VARIANT* value);
// A Null, references followed.
bool IsNull(const VARIANT& value);

// CStr and CInt of a Variant, references followed.
std::string TextFromVariant(const VARIANT& value);
// CStr keeping the host's UTF-16 text as it is.
std::u16string Utf16FromVariant(const VARIANT& value);
std::int16_t ShortFromVariant(const VARIANT& value);
std::int32_t LongFromVariant(const VARIANT& value);
// CDbl, CCur, CBool and CDate of a Variant (date text in the host's locale).
double DoubleFromVariant(const VARIANT& value);
automation::Currency CurrencyFromVariant(const VARIANT& value);
bool BoolFromVariant(const VARIANT& value);
automation::Date DateFromVariant(const VARIANT& value);

// The host's value as the library's Variant, references followed: integers of other
// widths and Decimals become Double; objects and arrays raise type mismatch (13).
automation::Variant ValueFromVariant(const VARIANT& value);

// Results written into a [out, retval] VARIANT*.
void SetText(VARIANT* result, std::string_view text);
void SetShort(VARIANT* result, std::int16_t number);
// An array of Variant strings (VT_ARRAY | VT_VARIANT), lower bound 0.
void SetVariantArray(VARIANT* result, const std::vector<std::string>& fields);
// An array of Strings (VT_ARRAY | VT_BSTR), lower bound 0.
void SetStringArray(VARIANT* result, const std::vector<std::string>& fields);
// An array of Variants, each an array of Variant strings.
void SetArrayOfArrays(VARIANT* result, const std::vector<std::vector<std::string>>& blocks);

}  // namespace corvid::registration
