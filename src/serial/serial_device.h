// One open serial device, as the port table drives it. Each platform supplies its own
// (Win32 communication functions on Windows, termios on POSIX), and a port on a serial
// device server is one more (network_device.h); the table above them keeps the error
// texts, the dump and the host yields, so all behave alike to a caller.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvid::serial {

// What a failed system call left behind: its number, the name of the Windows call it is
// (or stands for) as error sources quote it ("CreateFile", "ReadFile"), and the system's
// text for the number.
struct SystemFailure {
    std::int32_t number = 0;
    std::string call;
    std::string message;
};

using MaybeFailure = std::optional<SystemFailure>;

// Codes of the line functions (EscapeCommFunction's values).
enum class LineFunction : std::uint32_t {
    kNone = 0,
    kSetRts = 3,
    kClearRts = 4,
    kSetDtr = 5,
    kClearDtr = 6,
    kSetBreak = 8,
    kClearBreak = 9,
};

// Modem status bits, in the Windows layout on every platform.
inline constexpr std::uint32_t kModemCts = 0x10;
inline constexpr std::uint32_t kModemDsr = 0x20;
inline constexpr std::uint32_t kModemRing = 0x40;
inline constexpr std::uint32_t kModemRlsd = 0x80;

// The largest read the table asks for.
inline constexpr std::size_t kReadBufferSize = 4096;

class SerialDevice {
  public:
    virtual ~SerialDevice() = default;

    // Queue sizes, purge, time-outs, then the line settings; stops at the first failure.
    virtual MaybeFailure Prepare(const std::string& settings) = 0;
    // Re-reads the line state, applies the settings text, writes it back.
    virtual MaybeFailure ApplySettings(const std::string& settings) = 0;
    // Drops whatever is queued either way.
    virtual MaybeFailure Purge() = 0;
    // Releases the device; the object is unusable afterwards.
    virtual MaybeFailure Close() = 0;
    // Bytes waiting to be read and the line's error flags (clearing them).
    virtual MaybeFailure QueryInput(std::uint32_t& waiting, std::uint32_t& error_flags) = 0;
    // Reads up to `count` bytes; never waits for more than are queued.
    virtual MaybeFailure Read(std::size_t count, std::string& data) = 0;
    // Writes the bytes, waiting within the write time-out; `written` says how many went.
    virtual MaybeFailure Write(std::string_view data, std::size_t& written) = 0;
    virtual MaybeFailure ModemStatus(std::uint32_t& status) = 0;
    virtual MaybeFailure Escape(LineFunction function) = 0;
    // Blocks until bytes are queued or the time passes, without spinning. Bytes the wait
    // takes off the line still count as queued and come first in the next read.
    virtual bool WaitReadable(std::chrono::milliseconds timeout) = 0;
};

// Opens port number `port` named `name` ("COM" & number) for exclusive reading and
// writing. On failure returns null and fills `failure` (call "CreateFile").
std::unique_ptr<SerialDevice> OpenSerialDevice(int port, const std::string& name,
                                               SystemFailure& failure);

// What the platform says when a call is made on a handle that is not open.
SystemFailure ClosedDeviceFailure(std::string call);

}  // namespace corvid::serial
