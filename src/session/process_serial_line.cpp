// The session's serial line over the process-wide port table.
#include "session/process_serial_line.h"

#include "serial/serial_ports.h"
#include "session/process_state.h"

namespace corvid::session {

namespace {

serial::PortTable& Ports() { return Process().ports; }

class PortTableLine : public SerialLine {
  public:
    std::int32_t Open(std::int16_t port, const std::string& name,
                      const std::string& settings) override {
        return Ports().CommOpen(port, name, settings);
    }
    std::int32_t Close(std::int16_t port) override { return Ports().CommClose(port); }
    std::int32_t SetLine(std::int16_t port, std::int16_t line, std::int16_t state) override {
        return Ports().CommSetLine(port, line, state);
    }
    std::int32_t Write(std::int16_t port, std::string_view data) override {
        return Ports().CommWrite(port, std::string(data));
    }
    std::int32_t Read(std::int16_t port, std::string& data, std::int32_t size) override {
        return Ports().CommRead(port, data, size);
    }
    bool WaitReadable(std::int16_t port, std::int32_t milliseconds) override {
        return Ports().CommWaitReadable(port, milliseconds);
    }
    std::string ErrorText() override {
        std::string text;
        Ports().CommGetError(text);
        return text;
    }
};

}  // namespace

std::shared_ptr<SerialLine> ProcessSerialLine() {
    static const auto line = std::make_shared<PortTableLine>();
    return line;
}

}  // namespace corvid::session
