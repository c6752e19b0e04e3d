#include <windows.h>

#include <fstream>
#include <iomanip>
#include <mutex>

#include "corvid/command_line.h"
#include "corvid/stop_signal.h"
#include "corvid/windows_service.h"

namespace corvid::tool {
namespace {

// How long the manager is told to wait for a start or a stop: a stop may wait for the
// printer to answer the block in flight.
constexpr DWORD kStartWaitMs = 10000;
constexpr DWORD kStopWaitMs = 30000;
// The name the installer registers the service under.
constexpr wchar_t kServiceName[] = L"CorvidService";

// The dispatcher calls ServiceMain with no room for our state: this process runs one
// service, whose state lives here.
struct ServiceRun {
    const ServiceBody* body = nullptr;
    std::ostream* log = nullptr;
    SERVICE_STATUS_HANDLE handle = nullptr;
    SERVICE_STATUS status{};
    int exitStatus = kExitFailed;
    std::mutex reporting;  // the control handler and the service's thread both report
};

ServiceRun& Run() {
    static ServiceRun run;
    return run;
}

void Report(DWORD state, DWORD waitMs = 0) {
    ServiceRun& run = Run();
    const std::lock_guard<std::mutex> lock(run.reporting);
    SERVICE_STATUS& status = run.status;
    const bool pending = state == SERVICE_START_PENDING || state == SERVICE_STOP_PENDING;
    const bool failed = state == SERVICE_STOPPED && run.exitStatus != kExitAccepted;
    status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
    status.dwCurrentState = state;
    status.dwControlsAccepted =
        state == SERVICE_RUNNING ? SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN : 0;
    status.dwWin32ExitCode = failed ? ERROR_SERVICE_SPECIFIC_ERROR : NO_ERROR;
    status.dwServiceSpecificExitCode = failed ? static_cast<DWORD>(run.exitStatus) : 0;
    status.dwCheckPoint = pending ? status.dwCheckPoint + 1 : 0;
    status.dwWaitHint = waitMs;
    SetServiceStatus(run.handle, &status);
}

DWORD WINAPI OnControl(DWORD control, DWORD, void*, void*) {
    switch (control) {
        case SERVICE_CONTROL_STOP:
        case SERVICE_CONTROL_SHUTDOWN:
            Report(SERVICE_STOP_PENDING, kStopWaitMs);
            RequestStop();
            return NO_ERROR;
        case SERVICE_CONTROL_INTERROGATE:
            return NO_ERROR;
        default:
            return ERROR_CALL_NOT_IMPLEMENTED;
    }
}

// Each start appends to the log: a line with the time tells the runs apart.
void LogStart(std::ostream& log) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    log << std::setfill('0') << "---- " << now.wYear << '-' << std::setw(2) << now.wMonth << '-'
        << std::setw(2) << now.wDay << ' ' << std::setw(2) << now.wHour << ':' << std::setw(2)
        << now.wMinute << ':' << std::setw(2) << now.wSecond << " started by the service manager\n";
}

void WINAPI ServiceMain(DWORD, LPWSTR*) {
    ServiceRun& run = Run();
    run.handle = RegisterServiceCtrlHandlerExW(kServiceName, OnControl, nullptr);
    if (run.handle == nullptr) return;
    Report(SERVICE_START_PENDING, kStartWaitMs);
    LogStart(*run.log);
    run.exitStatus = (*run.body)(*run.log, [] { Report(SERVICE_RUNNING); });
    Report(SERVICE_STOPPED);
}

}  // namespace

std::string WindowsServiceRefusal() { return {}; }

int RunAsWindowsService(const std::filesystem::path& logFile, const ServiceBody& serve,
                        std::ostream& err) {
    std::error_code ignored;
    std::filesystem::create_directories(logFile.parent_path(), ignored);
    std::ofstream log(logFile, std::ios::app);
    if (!log) {
        err << "corvid serve: cannot write " << logFile.string() << "\n";
        return kExitFailed;
    }
    log << std::unitbuf;
    Run().body = &serve;
    Run().log = &log;
    const SERVICE_TABLE_ENTRYW table[] = {{const_cast<wchar_t*>(kServiceName), ServiceMain},
                                          {nullptr, nullptr}};
    // Returns once the service has stopped.
    if (!StartServiceCtrlDispatcherW(table)) {
        const DWORD error = GetLastError();
        if (error == ERROR_FAILED_SERVICE_CONTROLLER_CONNECT)
            err << "corvid serve --windows-service: only the service manager starts it this way; "
                   "from a console run corvid serve without --windows-service\n";
        else
            err << "corvid serve --windows-service: the service manager refused (error " << error
                << ")\n";
        return kExitFailed;
    }
    return Run().exitStatus;
}

}  // namespace corvid::tool
