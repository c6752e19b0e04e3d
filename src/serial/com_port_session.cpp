#include "serial/com_port_session.h"

#include <vector>

namespace corvid::serial {
namespace {

using telnet::kComPort;

// The client's message codes; the server answers each with its code + 100.
enum ClientCode : std::uint8_t {
    kSetBaudRate = 1,
    kSetDataSize = 2,
    kSetParity = 3,
    kSetStopSize = 4,
    kSetControl = 5,
    kPurgeData = 12,
};
constexpr std::uint8_t kServerOffset = 100;
constexpr std::uint8_t kNotifyLineState = 6 + kServerOffset;
constexpr std::uint8_t kNotifyModemState = 7 + kServerOffset;

// Line state bits that are errors; they sit where ClearCommError puts them (overrun,
// parity, framing, break), as do the modem state's line bits.
constexpr std::uint8_t kLineErrorBits = 0x1E;
constexpr std::uint8_t kModemLineBits = 0xF0;

std::string Message(std::uint8_t code, std::string_view value) {
    std::string payload(1, static_cast<char>(code));
    payload += value;
    return telnet::Subnegotiation(kComPort, payload);
}

std::string Message(std::uint8_t code, std::uint8_t value) {
    return Message(code, std::string_view(reinterpret_cast<const char*>(&value), 1));
}

std::uint8_t ParityCode(Parity parity) {
    switch (parity) {
        case Parity::kNone:
            return 1;
        case Parity::kOdd:
            return 2;
        case Parity::kEven:
            return 3;
        case Parity::kMark:
            return 4;
        case Parity::kSpace:
            return 5;
    }
    return 1;
}

std::uint8_t StopCode(StopBits stop) {
    switch (stop) {
        case StopBits::kOne:
            return 1;
        case StopBits::kTwo:
            return 2;
        case StopBits::kOneAndHalf:
            return 3;
    }
    return 1;
}

}  // namespace

std::string ComPortSession::Greeting() {
    std::string offers;
    for (std::uint8_t option : {kComPort, telnet::kBinary, telnet::kSuppressGoAhead}) {
        ours_[option] = Side::kAsked;
        offers += telnet::Negotiation(telnet::kWill, option);
    }
    for (std::uint8_t option : {telnet::kBinary, telnet::kSuppressGoAhead}) {
        theirs_[option] = Side::kAsked;
        offers += telnet::Negotiation(telnet::kDo, option);
    }
    return offers;
}

std::string ComPortSession::Receive(std::string_view chunk, std::string& data) {
    std::vector<telnet::Command> commands;
    decoder_.Feed(chunk, data, commands);
    std::string replies;
    for (const auto& command : commands) {
        if (command.verb == telnet::kSubBegin) {
            if (command.option == kComPort) ServerMessage(command.payload);
        } else {
            Negotiate(command, replies);
        }
    }
    return replies;
}

ComPortSession::Agreement ComPortSession::agreement() const {
    switch (ours_[kComPort]) {
        case Side::kOn:
            return Agreement::kAgreed;
        case Side::kAsked:
            return Agreement::kPending;
        case Side::kOff:
            break;
    }
    return Agreement::kRefused;
}

bool ComPortSession::Wanted(std::uint8_t option, bool ours) {
    return option == telnet::kBinary || option == telnet::kSuppressGoAhead ||
           (ours && option == kComPort);
}

// Each side's state changes once per request and a request for the present state is not
// answered, so the two ends never echo each other for ever.
void ComPortSession::Negotiate(const telnet::Command& command, std::string& replies) {
    const std::uint8_t option = command.option;
    const bool about_us = command.verb == telnet::kDo || command.verb == telnet::kDont;
    Side& side = about_us ? ours_[option] : theirs_[option];
    const std::uint8_t yes = about_us ? telnet::kWill : telnet::kDo;
    const std::uint8_t no = about_us ? telnet::kWont : telnet::kDont;
    const bool enable = command.verb == telnet::kDo || command.verb == telnet::kWill;
    if (enable) {
        if (!Wanted(option, about_us)) {
            replies += telnet::Negotiation(no, option);
            return;
        }
        if (side == Side::kOff) replies += telnet::Negotiation(yes, option);
        side = Side::kOn;
    } else {
        if (side == Side::kOn) replies += telnet::Negotiation(no, option);
        side = Side::kOff;
    }
}

void ComPortSession::ServerMessage(std::string_view payload) {
    if (payload.size() < 2) return;
    const auto value = static_cast<std::uint8_t>(payload[1]);
    switch (static_cast<std::uint8_t>(payload[0])) {
        case kNotifyModemState:
            modem_status_ = value & kModemLineBits;
            break;
        case kNotifyLineState:
            line_errors_ |= value & kLineErrorBits;
            break;
        default:
            break;  // answers to our settings, signatures, flow requests
    }
}

std::string ComPortSession::SettingsMessages(const LineSettings& settings) const {
    std::string messages;
    if (settings.baud) {
        const std::uint32_t baud = *settings.baud;
        const char bytes[] = {static_cast<char>(baud >> 24), static_cast<char>(baud >> 16),
                              static_cast<char>(baud >> 8), static_cast<char>(baud)};
        messages += Message(kSetBaudRate, std::string_view(bytes, sizeof bytes));
    }
    if (settings.data_bits) {
        messages += Message(kSetDataSize, static_cast<std::uint8_t>(*settings.data_bits));
    }
    if (settings.parity) messages += Message(kSetParity, ParityCode(*settings.parity));
    if (settings.stop_bits) messages += Message(kSetStopSize, StopCode(*settings.stop_bits));
    if (settings.cts_flow || settings.xon_xoff) {
        constexpr std::uint8_t kNoFlow = 1, kXonXoff = 2, kHardware = 3;
        std::uint8_t flow = kNoFlow;
        if (settings.cts_flow.value_or(false)) {
            flow = kHardware;
        } else if (settings.xon_xoff.value_or(false)) {
            flow = kXonXoff;
        }
        messages += Message(kSetControl, flow);
    }
    return messages;
}

std::optional<std::string> ComPortSession::LineFunctionMessage(LineFunction function) const {
    std::uint8_t code = 0;
    switch (function) {
        case LineFunction::kSetBreak:
            code = 5;
            break;
        case LineFunction::kClearBreak:
            code = 6;
            break;
        case LineFunction::kSetDtr:
            code = 8;
            break;
        case LineFunction::kClearDtr:
            code = 9;
            break;
        case LineFunction::kSetRts:
            code = 11;
            break;
        case LineFunction::kClearRts:
            code = 12;
            break;
        case LineFunction::kNone:
            return std::nullopt;
    }
    return Message(kSetControl, code);
}

std::string ComPortSession::PurgeMessage() const {
    constexpr std::uint8_t kBothQueues = 3;
    return Message(kPurgeData, kBothQueues);
}

std::uint32_t ComPortSession::TakeLineErrors() {
    const std::uint32_t errors = line_errors_;
    line_errors_ = 0;
    return errors;
}

}  // namespace corvid::serial
