// The faults the simulated printer is told to commit. Counted faults apply to the next N
// replies of the kinds they select and then wear off, so a test knows exactly which
// exchange is hit; delay and chunking stay until changed.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace corvid::sim {

// Kinds of reply, as bits, to select which replies a counted fault hits.
enum ReplyKind : unsigned {
    kStatusReply = 1,  // STX STS1 STS2 ETX check, the answer to ENQ
    kDataReply = 2,    // one block of a command's data
    kAckReply = 4,     // the command was accepted
    kNakReply = 8,     // the block was refused
};
inline constexpr unsigned kFramedReplies = kStatusReply | kDataReply;
inline constexpr unsigned kAnyReply = kFramedReplies | kAckReply | kNakReply;

struct CountedFault {
    int remaining = 0;
    unsigned kinds = kFramedReplies;
    // Replies of the kinds to let pass before the fault starts, e.g. 1 to spare the
    // first block of a multi-block reply and hit the next one.
    int skip = 0;

    // Spends one count if the fault is armed for `kind`.
    bool Take(ReplyKind kind);
};

struct FaultPlan {
    int nakBlocks = 0;     // refuse the next N blocks with NAK, whatever their check
    int ignoreBlocks = 0;  // answer nothing to the next N blocks
    int ignoreSkip = 0;    // blocks to answer first, before ignoreBlocks starts
    int silentEnqs = 0;    // answer nothing to the next N status requests
    bool muted = false;    // answer nothing at all (the line is dead)

    CountedFault enqPrefix;  // send ENQ before the reply
    CountedFault eotEnd;     // end the reply with EOT instead of ETX (ETB blocks are not hit)
    CountedFault garbage;    // send garbageBytes before the reply
    std::string garbageBytes = "\xFF\x11\x7F";

    // Framed replies only: a check byte that does not match the reply.
    CountedFault badCheck;
    // Framed replies only: the text padded with blanks to oversizeTo bytes, more than
    // one read of the host takes.
    CountedFault oversize{0, kDataReply, 0};
    std::size_t oversizeTo = 5000;
    // The line drops in the middle of the reply: only its first dropAfter bytes go out
    // (never all of it). With hangUpOnDrop the terminal is then closed for good;
    // otherwise the printer goes on listening.
    CountedFault drop;
    std::size_t dropAfter = 3;
    bool hangUpOnDrop = false;
    // The reply goes out lateBy after the request (on top of `delay`).
    CountedFault late;
    std::chrono::milliseconds lateBy{0};

    // The printer loses power once it has carried out this many more blocks: the last one
    // takes effect but is not answered, and for powerOff the printer answers nothing and
    // what the host sends is lost. It comes back with its fiscal state and open document
    // as they were. 0: no cut.
    int powerCutAfter = 0;
    std::chrono::milliseconds powerOff{3000};

    std::chrono::milliseconds delay{0};  // wait before every reply
    std::size_t chunkSize = 0;           // write replies in pieces of this many bytes; 0: whole
    std::chrono::milliseconds chunkPause{3};  // pause between pieces
};

}  // namespace corvid::sim
