// The serial device on POSIX: a termios device file (a real port, a USB adapter or a
// pseudo-terminal), opened non-blocking so that a read takes only what is queued and a
// write waits on poll() within the same time-out the Windows port gets.
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

#include "serial/port_devices.h"
#include "serial/serial_device.h"
#include "serial/serial_settings.h"

namespace corvid::serial {
namespace {

// The Windows port's write time-out: 1000 ms per byte.
constexpr int kWriteMillisecondsPerByte = 1000;

SystemFailure Failure(std::string call, int number = errno) {
    return {number, std::move(call), std::strerror(number)};
}

// Pseudo-terminals and some adapters have no modem lines and no break: the ioctl answers
// ENOTTY or EINVAL. The printer protocol never depends on them, so they count as done;
// otherwise a pseudo-terminal standing in for the printer could not be used at all.
bool NotSupportedHere(int number) { return number == ENOTTY || number == EINVAL; }

// The termios speed for a baud rate, or B0 for one termios has no name for.
speed_t Speed(std::uint32_t baud) {
    static const std::pair<std::uint32_t, speed_t> kSpeeds[] = {
        {110, B110},     {300, B300},     {600, B600},       {1200, B1200},
        {2400, B2400},   {4800, B4800},   {9600, B9600},     {19200, B19200},
        {38400, B38400}, {57600, B57600}, {115200, B115200}, {230400, B230400}};
    for (const auto& [rate, speed] : kSpeeds) {
        if (rate == baud) return speed;
    }
    return B0;
}

// Applies parsed settings on top of the device's present termios; false for a value the
// device cannot take.
bool ApplyTo(const LineSettings& settings, termios& tio) {
    cfmakeraw(&tio);
    tio.c_cflag |= CLOCAL | CREAD;
    tio.c_cc[VMIN] = 0;
    tio.c_cc[VTIME] = 0;
    if (settings.baud) {
        const speed_t speed = Speed(*settings.baud);
        if (speed == B0) return false;
        cfsetispeed(&tio, speed);
        cfsetospeed(&tio, speed);
    }
    if (settings.data_bits) {
        static const tcflag_t kSizes[] = {CS5, CS6, CS7, CS8};
        tio.c_cflag = (tio.c_cflag & ~CSIZE) | kSizes[*settings.data_bits - 5];
    }
    if (settings.parity) {
        tio.c_cflag &= ~(PARENB | PARODD);
#ifdef CMSPAR
        tio.c_cflag &= ~CMSPAR;
#endif
        switch (*settings.parity) {
            case Parity::kNone:
                break;
            case Parity::kEven:
                tio.c_cflag |= PARENB;
                break;
            case Parity::kOdd:
                tio.c_cflag |= PARENB | PARODD;
                break;
            case Parity::kMark:
            case Parity::kSpace:
#ifdef CMSPAR
                tio.c_cflag |= PARENB | CMSPAR | (*settings.parity == Parity::kMark ? PARODD : 0);
                break;
#else
                return false;
#endif
        }
    }
    if (settings.stop_bits) {
        // 1.5 stop bits exists only at 5 data bits, where termios' CSTOPB means it.
        if (*settings.stop_bits == StopBits::kOne) {
            tio.c_cflag &= ~CSTOPB;
        } else {
            tio.c_cflag |= CSTOPB;
        }
    }
    if (settings.xon_xoff) {
        tio.c_iflag =
            *settings.xon_xoff ? (tio.c_iflag | IXON | IXOFF) : (tio.c_iflag & ~(IXON | IXOFF));
    }
    if (settings.cts_flow) {
        tio.c_cflag = *settings.cts_flow ? (tio.c_cflag | CRTSCTS) : (tio.c_cflag & ~CRTSCTS);
    }
    return true;
}

#ifdef CMSPAR
constexpr tcflag_t kCharacterFormat = CSIZE | PARENB | PARODD | CMSPAR;
#else
constexpr tcflag_t kCharacterFormat = CSIZE | PARENB | PARODD;
#endif

// Unix98 pseudo-terminal slaves have majors 136 to 143, the old BSD ones 3.
bool IsPseudoTerminal(int fd) {
    struct stat info {};
    if (fstat(fd, &info) != 0 || !S_ISCHR(info.st_mode)) return false;
    const unsigned device_major = major(info.st_rdev);
    return (device_major >= 136 && device_major <= 143) || device_major == 3;
}

// Whole milliseconds left until `deadline`, rounded up so a wait never ends early.
int MillisecondsUntil(std::chrono::steady_clock::time_point deadline) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return static_cast<int>(std::max<long long>(0, left.count()));
}

class PosixSerialDevice : public SerialDevice {
  public:
    explicit PosixSerialDevice(int fd) : fd_(fd) {}
    ~PosixSerialDevice() override {
        if (fd_ >= 0) Close();
    }

    MaybeFailure Prepare(const std::string& settings) override {
        // Queue sizes and time-outs are the kernel's and this class's business here:
        // SetupComm and SetCommTimeouts have nothing to do.
        if (auto failed = Purge()) return failed;
        return ApplySettings(settings);
    }

    MaybeFailure ApplySettings(const std::string& settings) override {
        termios tio{};
        if (tcgetattr(fd_, &tio) != 0) return Failure("GetCommState");
        auto parsed = ParseLineSettings(settings);
        if (!parsed || !ApplyTo(*parsed, tio)) return Failure("BuildCommDCB", EINVAL);
        if (tcsetattr(fd_, TCSANOW, &tio) == 0) return std::nullopt;
        const int number = errno;
        // A pseudo-terminal always carries 8-bit bytes without parity, and Linux refuses a
        // request whose only change is the character format; the rest still applies.
        if (number == EINVAL && IsPseudoTerminal(fd_)) {
            termios present{};
            if (tcgetattr(fd_, &present) == 0) {
                tio.c_cflag =
                    (tio.c_cflag & ~kCharacterFormat) | (present.c_cflag & kCharacterFormat);
                if (tcsetattr(fd_, TCSANOW, &tio) == 0) return std::nullopt;
            }
        }
        return Failure("SetCommState", number);
    }

    MaybeFailure Purge() override {
        if (tcflush(fd_, TCIOFLUSH) != 0) return Failure("PurgeComm");
        return std::nullopt;
    }

    MaybeFailure Close() override {
        const int fd = fd_;
        fd_ = -1;
        // A pseudo-terminal outlives its slave's close; keep it open to the next CommOpen.
        ioctl(fd, TIOCNXCL);
        if (::close(fd) != 0) return Failure("CloseHandle");
        return std::nullopt;
    }

    MaybeFailure QueryInput(std::uint32_t& waiting, std::uint32_t& error_flags) override {
        int count = 0;
        if (ioctl(fd_, FIONREAD, &count) != 0) return Failure("ClearCommError");
        waiting = count > 0 ? static_cast<std::uint32_t>(count) : 0;
        error_flags = 0;  // termios reports no line errors here
        return std::nullopt;
    }

    MaybeFailure Read(std::size_t count, std::string& data) override {
        data.resize(count);
        ssize_t n = ::read(fd_, data.data(), count);
        if (n < 0 && (errno == EAGAIN || errno == EINTR)) n = 0;
        if (n < 0) {
            data.clear();
            return Failure("ReadFile");
        }
        data.resize(static_cast<std::size_t>(n));
        return std::nullopt;
    }

    MaybeFailure Write(std::string_view data, std::size_t& written) override {
        written = 0;
        const int budget = kWriteMillisecondsPerByte * static_cast<int>(data.size());
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(budget);
        while (written < data.size()) {
            const ssize_t n = ::write(fd_, data.data() + written, data.size() - written);
            if (n > 0) {
                written += static_cast<std::size_t>(n);
                continue;
            }
            if (n < 0 && errno != EAGAIN && errno != EINTR) return Failure("WriteFile");
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                deadline - std::chrono::steady_clock::now());
            if (left.count() <= 0) break;  // time-out: report what went
            pollfd wait{fd_, POLLOUT, 0};
            if (poll(&wait, 1, static_cast<int>(left.count())) < 0 && errno != EINTR) {
                return Failure("WriteFile");
            }
        }
        return std::nullopt;
    }

    MaybeFailure ModemStatus(std::uint32_t& status) override {
        int lines = 0;
        if (ioctl(fd_, TIOCMGET, &lines) != 0) return Failure("GetCommModemStatus");
        status = ((lines & TIOCM_CTS) ? kModemCts : 0) | ((lines & TIOCM_DSR) ? kModemDsr : 0) |
                 ((lines & TIOCM_RNG) ? kModemRing : 0) | ((lines & TIOCM_CAR) ? kModemRlsd : 0);
        return std::nullopt;
    }

    MaybeFailure Escape(LineFunction function) override {
        int result = 0;
        int dtr = TIOCM_DTR;
        int rts = TIOCM_RTS;
        switch (function) {
            case LineFunction::kSetBreak:
                result = ioctl(fd_, TIOCSBRK);
                break;
            case LineFunction::kClearBreak:
                result = ioctl(fd_, TIOCCBRK);
                break;
            case LineFunction::kSetDtr:
                result = ioctl(fd_, TIOCMBIS, &dtr);
                break;
            case LineFunction::kClearDtr:
                result = ioctl(fd_, TIOCMBIC, &dtr);
                break;
            case LineFunction::kSetRts:
                result = ioctl(fd_, TIOCMBIS, &rts);
                break;
            case LineFunction::kClearRts:
                result = ioctl(fd_, TIOCMBIC, &rts);
                break;
            case LineFunction::kNone:
                return Failure("EscapeCommFunction", EINVAL);
        }
        if (result != 0 && !NotSupportedHere(errno)) return Failure("EscapeCommFunction");
        return std::nullopt;
    }

    bool WaitReadable(std::chrono::milliseconds timeout) override {
        const auto deadline = std::chrono::steady_clock::now() + timeout;
        for (;;) {
            pollfd wait{fd_, POLLIN, 0};
            const int ready = poll(&wait, 1, MillisecondsUntil(deadline));
            if (ready == 0) return false;
            if (ready < 0) {
                if (errno == EINTR) continue;
                return false;
            }
            if ((wait.revents & (POLLHUP | POLLERR | POLLNVAL)) == 0) return true;
            // Hung up (the printer's end of a pseudo-terminal closed): what is still
            // queued can be read, but nothing more will come, and poll would answer at
            // once forever, so sit out the time rather than let the caller spin.
            std::uint32_t waiting = 0;
            std::uint32_t flags = 0;
            if (!QueryInput(waiting, flags) && waiting > 0) return true;
            poll(nullptr, 0, MillisecondsUntil(deadline));
            return false;
        }
    }

  private:
    int fd_;
};

}  // namespace

std::unique_ptr<SerialDevice> OpenSerialDevice(int port, const std::string& /*name*/,
                                               SystemFailure& failure) {
    const std::string path = PortDevicePath(port);
    const int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        failure = Failure("CreateFile");
        return nullptr;
    }
    if (!isatty(fd)) {
        failure = Failure("CreateFile", ENOTTY);
        ::close(fd);
        return nullptr;
    }
    // No sharing, as on Windows (root is not held back by this; others are).
    ioctl(fd, TIOCEXCL);
    return std::make_unique<PosixSerialDevice>(fd);
}

SystemFailure ClosedDeviceFailure(std::string call) { return Failure(std::move(call), EBADF); }

}  // namespace corvid::serial
