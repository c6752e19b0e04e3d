#include "serial/pty_printer_posix.h"

#include "serial/port_devices.h"

namespace corvid::serial {

std::vector<LineKind> PlatformLines() {
    return {{"PseudoTerminal", [](PortTable& ports, bool) -> std::unique_ptr<PrinterEnd> {
                 auto printer = std::make_unique<PtyPrinter>();
                 printer->hostPort = 5;
                 SetPortDevice(5, printer->SlavePath());
                 if (ports.CommOpen(5, "COM5", kLineSettings) != 0) return nullptr;
                 return printer;
             }}};
}

}  // namespace corvid::serial
