#include "sim/host_stream.h"

#include "sim/wire.h"

namespace corvid::sim {

void HostStream::FlushStray(std::vector<HostUnit>& units) {
    if (stray_.empty()) return;
    units.push_back({HostUnit::Kind::Stray, std::move(stray_), {}, false});
    stray_.clear();
}

std::vector<HostUnit> HostStream::Feed(std::string_view bytes) {
    std::vector<HostUnit> units;
    for (char byte : bytes) {
        switch (state_) {
            case State::Idle:
                if (byte == kEnq || byte == kAck) {
                    FlushStray(units);
                    units.push_back({byte == kEnq ? HostUnit::Kind::Enq : HostUnit::Kind::Ack,
                                     std::string(1, byte),
                                     {},
                                     false});
                } else if (byte == kStx) {
                    FlushStray(units);
                    pending_.assign(1, byte);
                    state_ = State::Text;
                } else {
                    stray_ += byte;
                }
                break;
            case State::Text:
                pending_ += byte;
                if (byte == kEtx) state_ = State::Check;
                break;
            case State::Check: {
                HostUnit unit{HostUnit::Kind::Block, std::move(pending_), {}, false};
                // pending_ is STX, command, ETX: the check covers all but the STX.
                unit.command = unit.bytes.substr(1, unit.bytes.size() - 2);
                unit.checkOk =
                    static_cast<char>(XorOf(std::string_view(unit.bytes).substr(1))) == byte;
                unit.bytes += byte;
                units.push_back(std::move(unit));
                pending_.clear();
                state_ = State::Idle;
                break;
            }
        }
    }
    // Stray bytes are reported per piece so that a lone byte is not held back.
    FlushStray(units);
    return units;
}

}  // namespace corvid::sim
