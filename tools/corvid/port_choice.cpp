#include "corvid/port_choice.h"

#include <algorithm>
#include <cctype>

namespace corvid::tool {

namespace {

bool IsDigits(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return std::isdigit(static_cast<unsigned char>(c)) != 0;
    });
}

bool HasComPrefix(const std::string& text) {
    return text.size() >= 3 && std::toupper(static_cast<unsigned char>(text[0])) == 'C' &&
           std::toupper(static_cast<unsigned char>(text[1])) == 'O' &&
           std::toupper(static_cast<unsigned char>(text[2])) == 'M';
}

}  // namespace

PortChoice ParsePortChoice(const std::string& text) {
    if (text.empty()) {
        throw std::invalid_argument(
            "--port is empty: name a port (COM5, 5) or a device (/dev/ttyUSB0), or leave "
            "--port out for the built-in simulated printer");
    }
    if (text.find('/') != std::string::npos || text.find('\\') != std::string::npos) {
        return {0, text};
    }
    const std::string digits = HasComPrefix(text) ? text.substr(3) : text;
    if (!IsDigits(digits)) {
        throw std::invalid_argument("--port " + text +
                                    ": expected COMn, a port number or a device path");
    }
    const int number = digits.size() > 2 ? 100 : std::stoi(digits);
    if (number < 1 || number > 99) {
        throw std::invalid_argument("--port " + text + ": port numbers run from 1 to 99");
    }
    return {static_cast<std::int16_t>(number), {}};
}

}  // namespace corvid::tool
