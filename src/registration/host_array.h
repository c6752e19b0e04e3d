// Arrays at the boundary: what a host hands over (of any element type and lower bound),
// read element by element as Variants, and typed arrays turned into arrays of Variants
// for late-bound hosts.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <string>
#include <vector>

namespace corvid::registration {

struct HostArray {
    SAFEARRAY* array = nullptr;  // owned by the Variant it came from
    VARTYPE element_type = VT_EMPTY;
    // Bounds of the first dimension, as LBound and UBound give them.
    LONG lower = 0;
    LONG upper = -1;
};

// The array `value` holds, references followed; type mismatch (13) when it holds none.
HostArray HostArrayOf(const VARIANT& value);

// Element `index` as a Variant of the element's own type (objects AddRef'd, Null kept).
// An array of more than one dimension raises subscript out of range (9).
void ElementOf(const HostArray& array, LONG index, VARIANT* element);

// The elements as texts (CStr of each), from the lower bound to the upper: the field
// array a host hands to a record. A Null element raises type mismatch (13).
std::vector<std::string> TextsOf(const VARIANT& value);

// VBScript indexes and bounds only arrays of Variants: a typed one-dimensional array in
// `value` (Strings, say) becomes an array of Variants with the same bounds and elements.
void MakeVariantArray(VARIANT* value);

}  // namespace corvid::registration
