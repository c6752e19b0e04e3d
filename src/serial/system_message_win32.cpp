#include <windows.h>

#include "serial/system_message.h"

namespace corvid::serial {

std::string SystemMessage(std::int32_t number) {
    char* buffer = nullptr;
    const DWORD length = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(number), 0, reinterpret_cast<LPSTR>(&buffer), 0, nullptr);
    std::string text = length > 0 ? std::string(buffer, length) : std::string();
    if (buffer != nullptr) LocalFree(buffer);
    // The system's texts end with a line break that has no place in a one-line error.
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' ')) {
        text.pop_back();
    }
    if (text.empty()) text = "System error " + std::to_string(number);
    return text;
}

}  // namespace corvid::serial
