#include "sim/responder.h"

#include <algorithm>

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
    if (faults_.ignoreBlocks > 0 && faults_.ignoreSkip > 0) {
        --faults_.ignoreSkip;
    } else if (faults_.ignoreBlocks > 0) {
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
    if (answer.kind != CommandAnswer::Kind::Nak) {
        ++acceptedBlocks_;
        if (auto cut = CutPowerIfDue()) return cut;
    }
    switch (answer.kind) {
        case CommandAnswer::Kind::Ack:
            return Single(kAckReply, kAck);
        case CommandAnswer::Kind::Nak:
            return Single(kNakReply, kNak,
                          answer.reason.empty() ? "" : "refused: " + answer.reason);
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

std::optional<Reply> Responder::CutPowerIfDue() {
    if (faults_.powerCutAfter <= 0 || --faults_.powerCutAfter > 0) return std::nullopt;
    // Whatever the printer had still to say is gone with the power.
    pendingBlocks_.clear();
    enqAwaitingAck_ = false;
    Reply reply{kAckReply, {}, "power cut for " + std::to_string(faults_.powerOff.count()) + " ms"};
    reply.powerCut = true;
    return reply;
}

Reply Responder::Framed(ReplyKind kind, const std::string& text, char end) {
    if (end == kEtx && faults_.eotEnd.Take(kind)) end = kEot;
    Reply reply{kind, FrameReply(text, end), {}};
    if (faults_.oversize.Take(kind) && text.size() < faults_.oversizeTo) {
        std::string padded = text;
        padded.resize(faults_.oversizeTo, ' ');
        reply.bytes = FrameReply(padded, end);
        Note(reply, "padded to " + std::to_string(faults_.oversizeTo) + " bytes");
    }
    if (faults_.badCheck.Take(kind)) {
        reply.bytes.back() = static_cast<char>(reply.bytes.back() ^ 0x55);
        Note(reply, "bad check byte");
    }
    Decorate(reply);
    return reply;
}

Reply Responder::Single(ReplyKind kind, char byte, std::string note) {
    Reply reply{kind, std::string(1, byte), std::move(note)};
    Decorate(reply);
    return reply;
}

void Responder::Decorate(Reply& reply) {
    if (faults_.enqPrefix.Take(reply.kind)) {
        reply.bytes.insert(reply.bytes.begin(), kEnq);
        enqAwaitingAck_ = true;
    }
    if (faults_.garbage.Take(reply.kind)) reply.bytes.insert(0, faults_.garbageBytes);
    if (faults_.late.Take(reply.kind)) reply.lateBy = faults_.lateBy;
    if (faults_.drop.Take(reply.kind)) {
        reply.sendOnly = std::min(faults_.dropAfter, reply.bytes.size() - 1);
        reply.hangUp = faults_.hangUpOnDrop;
        Note(reply, "line dropped after " + std::to_string(reply.sendOnly) + " bytes" +
                        (reply.hangUp ? ", hung up" : ""));
    }
}

void Responder::Note(Reply& reply, const std::string& what) {
    reply.note += reply.note.empty() ? what : "; " + what;
}

}  // namespace corvid::sim
