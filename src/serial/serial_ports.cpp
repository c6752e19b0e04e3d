#include "serial/serial_ports.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <thread>

#include "automation/vb_error.h"
#include "host/message_pump.h"
#include "serial/port_devices.h"
#include "serial/port_dump.h"
#include "serial/serial_device.h"

namespace corvid::serial {
namespace {

std::string Hex(std::uint32_t value) {
    static const char kDigits[] = "0123456789ABCDEF";
    std::string out;
    do {
        out.insert(out.begin(), kDigits[value & 0xF]);
        value >>= 4;
    } while (value != 0);
    return out;
}

}  // namespace

PortTable::PortTable() = default;
PortTable::~PortTable() = default;

std::unique_ptr<SerialDevice>& PortTable::Record(int port) {
    if (port < 1 || port > kPortCount) {
        throw automation::VbError::Standard(automation::vb_errors::kSubscriptOutOfRange, "modCOMM");
    }
    return devices_[static_cast<std::size_t>(port - 1)];
}

std::int32_t PortTable::Fail(const char* operation, const SystemFailure& failure,
                             const std::string& suffix) {
    error_ = {failure.number, std::string(operation) + " (" + failure.call + ")",
              failure.message + suffix};
    return failure.number;
}

std::int32_t PortTable::Fail(CommErrorRecord record) {
    error_ = std::move(record);
    return error_.number;
}

std::string PortTable::FlagsSuffix() const { return "  COMM Error Flags = " + Hex(error_flags_); }

std::int32_t PortTable::CommOpen(int port, const std::string& name, const std::string& settings) {
    auto& record = Record(port);
    std::int32_t result = 0;
    if (record) {
        result = Fail({-1, "CommOpen", "Port in use."});
    } else {
        SystemFailure failure;
        record = OpenPortDevice(port, name, failure);
        // Once the device is open the record stays open even if configuring it fails, so
        // the caller's next close releases it.
        if (!record) {
            result = Fail("CommOpen", failure);
        } else if (auto failed = record->Prepare(settings)) {
            result = Fail("CommOpen", *failed);
        }
    }
    if (result != 0) dump_.Open();
    return result;
}

std::int32_t PortTable::CommClose(int port) {
    auto& record = Record(port);
    if (record) {
        auto failed = record->Close();
        record.reset();
        if (failed) {
            dump_.Close();
            return Fail("CommClose", *failed);
        }
    }
    dump_.Close();
    return 0;
}

std::int32_t PortTable::CommRead(int port, std::string& data, std::int32_t size) {
    Record(port);
    data.clear();
    host::YieldToHost();
    // Reached again after the yield: the host may have closed the port meanwhile.
    SerialDevice* device = DeviceOrNull(port);
    std::uint32_t waiting = 0;
    auto failed = device ? device->QueryInput(waiting, error_flags_)
                         : MaybeFailure(ClosedDeviceFailure("ClearCommError"));
    if (failed) {
        Fail("CommRead", *failed, FlagsSuffix());
        return -1;
    }
    if (waiting == 0) return 0;
    // Only what is queued: asking for more would sit out the read time-out. A caller
    // may ask for fewer (the session takes a lone check byte this way).
    const std::size_t wanted = size > 0 ? static_cast<std::size_t>(size) : kReadBufferSize;
    const std::size_t count = std::min<std::size_t>({waiting, kReadBufferSize, wanted});
    if (auto read_failed = device->Read(count, data)) {
        data.clear();
        Fail("CommRead", *read_failed, FlagsSuffix());
        return -1;
    }
    if (!data.empty()) dump_.Data("Read ", data);
    return static_cast<std::int32_t>(data.size());
}

std::int32_t PortTable::CommWrite(int port, const std::string& data) {
    SerialDevice* device = DeviceOrNull(port);
    std::size_t written = 0;
    auto failed =
        device ? device->Write(data, written) : MaybeFailure(ClosedDeviceFailure("WriteFile"));
    host::YieldToHost();
    if (failed) {
        Fail("CommWrite", *failed, FlagsSuffix());
        return -1;
    }
    if (written > 0) dump_.Data("Send ", std::string_view(data).substr(0, written));
    return static_cast<std::int32_t>(written);
}

std::int32_t PortTable::CommReadCD(int port, std::int16_t mask, bool& state) {
    SerialDevice* device = DeviceOrNull(port);
    std::uint32_t status = 0;
    auto failed = device ? device->ModemStatus(status)
                         : MaybeFailure(ClosedDeviceFailure("GetCommModemStatus"));
    if (failed) return Fail("CommReadCD", *failed);
    state = (status & static_cast<std::uint16_t>(mask)) != 0;
    return 0;
}

std::int32_t PortTable::CommSetLine(int port, std::int16_t line, std::int16_t state) {
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
    return failed ? Fail("CommSetLine", *failed) : 0;
}

std::int32_t PortTable::CommSet(int port, const std::string& settings) {
    SerialDevice* device = DeviceOrNull(port);
    auto failed = device ? device->ApplySettings(settings)
                         : MaybeFailure(ClosedDeviceFailure("GetCommState"));
    return failed ? Fail("CommSet", *failed) : 0;
}

std::int32_t PortTable::CommFlush(int port) {
    SerialDevice* device = DeviceOrNull(port);
    auto failed = device ? device->Purge() : MaybeFailure(ClosedDeviceFailure("PurgeComm"));
    return failed ? Fail("CommFlush", *failed) : 0;
}

std::int32_t PortTable::CommGetError(std::string& text) const {
    const CommErrorRecord& error = error_;
    text =
        "Error (" + std::to_string(error.number) + "): " + error.source + " - " + error.description;
    return error.number;
}

bool PortTable::CommWaitReadable(int port, int milliseconds) {
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

}  // namespace corvid::serial
