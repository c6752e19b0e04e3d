#include "serial/telnet_codec.h"

namespace corvid::serial::telnet {

void Decoder::Feed(std::string_view chunk, std::string& data,
                   std::vector<telnet::Command>& commands) {
    for (const char c : chunk) {
        const auto byte = static_cast<std::uint8_t>(c);
        switch (state_) {
            case State::kData:
                if (byte == kIac) {
                    state_ = State::kIac;
                } else {
                    data.push_back(c);
                }
                break;
            case State::kIac:
                if (byte == kIac) {
                    data.push_back(c);
                    state_ = State::kData;
                } else {
                    Command(byte);
                }
                break;
            case State::kOption:
                pending_.option = byte;
                if (pending_.verb == kSubBegin) {
                    state_ = State::kSub;
                } else {
                    commands.push_back(pending_);
                    state_ = State::kData;
                }
                break;
            case State::kSub:
                if (byte == kIac) {
                    state_ = State::kSubIac;
                } else if (pending_.payload.size() < kMaxPayload) {
                    pending_.payload.push_back(c);
                }
                break;
            case State::kSubIac:
                if (byte == kIac) {
                    if (pending_.payload.size() < kMaxPayload) pending_.payload.push_back(c);
                    state_ = State::kSub;
                } else if (byte == kSubEnd) {
                    commands.push_back(pending_);
                    state_ = State::kData;
                } else {
                    // A server that forgot the end: drop the message, keep the command.
                    Command(byte);
                }
                break;
        }
    }
}

void Decoder::Command(std::uint8_t byte) {
    pending_ = {};
    if (byte == kWill || byte == kWont || byte == kDo || byte == kDont || byte == kSubBegin) {
        pending_.verb = byte;
        state_ = State::kOption;
    } else {
        state_ = State::kData;
    }
}

std::string EscapeData(std::string_view data) {
    std::string out;
    out.reserve(data.size());
    for (const char c : data) {
        out.push_back(c);
        if (static_cast<std::uint8_t>(c) == kIac) out.push_back(c);
    }
    return out;
}

std::string Negotiation(std::uint8_t verb, std::uint8_t option) {
    return {static_cast<char>(kIac), static_cast<char>(verb), static_cast<char>(option)};
}

std::string Subnegotiation(std::uint8_t option, std::string_view payload) {
    std::string out{static_cast<char>(kIac), static_cast<char>(kSubBegin),
                    static_cast<char>(option)};
    out += EscapeData(payload);
    out += static_cast<char>(kIac);
    out += static_cast<char>(kSubEnd);
    return out;
}

}  // namespace corvid::serial::telnet
