// The serial device on Windows: exactly the communication functions the product has always
// used, on "\\.\COMn" (the form that also opens ports above 9).
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "serial/serial_device.h"
#include "serial/system_message.h"

namespace corvid::serial {
namespace {

using Clock = std::chrono::steady_clock;

constexpr DWORD kQueueSize = 1024;
constexpr DWORD kPurgeAll = PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR;

// What the port holds outside a wait, as hosts and tools that look at it expect.
constexpr COMMTIMEOUTS kPortTimeouts{0xFFFFFFFF, 0, 1000, 1000, 0};

// The time-outs of a wait: a read returns as soon as one byte arrives, or after
// `milliseconds` with none.
COMMTIMEOUTS WaitTimeouts(DWORD milliseconds) {
    return {MAXDWORD, MAXDWORD, milliseconds, kPortTimeouts.WriteTotalTimeoutMultiplier,
            kPortTimeouts.WriteTotalTimeoutConstant};
}

// Nothing can arrive on a handle the system refuses: the rest of the time passes all the
// same, so a caller that waits in a loop does not spin.
void SitOut(Clock::time_point deadline) {
    const auto now = Clock::now();
    if (now < deadline) std::this_thread::sleep_for(deadline - now);
}

SystemFailure Failure(std::string call, DWORD number = GetLastError()) {
    return {static_cast<std::int32_t>(number), std::move(call),
            SystemMessage(static_cast<std::int32_t>(number))};
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
        COMMTIMEOUTS timeouts = kPortTimeouts;
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
        taken_.clear();
        return std::nullopt;
    }

    MaybeFailure Close() override {
        HANDLE handle = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        taken_.clear();
        if (!CloseHandle(handle)) return Failure("CloseHandle");
        return std::nullopt;
    }

    MaybeFailure QueryInput(std::uint32_t& waiting, std::uint32_t& error_flags) override {
        DWORD errors = 0;
        COMSTAT status{};
        if (!ClearCommError(handle_, &errors, &status)) return Failure("ClearCommError");
        waiting = status.cbInQue + static_cast<std::uint32_t>(taken_.size());
        error_flags = errors;
        return std::nullopt;
    }

    MaybeFailure Read(std::size_t count, std::string& data) override {
        // What a wait took off the line comes first, as it arrived.
        const std::size_t early = std::min(count, taken_.size());
        data.assign(taken_, 0, early);
        taken_.erase(0, early);
        if (early == count) return std::nullopt;
        std::string rest(count - early, '\0');
        DWORD got = 0;
        overlapped_ = OVERLAPPED{};
        if (!ReadFile(handle_, rest.data(), static_cast<DWORD>(rest.size()), &got, &overlapped_)) {
            if (auto failed = Complete(handle_, overlapped_, "ReadFile", got)) {
                data.clear();
                return failed;
            }
        }
        data.append(rest, 0, got);
        return std::nullopt;
    }

    MaybeFailure Write(std::string_view data, std::size_t& written) override {
        DWORD sent = 0;
        overlapped_ = OVERLAPPED{};
        if (!WriteFile(handle_, data.data(), static_cast<DWORD>(data.size()), &sent,
                       &overlapped_)) {
            if (auto failed = Complete(handle_, overlapped_, "WriteFile", sent)) return failed;
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

    // A handle opened without overlapped use has no comm event with a time-out, so the
    // wait is a read of one byte under time-outs that end it at the first byte: the thread
    // sleeps in the system and wakes with the reply. The byte is kept for the next read.
    bool WaitReadable(std::chrono::milliseconds timeout) override {
        if (!taken_.empty()) return true;
        const auto deadline = Clock::now() + timeout;
        DWORD errors = 0;
        COMSTAT status{};
        if (!ClearCommError(handle_, &errors, &status)) {
            SitOut(deadline);
            return false;
        }
        if (status.cbInQue > 0) return true;
        if (timeout.count() <= 0) return false;
        // A constant of 0 or MAXDWORD changes what the time-outs mean.
        const auto milliseconds = static_cast<DWORD>(
            std::min<std::chrono::milliseconds::rep>(timeout.count(), 0xFFFFFFFE));
        COMMTIMEOUTS timeouts = WaitTimeouts(milliseconds);
        if (!SetCommTimeouts(handle_, &timeouts)) {
            SitOut(deadline);
            return false;
        }
        char byte = 0;
        DWORD got = 0;
        overlapped_ = OVERLAPPED{};
        if (!ReadFile(handle_, &byte, 1, &got, &overlapped_) &&
            Complete(handle_, overlapped_, "ReadFile", got)) {
            got = 0;
        }
        timeouts = kPortTimeouts;
        SetCommTimeouts(handle_, &timeouts);
        if (got == 1) {
            taken_.push_back(byte);
            return true;
        }
        // A read that ends early without a byte would have the caller ask again at once.
        SitOut(deadline);
        return false;
    }

  private:
    HANDLE handle_;
    DCB dcb_{};
    // This port's own record: the handle is not opened for overlapped use, so calls
    // complete before they return, but the record keeps ports apart all the same.
    OVERLAPPED overlapped_{};
    // Bytes a wait took off the line and no read has returned yet.
    std::string taken_;
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
