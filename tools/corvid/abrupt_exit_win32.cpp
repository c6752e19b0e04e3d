#include <windows.h>

#include <cstring>

#include "corvid/abrupt_exit.h"
#include "corvid/command_line.h"

namespace corvid::tool {

namespace {

constexpr const char kInterrupted[] = "\r\ncorvid: interrupted; the port is closed\r\n";

// Runs on a thread of its own that the system starts for the console event.
BOOL WINAPI OnConsoleEvent(DWORD event) {
    if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT || event == CTRL_CLOSE_EVENT) {
        ExitNow(kInterrupted, kExitInterrupted);
    }
    return FALSE;
}

}  // namespace

void ExitNow(const char* message, int status) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), message, static_cast<DWORD>(std::strlen(message)),
              &written, nullptr);
    // TerminateProcess, unlike ExitProcess, runs no DLL detach code, which could wait for
    // the loader lock that the interrupted thread may hold.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    ExitProcess(static_cast<UINT>(status));
}

void ExitAtOnceOnInterrupt() { SetConsoleCtrlHandler(OnConsoleEvent, TRUE); }

}  // namespace corvid::tool
