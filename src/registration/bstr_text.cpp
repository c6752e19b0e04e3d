#include "registration/bstr_text.h"

#include <new>

#include "preview/windows_1252_text_win32.h"

namespace corvid::registration {

std::string BytesFromBstr(BSTR text) {
    return preview::CodePageFromWide(CP_ACP, std::wstring_view(text, SysStringLen(text)));
}

std::wstring WideFromBytes(std::string_view bytes) {
    return preview::WideFromCodePage(CP_ACP, bytes);
}

BSTR BstrFromBytes(std::string_view bytes) {
    const std::wstring wide = WideFromBytes(bytes);
    BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (text == nullptr) throw std::bad_alloc();
    return text;
}

// A BSTR is UTF-16 on Windows, where wchar_t is one UTF-16 unit.
static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::u16string Utf16FromBstr(BSTR text) {
    if (text == nullptr) return {};
    return std::u16string(reinterpret_cast<const char16_t*>(text), SysStringLen(text));
}

BSTR BstrFromUtf16(std::u16string_view text) {
    BSTR copy = SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                                  static_cast<UINT>(text.size()));
    if (copy == nullptr) throw std::bad_alloc();
    return copy;
}

}  // namespace corvid::registration
