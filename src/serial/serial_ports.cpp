#include "serial/serial_ports.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <thread>

#include "automation/vb_error.h"
#include "host/message_pump.h"
#include "serial/port_dump.h"
#include "serial/serial_device.h"

namespace corvid::serial {
namespace {

constexpr int kPortCount = 99;

std::string Hex(std::uint32_t value) {
    static const char kDigits[] = "0123456789ABCDEF";
    std::string out;
    do {
        out.insert(out.begin(), kDigits[value & 0xF]);
        value >>= 4;
    } while (value != 0);
    return out;
}

// The port records, the last error and the line error flags the last ClearCommError saw.
class CommPortTable {
  public:
    // The device of a port (null when closed); raises error 9 outside 1 to 99.
    std::unique_ptr<SerialDevice>& Record(int port) {
        if (port < 1 || port > kPortCount) {
            throw automation::VbError::Standard(automation::vb_errors::kSubscriptOutOfRange,
                                                "modCOMM");
        }
        return devices_[static_cast<std::size_t>(port - 1)];
    }

    // Fills the error record from a failed call, naming it "<operation> (<call>)".
    std::int32_t Fail(const char* operation, const SystemFailure& failure,
                      const std::string& suffix = {}) {
        error_ = {failure.number, std::string(operation) + " (" + failure.call + ")",
                  failure.message + suffix};
        return failure.number;
    }
    std::int32_t Fail(CommErrorRecord record) {
        error_ = std::move(record);
        return error_.number;
    }
    std::string FlagsSuffix() const { return "  COMM Error Flags = " + Hex(error_flags_); }

    const CommErrorRecord& error() const { return error_; }
    std::uint32_t& error_flags() { return error_flags_; }

  private:
    std::array<std::unique_ptr<SerialDevice>, kPortCount> devices_;
    CommErrorRecord error_;
    std::uint32_t error_flags_ = 0;
};

CommPortTable& Table() {
    static CommPortTable table;
    return table;
}

// A call on a port that is not open fails as the system fails a call on a bad handle.
SerialDevice* DeviceOrNull(int port) { return Table().Record(port).get(); }

}  // namespace

std::int32_t CommOpen(int port, const std::string& name, const std::string& settings) {
    auto& table = Table();
    auto& record = table.Record(port);
    std::int32_t result = 0;
    if (record) {
        result = table.Fail({-1, "CommOpen", "Port in use."});
    } else {
        SystemFailure failure;
        record = OpenSerialDevice(port, name, failure);
        // Once the device is open the record stays open even if configuring it fails, so
        // the caller's next close releases it.
        if (!record) {
            result = table.Fail("CommOpen", failure);
        } else if (auto failed = record->Prepare(settings)) {
            result = table.Fail("CommOpen", *failed);
        }
    }
    if (result != 0) PortDump::Process().Open();
    return result;
}

std::int32_t CommClose(int port) {
    auto& table = Table();
    auto& record = table.Record(port);
    if (record) {
        auto failed = record->Close();
        record.reset();
        if (failed) {
            PortDump::Process().Close();
            return table.Fail("CommClose", *failed);
        }
    }
    PortDump::Process().Close();
    return 0;
}

std::int32_t CommRead(int port, std::string& data, std::int32_t size) {
    auto& table = Table();
    table.Record(port);
    data.clear();
    host::YieldToHost();
    // Reached again after the yield: the host may have closed the port meanwhile.
    SerialDevice* device = DeviceOrNull(port);
    std::uint32_t waiting = 0;
    auto failed = device ? device->QueryInput(waiting, table.error_flags())
                         : MaybeFailure(ClosedDeviceFailure("ClearCommError"));
    if (failed) {
        table.Fail("CommRead", *failed, table.FlagsSuffix());
        return -1;
    }
    if (waiting == 0) return 0;
    // Only what is queued: asking for more would sit out the read time-out. A caller
    // may ask for fewer (the session takes a lone check byte this way).
    const std::size_t wanted = size > 0 ? static_cast<std::size_t>(size) : kReadBufferSize;
    const std::size_t count = std::min<std::size_t>({waiting, kReadBufferSize, wanted});
    if (auto read_failed = device->Read(count, data)) {
        data.clear();
        table.Fail("CommRead", *read_failed, table.FlagsSuffix());
        return -1;
    }
    if (!data.empty()) PortDump::Process().Data("Read ", data);
    return static_cast<std::int32_t>(data.size());
}

std::int32_t CommWrite(int port, const std::string& data) {
    auto& table = Table();
    SerialDevice* device = DeviceOrNull(port);
    std::size_t written = 0;
    auto failed =
        device ? device->Write(data, written) : MaybeFailure(ClosedDeviceFailure("WriteFile"));
    host::YieldToHost();
    if (failed) {
        table.Fail("CommWrite", *failed, table.FlagsSuffix());
        return -1;
    }
    if (written > 0) PortDump::Process().Data("Send ", std::string_view(data).substr(0, written));
    return static_cast<std::int32_t>(written);
}

std::int32_t CommReadCD(int port, std::int16_t mask, bool& state) {
    SerialDevice* device = DeviceOrNull(port);
    std::uint32_t status = 0;
    auto failed = device ? device->ModemStatus(status)
                         : MaybeFailure(ClosedDeviceFailure("GetCommModemStatus"));
    if (failed) return Table().Fail("CommReadCD", *failed);
    state = (status & static_cast<std::uint16_t>(mask)) != 0;
    return 0;
}

std::int32_t CommSetLine(int port, std::int16_t line, std::int16_t state) {
    SerialDevice* device = DeviceOrNull(port);
    const bool on = state != 0;
    LineFunction function = LineFunction::kNone;
    switch (line) {
        case 1:
            function = on ? LineFunction::kSetBreak : LineFunction::kClearBreak;
            break;
        case 2:
            function = on ? LineFunction::kSetDtr : LineFunction::kClearDtr;
            break;
        case 3:
            function = on ? LineFunction::kSetRts : LineFunction::kClearRts;
            break;
        default:
            break;  // no such line: the system refuses code 0
    }
    auto failed =
        device ? device->Escape(function) : MaybeFailure(ClosedDeviceFailure("EscapeCommFunction"));
    return failed ? Table().Fail("CommSetLine", *failed) : 0;
}

std::int32_t CommSet(int port, const std::string& settings) {
    SerialDevice* device = DeviceOrNull(port);
    auto failed = device ? device->ApplySettings(settings)
                         : MaybeFailure(ClosedDeviceFailure("GetCommState"));
    return failed ? Table().Fail("CommSet", *failed) : 0;
}

std::int32_t CommFlush(int port) {
    SerialDevice* device = DeviceOrNull(port);
    auto failed = device ? device->Purge() : MaybeFailure(ClosedDeviceFailure("PurgeComm"));
    return failed ? Table().Fail("CommFlush", *failed) : 0;
}

std::int32_t CommGetError(std::string& text) {
    const CommErrorRecord& error = Table().error();
    text =
        "Error (" + std::to_string(error.number) + "): " + error.source + " - " + error.description;
    return error.number;
}

bool CommWaitReadable(int port, int milliseconds) {
    if (milliseconds < 0) return false;
    SerialDevice* device = DeviceOrNull(port);
    if (device == nullptr) {
        // Nothing can arrive on a port that is not open: the time passes all the same, so
        // a caller that waits in a loop does not spin.
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        return false;
    }
    return device->WaitReadable(std::chrono::milliseconds(milliseconds));
}

const CommErrorRecord& LastCommError() { return Table().error(); }

}  // namespace corvid::serial
