#include "session/framing.h"

#include "automation/vb_error.h"
#include "session/control_values.h"

namespace corvid::session {

std::string BuildCommandBlock(std::string_view command) {
    std::string block;
    block.reserve(command.size() + 3);
    block += static_cast<char>(controlValues::STX);
    block += command;
    block += static_cast<char>(controlValues::ETX);
    block += static_cast<char>(CalcXOr(std::string_view(block).substr(1)));
    return block;
}

std::int16_t CalcXOr(std::string_view text) {
    if (text.empty()) {
        throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
    }
    unsigned check = 0;
    for (unsigned char byte : text) check ^= byte;
    return static_cast<std::int16_t>(check);
}

namespace {

const char* NamedTag(unsigned char code) {
    switch (code) {
        case controlValues::STX:
            return "[STX]";
        case controlValues::ENQ:
            return "[ENQ]";
        case controlValues::ETX:
            return "[ETX]";
        case controlValues::EOT:
            return "[EOT]";
        case controlValues::ACK:
            return "[ACK]";
        case controlValues::NAK:
            return "[NAK]";
        case controlValues::ETB:
            return "[ETB]";
        default:
            return nullptr;
    }
}

}  // namespace

std::string EscapeString(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (unsigned char code : text) {
        if (code >= 33) {
            escaped += static_cast<char>(code);
        } else if (const char* tag = NamedTag(code)) {
            escaped += tag;
        } else {
            const char digits[] = {'[',
                                   static_cast<char>('0' + code / 100),
                                   static_cast<char>('0' + code / 10 % 10),
                                   static_cast<char>('0' + code % 10),
                                   ']',
                                   '\0'};
            escaped += digits;
        }
    }
    return escaped;
}

}  // namespace corvid::session
