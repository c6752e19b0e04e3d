#include "preview/windows_1252_text_win32.h"

#include <windows.h>

namespace corvid::preview {

std::wstring WideFromCodePage(unsigned code_page, std::string_view bytes) {
    if (bytes.empty()) return {};
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(code_page, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(code_page, 0, bytes.data(), length, wide.data(), size);
    return wide;
}

std::string CodePageFromWide(unsigned code_page, std::wstring_view wide) {
    if (wide.empty()) return {};
    const int length = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(code_page, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(code_page, 0, wide.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

}  // namespace corvid::preview
