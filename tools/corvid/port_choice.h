// What `--port` names: a COM port number or a device file. Checked before anything is
// opened, so a typing mistake is reported as such and not as a port that will not open.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace corvid::tool {

struct PortChoice {
    // 1 to 99 for "COMn" or "n"; 0 when `device` names a device file instead.
    std::int16_t number = 0;
    std::string device;
};

// "COM5", "com5" or "5" is port 5; text with a path separator is a device file. Anything
// else (empty text, "COM0", "COM100", "COMx", a bare word) throws std::invalid_argument
// with a message saying why.
PortChoice ParsePortChoice(const std::string& text);

}  // namespace corvid::tool
