#include "sim/wire.h"

#include <cstdio>

namespace corvid::sim {

unsigned char XorOf(std::string_view bytes) {
    unsigned char check = 0;
    for (unsigned char byte : bytes) check ^= byte;
    return check;
}

std::string FrameReply(std::string_view text, char end) {
    std::string reply;
    reply.reserve(text.size() + 3);
    reply += kStx;
    reply += text;
    reply += end;
    reply += static_cast<char>(XorOf(std::string_view(reply).substr(1)));
    return reply;
}

std::string Readable(std::string_view bytes) {
    std::string out;
    for (unsigned char byte : bytes) {
        switch (byte) {
            case kStx:
                out += "[STX]";
                break;
            case kEtx:
                out += "[ETX]";
                break;
            case kEot:
                out += "[EOT]";
                break;
            case kEnq:
                out += "[ENQ]";
                break;
            case kAck:
                out += "[ACK]";
                break;
            case kNak:
                out += "[NAK]";
                break;
            case kEtb:
                out += "[ETB]";
                break;
            default:
                if (byte < 33) {
                    char tag[8];
                    std::snprintf(tag, sizeof tag, "[%03u]", static_cast<unsigned>(byte));
                    out += tag;
                } else {
                    out += static_cast<char>(byte);
                }
        }
    }
    return out;
}

}  // namespace corvid::sim
