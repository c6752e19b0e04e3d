#include "registration/bstr_text.h"

#include <new>

namespace corvid::registration {

namespace {

// A VB host's strings follow the system's ANSI code page, so the COM layer does too.
std::wstring WideFromCodePage(UINT code_page, std::string_view bytes) {
    if (bytes.empty()) return {};
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(code_page, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(code_page, 0, bytes.data(), length, wide.data(), size);
    return wide;
}

// Characters outside the code page become "?".
std::string CodePageFromWide(UINT code_page, std::wstring_view wide) {
    if (wide.empty()) return {};
    const int length = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(code_page, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(code_page, 0, wide.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

}  // namespace

std::string BytesFromBstr(BSTR text) {
    return CodePageFromWide(CP_ACP, std::wstring_view(text, SysStringLen(text)));
}

std::wstring WideFromBytes(std::string_view bytes) { return WideFromCodePage(CP_ACP, bytes); }

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
