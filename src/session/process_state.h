// What every session of the process shares, in one place: the serial ports, the session
// trace (with its flags and debug view), the test-mode flag and the last serial number
// learnt. Sessions read and write the same one, so the newest writer wins.
#pragma once

#include <string>

#include "host/trace_log.h"
#include "serial/serial_ports.h"

namespace corvid::session {

struct ProcessState {
    ProcessState();

    serial::PortTable ports;
    host::TraceLog trace;
    bool testMode = false;
    // The serial number the last successful Abrir learnt.
    std::string lastSerial;
};

// The one of this process, created on first use.
ProcessState& Process();

}  // namespace corvid::session
