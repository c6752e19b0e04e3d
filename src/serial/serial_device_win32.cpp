// The serial device on Windows: exactly the communication functions the product has always
// used, on "\\.\COMn" (the form that also opens ports above 9).
#include <windows.h>
// After windows.h, whose types it uses.
#include <mmsystem.h>

#include <chrono>

#include "serial/serial_device.h"

namespace corvid::serial {
namespace {

// One-millisecond timer resolution while it lives.
class FineTimer {
  public:
    FineTimer() { timeBeginPeriod(1); }
    ~FineTimer() { timeEndPeriod(1); }
    FineTimer(const FineTimer&) = delete;
    FineTimer& operator=(const FineTimer&) = delete;
};

constexpr DWORD kQueueSize = 1024;
constexpr DWORD kPurgeAll = PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR;

std::string SystemMessage(DWORD number) {
    char* buffer = nullptr;
    const DWORD length = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, number, 0, reinterpret_cast<LPSTR>(&buffer), 0, nullptr);
    std::string text = length > 0 ? std::string(buffer, length) : std::string();
    if (buffer != nullptr) LocalFree(buffer);
    // The system's texts end with a line break that has no place in a one-line error.
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' ')) {
        text.pop_back();
    }
    if (text.empty()) text = "System error " + std::to_string(number);
    return text;
}

SystemFailure Failure(std::string call, DWORD number = GetLastError()) {
    return {static_cast<std::int32_t>(number), std::move(call), SystemMessage(number)};
}

// The one overlapped record all reads and writes share (the handle itself is not opened
// for overlapped use, so calls complete before they return).
OVERLAPPED& SharedOverlapped() {
    static OVERLAPPED overlapped;
    overlapped = OVERLAPPED{};
    return overlapped;
}

// Finishes a ReadFile or WriteFile that reported failure: pending ones are waited for.
MaybeFailure Complete(HANDLE handle, OVERLAPPED& overlapped, const char* call, DWORD& count) {
    DWORD error = GetLastError();
    if (error != ERROR_IO_PENDING) return Failure(call, error);
    while (!GetOverlappedResult(handle, &overlapped, &count, TRUE)) {
        error = GetLastError();
        if (error != ERROR_IO_INCOMPLETE) return Failure("GetOverlappedResult", error);
    }
    return std::nullopt;
}

class Win32SerialDevice : public SerialDevice {
  public:
    explicit Win32SerialDevice(HANDLE handle) : handle_(handle) {}
    ~Win32SerialDevice() override {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    }

    MaybeFailure Prepare(const std::string& settings) override {
        if (!SetupComm(handle_, kQueueSize, kQueueSize)) return Failure("SetupComm");
        if (auto failed = Purge()) return failed;
        COMMTIMEOUTS timeouts{};
        timeouts.ReadIntervalTimeout = 0xFFFFFFFF;
        timeouts.ReadTotalTimeoutMultiplier = 0;
        timeouts.ReadTotalTimeoutConstant = 1000;
        timeouts.WriteTotalTimeoutMultiplier = 1000;
        timeouts.WriteTotalTimeoutConstant = 0;
        if (!SetCommTimeouts(handle_, &timeouts)) return Failure("SetCommTimeouts");
        return ApplySettings(settings);
    }

    MaybeFailure ApplySettings(const std::string& settings) override {
        dcb_.DCBlength = sizeof(dcb_);
        if (!GetCommState(handle_, &dcb_)) return Failure("GetCommState");
        if (!BuildCommDCBA(settings.c_str(), &dcb_)) return Failure("BuildCommDCB");
        if (!SetCommState(handle_, &dcb_)) return Failure("SetCommState");
        return std::nullopt;
    }

    MaybeFailure Purge() override {
        if (!PurgeComm(handle_, kPurgeAll)) return Failure("PurgeComm");
        return std::nullopt;
    }

    MaybeFailure Close() override {
        HANDLE handle = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        if (!CloseHandle(handle)) return Failure("CloseHandle");
        return std::nullopt;
    }

    MaybeFailure QueryInput(std::uint32_t& waiting, std::uint32_t& error_flags) override {
        DWORD errors = 0;
        COMSTAT status{};
        if (!ClearCommError(handle_, &errors, &status)) return Failure("ClearCommError");
        waiting = status.cbInQue;
        error_flags = errors;
        return std::nullopt;
    }

    MaybeFailure Read(std::size_t count, std::string& data) override {
        data.resize(count);
        DWORD got = 0;
        OVERLAPPED& overlapped = SharedOverlapped();
        if (!ReadFile(handle_, data.data(), static_cast<DWORD>(count), &got, &overlapped)) {
            if (auto failed = Complete(handle_, overlapped, "ReadFile", got)) {
                data.clear();
                return failed;
            }
        }
        data.resize(got);
        return std::nullopt;
    }

    MaybeFailure Write(std::string_view data, std::size_t& written) override {
        DWORD sent = 0;
        OVERLAPPED& overlapped = SharedOverlapped();
        if (!WriteFile(handle_, data.data(), static_cast<DWORD>(data.size()), &sent, &overlapped)) {
            if (auto failed = Complete(handle_, overlapped, "WriteFile", sent)) return failed;
        }
        written = sent;
        return std::nullopt;
    }

    MaybeFailure ModemStatus(std::uint32_t& status) override {
        DWORD lines = 0;
        if (!GetCommModemStatus(handle_, &lines)) return Failure("GetCommModemStatus");
        status = lines;
        return std::nullopt;
    }

    MaybeFailure Escape(LineFunction function) override {
        if (!EscapeCommFunction(handle_, static_cast<DWORD>(function))) {
            return Failure("EscapeCommFunction");
        }
        return std::nullopt;
    }

    // A handle opened without overlapped use cannot wait on a comm event with a time-out,
    // so this looks at the input queue in 1 ms sleeps: no spinning, and a reply is seen
    // within about a millisecond. The timer resolution is raised for the wait only;
    // Windows' default tick of 15.6 ms would make every sleep that long.
    bool WaitReadable(std::chrono::milliseconds timeout) override {
        const FineTimer fineTimer;
        const auto deadline = std::chrono::steady_clock::now() + timeout;
        for (;;) {
            DWORD errors = 0;
            COMSTAT status{};
            if (!ClearCommError(handle_, &errors, &status)) {
                // Nothing can arrive on a broken handle; sit out the time instead of
                // letting the caller ask again at once.
                const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(
                    deadline - std::chrono::steady_clock::now());
                if (rest.count() > 0) Sleep(static_cast<DWORD>(rest.count()));
                return false;
            }
            if (status.cbInQue > 0) return true;
            if (std::chrono::steady_clock::now() >= deadline) return false;
            Sleep(1);
        }
    }

  private:
    HANDLE handle_;
    DCB dcb_{};
};

}  // namespace

std::unique_ptr<SerialDevice> OpenSerialDevice(int /*port*/, const std::string& name,
                                               SystemFailure& failure) {
    const std::string path = "\\\\.\\" + name;
    HANDLE handle = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        failure = Failure("CreateFile");
        return nullptr;
    }
    return std::make_unique<Win32SerialDevice>(handle);
}

SystemFailure ClosedDeviceFailure(std::string call) {
    return Failure(std::move(call), ERROR_INVALID_HANDLE);
}

}  // namespace corvid::serial
