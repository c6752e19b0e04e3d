#include "sim/responder.h"

#include "sim/wire.h"

namespace corvid::sim {

std::optional<Reply> Responder::Answer(const HostUnit& unit) {
    if (faults_.muted) return std::nullopt;
    bool swallowAck = enqAwaitingAck_;
    enqAwaitingAck_ = false;
    switch (unit.kind) {
        case HostUnit::Kind::Enq:
            pendingBlocks_.clear();
            if (faults_.silentEnqs > 0) {
                --faults_.silentEnqs;
                return std::nullopt;
            }
            return Framed(kStatusReply,
                          {static_cast<char>(state_.Sts1()), static_cast<char>(state_.Sts2())},
                          kEtx);
        case HostUnit::Kind::Block:
            pendingBlocks_.clear();
            return AnswerBlock(unit);
        case HostUnit::Kind::Ack:
            if (swallowAck) return std::nullopt;
            return NextPendingBlock();
        case HostUnit::Kind::Stray:
            break;
    }
    return std::nullopt;
}

std::optional<Reply> Responder::AnswerBlock(const HostUnit& unit) {
    if (faults_.ignoreBlocks > 0) {
        --faults_.ignoreBlocks;
        return std::nullopt;
    }
    if (faults_.nakBlocks > 0) {
        --faults_.nakBlocks;
        return Single(kNakReply, kNak);
    }
    if (!unit.checkOk) return Single(kNakReply, kNak);
    CommandAnswer answer = commands_.Dispatch(unit.command, state_);
    state_.lastCommandRefused = answer.kind == CommandAnswer::Kind::Nak;
    switch (answer.kind) {
        case CommandAnswer::Kind::Ack:
            return Single(kAckReply, kAck);
        case CommandAnswer::Kind::Nak: {
            Reply reply = Single(kNakReply, kNak);
            if (!answer.reason.empty()) reply.note = "refused: " + answer.reason;
            return reply;
        }
        case CommandAnswer::Kind::Data:
            break;
    }
    if (answer.blocks.empty()) return Single(kAckReply, kAck);
    pendingBlocks_.assign(answer.blocks.begin(), answer.blocks.end());
    return NextPendingBlock();
}

std::optional<Reply> Responder::NextPendingBlock() {
    if (pendingBlocks_.empty()) return std::nullopt;
    std::string text = std::move(pendingBlocks_.front());
    pendingBlocks_.pop_front();
    return Framed(kDataReply, text, pendingBlocks_.empty() ? kEtx : kEtb);
}

Reply Responder::Framed(ReplyKind kind, const std::string& text, char end) {
    if (end == kEtx && faults_.eotEnd.Take(kind)) end = kEot;
    Reply reply{kind, FrameReply(text, end), {}};
    Decorate(reply);
    return reply;
}

Reply Responder::Single(ReplyKind kind, char byte) {
    Reply reply{kind, std::string(1, byte), {}};
    Decorate(reply);
    return reply;
}

void Responder::Decorate(Reply& reply) {
    if (faults_.enqPrefix.Take(reply.kind)) {
        reply.bytes.insert(reply.bytes.begin(), kEnq);
        enqAwaitingAck_ = true;
    }
    if (faults_.garbage.Take(reply.kind)) reply.bytes.insert(0, faults_.garbageBytes);
}

}  // namespace corvid::sim
