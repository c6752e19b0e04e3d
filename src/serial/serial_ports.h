// modCOMM: the table of serial ports 1 to 99. Every operation returns 0 (or a
// byte count) on success and leaves the last failure in a process-wide error record that
// CommGetError turns into text. A port number outside 1 to 99 raises run-time error 9.
// Reads and writes yield once to the host's message loop and are copied to the port dump.
// Host thread only: the host may re-enter during a yield, so there is no lock.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "serial/port_dump.h"
#include "serial/serial_device.h"

namespace corvid::serial {

struct CommErrorRecord {
    std::int32_t number = 0;
    std::string source;
    std::string description;
};

class SerialDevice;

// The 99 port records, the last error and the dump of what the ports read and write.
// One per process, owned by the process-wide state of the sessions; tests make their own.
class PortTable {
  public:
    PortTable();
    ~PortTable();
    PortTable(const PortTable&) = delete;
    PortTable& operator=(const PortTable&) = delete;

    // Opens port `port` as `name` ("COM" & port) with a settings text such as
    // "baud=9600 parity=E data=8 stop=1"; 0 or the error number (-1 when already open).
    std::int32_t CommOpen(int port, const std::string& name, const std::string& settings);
    std::int32_t CommClose(int port);
    // Reads the bytes already queued (at most 4096, whatever `size` says); the count, 0
    // when nothing is waiting, or -1.
    std::int32_t CommRead(int port, std::string& data, std::int32_t size);
    // Writes the bytes; the count written, or -1.
    std::int32_t CommWrite(int port, const std::string& data);
    // state = whether any modem status bit of `mask` is on (0x80 carrier detect).
    std::int32_t CommReadCD(int port, std::int16_t mask, bool& state);
    // line 1 break, 2 DTR, 3 RTS; any nonzero state sets the line.
    std::int32_t CommSetLine(int port, std::int16_t line, std::int16_t state);
    std::int32_t CommSet(int port, const std::string& settings);
    std::int32_t CommFlush(int port);
    // text = "Error (" & number & "): " & source & " - " & description; returns the number.
    std::int32_t CommGetError(std::string& text) const;
    // Blocks until the port has bytes to read or `milliseconds` pass; false on time-out and
    // for a port that is not open. Never spins.
    bool CommWaitReadable(int port, int milliseconds);

    // The last failure of any port operation.
    const CommErrorRecord& LastCommError() const { return error_; }
    PortDump& dump() { return dump_; }

  private:
    static constexpr int kPortCount = 99;

    // The device of a port (null when closed); raises error 9 outside 1 to 99.
    std::unique_ptr<SerialDevice>& Record(int port);
    SerialDevice* DeviceOrNull(int port) { return Record(port).get(); }
    // Fills the error record from a failed call, naming it "<operation> (<call>)".
    std::int32_t Fail(const char* operation, const SystemFailure& failure,
                      const std::string& suffix = {});
    std::int32_t Fail(CommErrorRecord record);
    std::string FlagsSuffix() const;

    std::array<std::unique_ptr<SerialDevice>, kPortCount> devices_;
    CommErrorRecord error_;
    // The line error flags the last ClearCommError saw.
    std::uint32_t error_flags_ = 0;
    PortDump dump_;
};

}  // namespace corvid::serial
