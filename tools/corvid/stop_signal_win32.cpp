#include <windows.h>

#include "corvid/stop_signal.h"

namespace corvid::tool {
namespace {

HANDLE StopEvent() {
    static const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

// Runs on a thread the system starts for the console event; returning TRUE keeps the
// process alive until the waiter has stopped the service.
BOOL WINAPI OnConsoleEvent(DWORD event) {
    if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT || event == CTRL_CLOSE_EVENT) {
        SetEvent(StopEvent());
        return TRUE;
    }
    return FALSE;
}

}  // namespace

void PrepareStopSignal() {
    StopEvent();
    SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
}

void WaitForStopSignal() { WaitForSingleObject(StopEvent(), INFINITE); }

void RequestStop() { SetEvent(StopEvent()); }

}  // namespace corvid::tool
