// The serial operations the exchange engine uses. The process-wide port table implements
// it; tests put a scripted printer behind it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvid::session {

class SerialLine {
  public:
    virtual ~SerialLine() = default;
    // 0 on success, else the error number; ErrorText() then tells why.
    virtual std::int32_t Open(std::int16_t port, const std::string& name,
                              const std::string& settings) = 0;
    virtual std::int32_t Close(std::int16_t port) = 0;
    // line 1 break, 2 DTR, 3 RTS; any nonzero state sets the line.
    virtual std::int32_t SetLine(std::int16_t port, std::int16_t line, std::int16_t state) = 0;
    // Bytes written, or -1.
    virtual std::int32_t Write(std::int16_t port, std::string_view data) = 0;
    // Bytes read (the ones waiting, at most `size`), 0 when none, or -1.
    virtual std::int32_t Read(std::int16_t port, std::string& data, std::int32_t size) = 0;
    // Blocks until bytes wait or `milliseconds` pass; never spins.
    virtual bool WaitReadable(std::int16_t port, std::int32_t milliseconds) = 0;
    // The text of the last failed operation ("Error (n): source - description").
    virtual std::string ErrorText() = 0;
};

}  // namespace corvid::session
