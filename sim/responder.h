// The printer's side of the protocol, without any I/O: for each unit the host sends it
// decides the reply bytes, applying the planned faults.
//   ENQ            -> STX STS1 STS2 ETX check
//   block, bad check -> NAK
//   block, good    -> the handler's data (STX text ETX check), or for several blocks
//                     STX text ETB check, each further block sent on the host's next ACK;
//                     ACK when the handler has no data; NAK when it refuses (and STS2
//                     shows the refusal until a command is accepted)
//   ACK            -> the next block of a pending multi-block reply; otherwise ignored
//   stray bytes    -> ignored
// A planned power cut replaces the answer to the block that triggers it (see FaultPlan).
// An ENQ or a block from the host abandons the rest of a pending multi-block reply. After
// a reply that began with ENQ, the host's next ACK answers that ENQ and is swallowed.
#pragma once

#include <chrono>
#include <deque>
#include <optional>
#include <string>

#include "sim/command_table.h"
#include "sim/fault_plan.h"
#include "sim/fiscal_state.h"
#include "sim/host_stream.h"

namespace corvid::sim {

struct Reply {
    ReplyKind kind;
    std::string bytes;
    std::string note;  // why a command was refused, or what fault hit it
    // How the line carries it: the bytes that go out before the line drops, whether it
    // then stays down, and how long the reply is held back.
    std::size_t sendOnly = std::string::npos;
    bool hangUp = false;
    std::chrono::milliseconds lateBy{0};
    // Nothing goes out: the printer loses power instead of answering.
    bool powerCut = false;
};

class Responder {
  public:
    FiscalState& state() { return state_; }
    const FiscalState& state() const { return state_; }
    CommandTable& commands() { return commands_; }
    FaultPlan& faults() { return faults_; }

    std::optional<Reply> Answer(const HostUnit& unit);
    // Blocks carried out (answered with ACK or data) since the printer was made.
    int acceptedBlocks() const { return acceptedBlocks_; }

  private:
    std::optional<Reply> AnswerBlock(const HostUnit& unit);
    std::optional<Reply> NextPendingBlock();
    std::optional<Reply> CutPowerIfDue();
    Reply Framed(ReplyKind kind, const std::string& text, char end);
    Reply Single(ReplyKind kind, char byte, std::string note = {});
    void Decorate(Reply& reply);
    void Note(Reply& reply, const std::string& what);

    FiscalState state_;
    CommandTable commands_;
    FaultPlan faults_;
    std::deque<std::string> pendingBlocks_;
    bool enqAwaitingAck_ = false;
    int acceptedBlocks_ = 0;
};

}  // namespace corvid::sim
