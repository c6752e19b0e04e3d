#include "corvid/printer_target.h"

#include "corvid/port_device.h"
#include "serial/port_devices.h"

namespace corvid::tool {

PrinterTarget::PrinterTarget(const std::optional<PortChoice>& choice, std::int16_t mappedPort) {
    if (!choice) {
        simulator_ = StartSimulatedPrinter();
        port_ = mappedPort;
        mapped_ = true;
        serial::SetPortDevice(port_, simulator_->DevicePath());
        description_ = "the built-in simulated printer on " + simulator_->DevicePath();
    } else if (choice->number != 0) {
        port_ = choice->number;
        description_ = "COM" + std::to_string(port_) + " (" + DeviceOfPort(port_) + ")";
    } else {
        port_ = mappedPort;
        mapped_ = true;
        serial::SetPortDevice(port_, choice->device);
        description_ = choice->device;
    }
}

PrinterTarget::~PrinterTarget() {
    if (mapped_) serial::SetPortDevice(port_, "");
}

}  // namespace corvid::tool
