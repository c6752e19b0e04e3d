// The byte level of a Telnet stream: commands start with IAC (0xFF), so a data byte 0xFF
// travels doubled, and the commands a server mixes into the stream are taken out of it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::serial::telnet {

inline constexpr std::uint8_t kIac = 255;
inline constexpr std::uint8_t kDont = 254;
inline constexpr std::uint8_t kDo = 253;
inline constexpr std::uint8_t kWont = 252;
inline constexpr std::uint8_t kWill = 251;
inline constexpr std::uint8_t kSubBegin = 250;
inline constexpr std::uint8_t kSubEnd = 240;

inline constexpr std::uint8_t kBinary = 0;
inline constexpr std::uint8_t kEcho = 1;
inline constexpr std::uint8_t kSuppressGoAhead = 3;
inline constexpr std::uint8_t kComPort = 44;

struct Command {
    std::uint8_t verb = 0;  // kWill, kWont, kDo, kDont, or kSubBegin for a subnegotiation
    std::uint8_t option = 0;
    std::string payload;  // a subnegotiation's bytes after the option, IAC undoubled
};

// Splits a received stream into data and commands. A command cut by the end of one chunk
// is completed by the next; commands other than negotiations (NOP, GA...) are dropped.
class Decoder {
  public:
    void Feed(std::string_view chunk, std::string& data, std::vector<Command>& commands);

  private:
    enum class State { kData, kIac, kOption, kSub, kSubIac };
    // Longer subnegotiations are cut: no server message is anywhere near this.
    static constexpr std::size_t kMaxPayload = 256;

    void Command(std::uint8_t byte);

    State state_ = State::kData;
    telnet::Command pending_;
};

// The data with every 0xFF doubled.
std::string EscapeData(std::string_view data);
// IAC verb option.
std::string Negotiation(std::uint8_t verb, std::uint8_t option);
// IAC SB option payload IAC SE, with 0xFF doubled in the payload.
std::string Subnegotiation(std::uint8_t option, std::string_view payload);

}  // namespace corvid::serial::telnet
