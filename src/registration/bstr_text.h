// Text at the COM boundary: BSTRs (UTF-16) to and from the library's byte strings in the
// ANSI code page, or kept as UTF-16 where the library holds the host's text as it is.
// Embedded NUL characters survive every way.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oleauto.h>

#include <string>
#include <string_view>

namespace corvid::registration {

std::string BytesFromBstr(BSTR text);
// A new BSTR the caller owns; throws std::bad_alloc when none can be allocated.
BSTR BstrFromBytes(std::string_view bytes);
std::wstring WideFromBytes(std::string_view bytes);

std::u16string Utf16FromBstr(BSTR text);
BSTR BstrFromUtf16(std::u16string_view text);

}  // namespace corvid::registration
