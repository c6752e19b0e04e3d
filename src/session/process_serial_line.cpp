// The session's serial line over the process-wide port table.
#include "serial/serial_ports.h"
#include "session/serial_line.h"

namespace corvid::session {

namespace {

class PortTableLine : public SerialLine {
  public:
    std::int32_t Open(std::int16_t port, const std::string& name,
                      const std::string& settings) override {
        return serial::CommOpen(port, name, settings);
    }
    std::int32_t Close(std::int16_t port) override { return serial::CommClose(port); }
    std::int32_t SetLine(std::int16_t port, std::int16_t line, std::int16_t state) override {
        return serial::CommSetLine(port, line, state);
    }
    std::int32_t Write(std::int16_t port, std::string_view data) override {
        return serial::CommWrite(port, std::string(data));
    }
    std::int32_t Read(std::int16_t port, std::string& data, std::int32_t size) override {
        return serial::CommRead(port, data, size);
    }
    bool WaitReadable(std::int16_t port, std::int32_t milliseconds) override {
        return serial::CommWaitReadable(port, milliseconds);
    }
    std::string ErrorText() override {
        std::string text;
        serial::CommGetError(text);
        return text;
    }
};

}  // namespace

std::shared_ptr<SerialLine> ProcessSerialLine() {
    static const auto line = std::make_shared<PortTableLine>();
    return line;
}

}  // namespace corvid::session
