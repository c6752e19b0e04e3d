// Writing a result back through a caller's reference: into the Variant a late-bound host
// passed (VT_BYREF | VT_VARIANT), or, converted, into a typed reference of another type.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

namespace corvid::registration {

// The Variant API reads its sources through non-const pointers without changing them.
inline VARIANT* Source(const VARIANT* value) { return const_cast<VARIANT*>(value); }

// The innermost Variant a chain of VT_BYREF | VT_VARIANT leads to.
VARIANT* Innermost(VARIANT* value);
const VARIANT* Innermost(const VARIANT* value);

// Stores `value` where `destination` refers to: a by-reference destination receives it
// converted to its own type; a plain Variant is replaced by a copy.
HRESULT StoreThroughReference(VARIANT* destination, const VARIANT& value);

}  // namespace corvid::registration
