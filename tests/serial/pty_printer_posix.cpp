#include "serial/pty_printer_posix.h"

#include <sys/resource.h>

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

double ThreadCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

}  // namespace corvid::serial
