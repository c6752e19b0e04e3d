#include "sim/simulator.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include "sim/builtin_commands.h"

namespace corvid::sim {

namespace {

using Clock = std::chrono::steady_clock;
using Direction = TranscriptEntry::Direction;
using What = TranscriptEntry::What;

What WhatOf(HostUnit::Kind kind) {
    switch (kind) {
        case HostUnit::Kind::Enq:
            return What::Enq;
        case HostUnit::Kind::Ack:
            return What::Ack;
        case HostUnit::Kind::Block:
            return What::Block;
        case HostUnit::Kind::Stray:
            break;
    }
    return What::Stray;
}

What WhatOf(ReplyKind kind) {
    switch (kind) {
        case kStatusReply:
            return What::StatusReply;
        case kDataReply:
            return What::DataReply;
        case kAckReply:
            return What::Ack;
        case kNakReply:
            break;
    }
    return What::Nak;
}

// Adds n to a counted fault and points it at `kinds`; what it still has to skip stays.
void Arm(CountedFault& fault, int n, unsigned kinds) {
    fault.remaining += n;
    fault.kinds = kinds;
}

}  // namespace

Simulator::Simulator(SimulatorConfig config)
    : linkPath_(std::move(config.linkPath)),
      paperPath_(std::move(config.paperPath)),
      pacer_(config.paced ? kByteTimeAt9600Baud8E1 : std::chrono::nanoseconds{}) {
    responder_.state() = std::move(config.printer);
    responder_.faults() = std::move(config.faults);
    RegisterBuiltinCommands(responder_.commands());
}

Simulator::~Simulator() { Stop(); }

void Simulator::Start() {
    if (thread_.joinable()) throw std::logic_error("simulator already running");
    {
        std::lock_guard lock(mutex_);
        if (!paperPath_.empty()) responder_.state().paper.WriteTo(paperPath_);
        responder_.state().LoadMemory();
    }
    int pipeEnds[2];
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    wakeRead_ = pipeEnds[0];
    wakeWrite_ = pipeEnds[1];
    try {
        auto terminal = std::make_unique<PseudoTerminal>(linkPath_);
        std::lock_guard lock(mutex_);
        slavePath_ = terminal->slavePath();
        terminal_ = std::move(terminal);
    } catch (...) {
        close(wakeRead_);
        close(wakeWrite_);
        wakeRead_ = wakeWrite_ = -1;
        throw;
    }
    stopping_ = false;
    hangUp_ = false;
    startTime_ = Clock::now();
    thread_ = std::thread([this] { Serve(); });
}

void Simulator::Stop() {
    stopping_ = true;
    Wake();
    if (thread_.joinable() && thread_.get_id() != std::this_thread::get_id()) thread_.join();
    if (thread_.joinable()) return;  // asked from a handler: the thread ends by itself
    terminal_.reset();
    if (wakeRead_ >= 0) close(wakeRead_);
    if (wakeWrite_ >= 0) close(wakeWrite_);
    wakeRead_ = wakeWrite_ = -1;
}

void Simulator::HangUp() {
    hangUp_ = true;
    Wake();
    if (thread_.joinable() && thread_.get_id() != std::this_thread::get_id()) thread_.join();
}

void Simulator::Wake() {
    if (wakeWrite_ < 0) return;
    char byte = 1;
    // A full pipe already holds a wake-up, so a failed write loses nothing.
    [[maybe_unused]] ssize_t written = write(wakeWrite_, &byte, 1);
}

std::string Simulator::SlavePath() const {
    std::lock_guard lock(mutex_);
    return slavePath_;
}

void Simulator::Serve() {
    // The kernel may otherwise let each timed wait of a paced line overrun by 50 us.
    if (pacer_.paced()) prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
    HostStream stream;
    const int master = terminal_->master();
    char buffer[4096];
    while (!stopping_ && !hangUp_) {
        pollfd fds[2] = {{master, POLLIN, 0}, {wakeRead_, POLLIN, 0}};
        int ready = poll(fds, 2, 250);
        if (ready < 0) {
            if (errno == EINTR) continue;
            break;
        }
        if (stopping_ || hangUp_) break;
        if ((fds[0].revents & POLLIN) != 0) {
            ssize_t n = read(master, buffer, sizeof buffer);
            if (n <= 0) continue;
            Receive(stream, std::string_view(buffer, static_cast<std::size_t>(n)));
        } else if ((fds[0].revents & (POLLHUP | POLLERR)) != 0) {
            Pause(std::chrono::milliseconds(20));  // no reader yet; do not spin
        }
    }
    if (hangUp_) terminal_->Close();
}

void Simulator::Receive(HostStream& stream, std::string_view bytes) {
    if (PoweredOff()) return Lose(stream, bytes);
    if (!pacer_.paced()) {
        for (const HostUnit& unit : stream.Feed(bytes)) Take(stream, unit);
        return;
    }
    // Each unit is handled once its last byte would have come in over the line.
    const auto seen = Clock::now();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto arrived = pacer_.Received(seen);
        for (const HostUnit& unit : stream.Feed(bytes.substr(i, 1))) {
            if (!PauseUntil(arrived)) return;
            Take(stream, unit);
        }
    }
}

void Simulator::Take(HostStream& stream, const HostUnit& unit) {
    if (PoweredOff()) return Lose(stream, unit.bytes);
    HandleUnit(unit);
}

void Simulator::Lose(HostStream& stream, std::string_view bytes) {
    stream = HostStream();  // a block begun before the cut is gone too
    transcript_.Add({Direction::HostToPrinter,
                     What::Stray,
                     std::string(bytes),
                     {},
                     false,
                     Clock::now(),
                     "lost: the printer is off"});
}

void Simulator::HandleUnit(const HostUnit& unit) {
    transcript_.Add({Direction::HostToPrinter,
                     WhatOf(unit.kind),
                     unit.bytes,
                     unit.command,
                     unit.checkOk,
                     Clock::now(),
                     {}});
    std::optional<Reply> reply;
    std::chrono::milliseconds off;
    {
        std::lock_guard lock(mutex_);
        reply = responder_.Answer(unit);
        off = responder_.faults().powerOff;
    }
    blockAccepted_.notify_all();
    if (reply && reply->powerCut) {
        poweredOnAt_ = Clock::now() + off;
        transcript_.Add(
            {Direction::PrinterToHost, What::Stray, {}, {}, false, Clock::now(), reply->note});
    } else if (reply) {
        SendReply(*reply);
    }
}

void Simulator::SendReply(const Reply& reply) {
    std::chrono::milliseconds delay, pause;
    std::size_t chunk;
    {
        std::lock_guard lock(mutex_);
        delay = responder_.faults().delay;
        pause = responder_.faults().chunkPause;
        chunk = responder_.faults().chunkSize;
    }
    delay += reply.lateBy;
    if (delay.count() > 0 && !Pause(delay)) return;
    // The transcript shows what went out, a dropped reply's first bytes only.
    const std::string_view bytes = std::string_view(reply.bytes).substr(0, reply.sendOnly);
    transcript_.Add({Direction::PrinterToHost,
                     WhatOf(reply.kind),
                     std::string(bytes),
                     {},
                     false,
                     Clock::now(),
                     reply.note});
    if (chunk == 0) chunk = bytes.size();
    for (std::size_t at = 0; at < bytes.size(); at += chunk) {
        if (at > 0 && !Pause(pause)) return;
        if (!WriteAll(bytes.data() + at, std::min(chunk, bytes.size() - at))) return;
    }
    if (reply.hangUp) hangUp_ = true;  // the serving loop ends and closes the terminal
}

bool Simulator::WriteAll(const char* data, std::size_t size) {
    const int master = terminal_->master();
    // Paced, each byte goes out once the line would have carried it, on a schedule counted
    // from when the bytes were ready, so that a late wake-up does not push the rest back.
    const auto ready = Clock::now();
    while (size > 0) {
        if (pacer_.paced() && !PauseUntil(pacer_.Sent(ready))) return false;
        ssize_t n = write(master, data, pacer_.paced() ? 1 : size);
        if (n > 0) {
            data += n;
            size -= static_cast<std::size_t>(n);
            continue;
        }
        if (n < 0 && errno != EAGAIN && errno != EINTR) return false;
        // The host is not reading: wait for room, but give way to a stop.
        pollfd fds[2] = {{master, POLLOUT, 0}, {wakeRead_, POLLIN, 0}};
        poll(fds, 2, 100);
        if (stopping_ || hangUp_) return false;
    }
    return true;
}

bool Simulator::Pause(std::chrono::milliseconds duration) {
    return PauseUntil(Clock::now() + duration);
}

bool Simulator::PauseUntil(Clock::time_point deadline) {
    while (!stopping_ && !hangUp_) {
        auto left = std::chrono::duration_cast<std::chrono::nanoseconds>(deadline - Clock::now());
        if (left.count() <= 0) return true;
        const timespec timeout{static_cast<time_t>(left.count() / 1'000'000'000),
                               static_cast<long>(left.count() % 1'000'000'000)};
        pollfd wake{wakeRead_, POLLIN, 0};
        ppoll(&wake, 1, &timeout, nullptr);
    }
    return false;
}

void Simulator::NakNextBlocks(int n) {
    ChangeFaults([n](FaultPlan& plan) { plan.nakBlocks += n; });
}

void Simulator::IgnoreNextBlocks(int n) {
    ChangeFaults([n](FaultPlan& plan) { plan.ignoreBlocks += n; });
}

void Simulator::SilenceNextStatusRequests(int n) {
    ChangeFaults([n](FaultPlan& plan) { plan.silentEnqs += n; });
}

void Simulator::PrefixNextRepliesWithEnq(int n, unsigned kinds) {
    ChangeFaults([=](FaultPlan& plan) { Arm(plan.enqPrefix, n, kinds); });
}

void Simulator::EndNextRepliesWithEot(int n, unsigned kinds) {
    ChangeFaults([=](FaultPlan& plan) { Arm(plan.eotEnd, n, kinds); });
}

void Simulator::SendGarbageBeforeNextReplies(int n, unsigned kinds) {
    ChangeFaults([=](FaultPlan& plan) { Arm(plan.garbage, n, kinds); });
}

void Simulator::SpoilNextCheckBytes(int n, unsigned kinds) {
    ChangeFaults([=](FaultPlan& plan) { Arm(plan.badCheck, n, kinds); });
}

void Simulator::OversizeNextReplies(int n, std::size_t size, unsigned kinds) {
    ChangeFaults([=](FaultPlan& plan) {
        Arm(plan.oversize, n, kinds);
        plan.oversizeTo = size;
    });
}

void Simulator::DropLineInNextReplies(int n, std::size_t afterBytes, unsigned kinds, bool hangUp) {
    ChangeFaults([=](FaultPlan& plan) {
        Arm(plan.drop, n, kinds);
        plan.dropAfter = afterBytes;
        plan.hangUpOnDrop = hangUp;
    });
}

void Simulator::HoldBackNextReplies(int n, std::chrono::milliseconds by, unsigned kinds) {
    ChangeFaults([=](FaultPlan& plan) {
        Arm(plan.late, n, kinds);
        plan.lateBy = by;
    });
}

void Simulator::SetReplyDelay(std::chrono::milliseconds delay) {
    ChangeFaults([=](FaultPlan& plan) { plan.delay = delay; });
}

void Simulator::SetChunking(std::size_t chunkSize, std::chrono::milliseconds pause) {
    ChangeFaults([=](FaultPlan& plan) {
        plan.chunkSize = chunkSize;
        plan.chunkPause = pause;
    });
}

void Simulator::SetMuted(bool muted) {
    ChangeFaults([=](FaultPlan& plan) { plan.muted = muted; });
}

void Simulator::PowerCutAfter(int blocks, std::chrono::milliseconds off) {
    ChangeFaults([=](FaultPlan& plan) {
        plan.powerCutAfter = blocks;
        plan.powerOff = off;
    });
}

void Simulator::ChangeFaults(const std::function<void(FaultPlan&)>& change) {
    std::lock_guard lock(mutex_);
    change(responder_.faults());
}

void Simulator::SetStatusBytes(unsigned char sts1, unsigned char sts2) {
    ChangeState([=](FiscalState& state) {
        state.forcedSts1 = sts1;
        state.forcedSts2 = sts2;
    });
}

void Simulator::ChangeState(const std::function<void(FiscalState&)>& change) {
    std::lock_guard lock(mutex_);
    change(responder_.state());
}

void Simulator::RegisterHandler(std::string prefix, CommandHandler handler) {
    std::lock_guard lock(mutex_);
    responder_.commands().Register(std::move(prefix), std::move(handler));
}

std::string Simulator::PaperText() const {
    std::lock_guard lock(mutex_);
    return responder_.state().paper.Text();
}

bool Simulator::WaitForBlocks(std::size_t n, std::chrono::milliseconds timeout) const {
    return transcript_.WaitForCount(Direction::HostToPrinter, What::Block, n, timeout);
}

int Simulator::AcceptedBlocks() const {
    std::lock_guard lock(mutex_);
    return responder_.acceptedBlocks();
}

bool Simulator::WaitForAcceptedBlocks(int n, std::chrono::milliseconds timeout) const {
    std::unique_lock lock(mutex_);
    return blockAccepted_.wait_for(lock, timeout, [&] { return responder_.acceptedBlocks() >= n; });
}

}  // namespace corvid::sim
