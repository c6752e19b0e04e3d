// The session's serial line over the process-wide port table.
#include "port/serial_ports.h"
#include "session/serial_line.h"

namespace corvid::session {

namespace {

class PortTableLine : public SerialLine {
  public:
    std::int32_t Open(std::int16_t port, const std::string& name,
                      const std::string& settings) override {
        return port::CommOpen(port, name, settings);
    }
    std::int32_t Close(std::int16_t port) override { return port::CommClose(port); }
    std::int32_t SetLine(std::int16_t port, std::int16_t line, std::int16_t state) override {
        return port::CommSetLine(port, line, state);
    }
    std::int32_t Write(std::int16_t port, std::string_view data) override {
        return port::CommWrite(port, std::string(data));
    }
    std::int32_t Read(std::int16_t port, std::string& data, std::int32_t size) override {
        return port::CommRead(port, data, size);
    }
    bool WaitReadable(std::int16_t port, std::int32_t milliseconds) override {
        return port::CommWaitReadable(port, milliseconds);
    }
    std::string ErrorText() override {
        std::string text;
        port::CommGetError(text);
        return text;
    }
};

}  // namespace

std::shared_ptr<SerialLine> ProcessSerialLine() {
    static const auto line = std::make_shared<PortTableLine>();
    return line;
}

}  // namespace corvid::session
