#include "corvid/printer_target.h"

#include <cctype>
#include <stdexcept>

#include "serial/port_devices.h"

namespace corvid::tool {

namespace {

// Port the tool maps a device path or the simulator to.
constexpr std::int16_t kMappedPort = 1;

bool AllDigits(const std::string& text) {
    if (text.empty() || text.size() > 2) return false;
    for (char c : text) {
        if (!std::isdigit(static_cast<unsigned char>(c))) return false;
    }
    return true;
}

}  // namespace

PrinterTarget::PrinterTarget(const std::string& where) {
    std::string number = where;
    if (number.size() > 3 &&
        (number.compare(0, 3, "COM") == 0 || number.compare(0, 3, "com") == 0)) {
        number = number.substr(3);
    }
    if (where.empty()) {
        simulator_ = StartSimulatedPrinter();
        port_ = kMappedPort;
        serial::SetPortDevice(port_, simulator_->DevicePath());
        description_ = "the built-in simulated printer on " + simulator_->DevicePath();
    } else if (AllDigits(number)) {
        port_ = static_cast<std::int16_t>(std::stoi(number));
        if (port_ < 1) throw std::invalid_argument("port numbers run from 1 to 99");
        description_ = "COM" + std::to_string(port_);
    } else {
        port_ = kMappedPort;
        serial::SetPortDevice(port_, where);
        description_ = where;
    }
}

PrinterTarget::~PrinterTarget() {
    if (simulator_) serial::SetPortDevice(port_, "");
}

}  // namespace corvid::tool
