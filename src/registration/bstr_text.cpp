#include "registration/bstr_text.h"

#include <new>

namespace corvid::registration {

std::string BytesFromBstr(BSTR text) {
    const int length = static_cast<int>(SysStringLen(text));
    if (length == 0) return {};
    const int size = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring WideFromBytes(std::string_view bytes) {
    if (bytes.empty()) return {};
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, wide.data(), size);
    return wide;
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
