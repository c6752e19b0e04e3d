// State shared by every session of the process; the newest writer wins.
#pragma once

#include <string>

namespace corvid::session {

struct SessionProcessState {
    bool testMode = false;
    // The serial number the last successful Abrir learnt.
    std::string lastSerial;
};

SessionProcessState& SessionProcess();

// Lets the trace create its on-screen view (a report preview) when it first needs it.
void InstallDebugViewFactory();

}  // namespace corvid::session
