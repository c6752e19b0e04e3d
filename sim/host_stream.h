// Cuts the bytes the host writes into the units the printer reacts to: a status request
// (ENQ), an acknowledgement (ACK), a command block (STX, command, ETX, check byte) or
// stray bytes. Bytes may arrive in any pieces; a block is reported once its check byte
// has arrived. Inside a block every byte up to ETX is command text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvid::sim {

struct HostUnit {
    enum class Kind { Enq, Ack, Block, Stray };
    Kind kind;
    std::string bytes;     // exactly as received
    std::string command;   // Block: the text between STX and ETX
    bool checkOk = false;  // Block: the check byte is the XOR of the command and ETX
};

class HostStream {
  public:
    // Consumes `bytes` and returns every unit they complete, in order.
    std::vector<HostUnit> Feed(std::string_view bytes);

  private:
    enum class State { Idle, Text, Check };
    void FlushStray(std::vector<HostUnit>& units);

    State state_ = State::Idle;
    std::string pending_;  // bytes of the unit being collected
    std::string stray_;
};

}  // namespace corvid::sim
