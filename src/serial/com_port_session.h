// The client's half of a Telnet session with the com-port option (the control protocol of
// serial device servers): the offers that open it, the answers to what the server asks,
// line settings, line functions and purges as messages, and what the server reports
// about its port's modem lines and line errors. No I/O: the device sends what it returns.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "serial/serial_device.h"
#include "serial/serial_settings.h"
#include "serial/telnet_codec.h"

namespace corvid::serial {

class ComPortSession {
  public:
    enum class Agreement { kPending, kAgreed, kRefused };

    // What opens the session: the com-port option, binary both ways, no go-aheads.
    std::string Greeting();
    // Takes a received chunk: its data bytes are appended to `data`; returns the replies
    // the server's requests call for, to be sent.
    std::string Receive(std::string_view chunk, std::string& data);

    Agreement agreement() const;
    // The server's answers to settings (which may differ from what was asked) are not
    // awaited: whatever follows a message reaches the port after it, in order.
    std::string SettingsMessages(const LineSettings& settings) const;
    // Nothing for kNone, which no server knows.
    std::optional<std::string> LineFunctionMessage(LineFunction function) const;
    // Drops the server's queues both ways.
    std::string PurgeMessage() const;

    // The modem lines (kModemCts...) as the server last reported them; none yet: nullopt.
    std::optional<std::uint32_t> modem_status() const { return modem_status_; }
    // The line errors reported since the last call, as ClearCommError's flags.
    std::uint32_t TakeLineErrors();

  private:
    // One side of an option: off, asked for and not yet answered, or on.
    enum class Side : std::uint8_t { kOff, kAsked, kOn };

    static bool Wanted(std::uint8_t option, bool ours);
    void Negotiate(const telnet::Command& command, std::string& replies);
    void ServerMessage(std::string_view payload);

    telnet::Decoder decoder_;
    std::array<Side, 256> ours_{};    // what we do (WILL / WONT)
    std::array<Side, 256> theirs_{};  // what the server does (DO / DONT)
    std::optional<std::uint32_t> modem_status_;
    std::uint32_t line_errors_ = 0;
};

}  // namespace corvid::serial
