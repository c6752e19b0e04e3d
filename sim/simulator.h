// A virtual fiscal printer on a pseudo-terminal, served by its own thread. The host opens
// slavePath() like a serial port. Faults can be planned before or while it runs; the
// transcript records every exchange. All public members are thread-safe.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "sim/command_table.h"
#include "sim/fault_plan.h"
#include "sim/fiscal_state.h"
#include "sim/line_pacer.h"
#include "sim/pseudo_terminal.h"
#include "sim/responder.h"
#include "sim/transcript.h"

namespace corvid::sim {

struct SimulatorConfig {
    FiscalState printer;
    FaultPlan faults;
    std::string linkPath;   // symbolic link to create to the slave; none when empty
    std::string paperPath;  // file that receives each printed document; none when empty
    bool paced = false;     // bytes move at the speed of a 9600-baud 8E1 line
};

class Simulator {
  public:
    explicit Simulator(SimulatorConfig config = {});
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    // Opens the terminal (and empties the paper file), reads the fiscal memory's file and
    // starts serving; throws std::system_error or std::runtime_error on failure.
    void Start();
    // Stops serving and closes the terminal; safe to call twice.
    void Stop();
    std::string SlavePath() const;

    // Faults; see FaultPlan. Counted ones add to what is still pending.
    void NakNextBlocks(int n);
    void IgnoreNextBlocks(int n);
    void SilenceNextStatusRequests(int n);
    void PrefixNextRepliesWithEnq(int n, unsigned kinds = kFramedReplies);
    void EndNextRepliesWithEot(int n, unsigned kinds = kFramedReplies);
    void SendGarbageBeforeNextReplies(int n, unsigned kinds = kFramedReplies);
    void SpoilNextCheckBytes(int n, unsigned kinds = kFramedReplies);
    // Pads the text of the next framed replies of `kinds` to `size` bytes.
    void OversizeNextReplies(int n, std::size_t size, unsigned kinds = kDataReply);
    // Sends only the first `afterBytes` of the next replies (at least one byte short);
    // with `hangUp` the line then stays down for good.
    void DropLineInNextReplies(int n, std::size_t afterBytes, unsigned kinds = kFramedReplies,
                               bool hangUp = false);
    void HoldBackNextReplies(int n, std::chrono::milliseconds by, unsigned kinds = kAnyReply);
    void SetReplyDelay(std::chrono::milliseconds delay);
    void SetChunking(std::size_t chunkSize,
                     std::chrono::milliseconds pause = std::chrono::milliseconds(3));
    void SetMuted(bool muted);
    // The printer loses power once it has carried out the next `blocks` blocks, for `off`;
    // see FaultPlan::powerCutAfter. Replaces a cut still pending.
    void PowerCutAfter(int blocks, std::chrono::milliseconds off = std::chrono::milliseconds(3000));
    // Drops the line for good: the terminal is closed and serving stops.
    void HangUp();
    // Runs `change` on the plan under the simulator's lock, for anything not covered above.
    void ChangeFaults(const std::function<void(FaultPlan&)>& change);

    // The printer's own state and commands, changed under the simulator's lock.
    void SetStatusBytes(unsigned char sts1, unsigned char sts2);
    void ChangeState(const std::function<void(FiscalState&)>& change);
    void RegisterHandler(std::string prefix, CommandHandler handler);
    // Everything the printer has printed so far, as UTF-8 text.
    std::string PaperText() const;

    Transcript& transcript() { return transcript_; }
    const Transcript& transcript() const { return transcript_; }
    // Waits until the host has sent `n` blocks in all; false after `timeout`.
    bool WaitForBlocks(std::size_t n, std::chrono::milliseconds timeout) const;
    // Blocks the printer has carried out in all (answered with ACK or data, or lost power
    // on), counted as they take effect, before any answer goes out.
    int AcceptedBlocks() const;
    // Waits until AcceptedBlocks() reaches `n`; false after `timeout`.
    bool WaitForAcceptedBlocks(int n, std::chrono::milliseconds timeout) const;
    std::chrono::steady_clock::time_point startTime() const { return startTime_; }

  private:
    using Clock = std::chrono::steady_clock;
    void Serve();
    void Receive(HostStream& stream, std::string_view bytes);
    // Handles a unit, or loses it while the printer is off.
    void Take(HostStream& stream, const HostUnit& unit);
    void Lose(HostStream& stream, std::string_view bytes);
    bool PoweredOff() const { return Clock::now() < poweredOnAt_; }
    void HandleUnit(const HostUnit& unit);
    void SendReply(const Reply& reply);
    bool WriteAll(const char* data, std::size_t size);
    bool Pause(std::chrono::milliseconds duration);
    // False when the simulator is told to stop first.
    bool PauseUntil(std::chrono::steady_clock::time_point deadline);
    void Wake();

    mutable std::mutex mutex_;
    mutable std::condition_variable blockAccepted_;
    Responder responder_;
    std::string linkPath_;
    std::string paperPath_;
    LinePacer pacer_;                  // used by the serving thread only
    Clock::time_point poweredOnAt_{};  // the serving thread's; later than now while off
    std::unique_ptr<PseudoTerminal> terminal_;
    std::string slavePath_;
    Transcript transcript_;
    std::thread thread_;
    std::atomic<bool> stopping_{false};
    std::atomic<bool> hangUp_{false};
    int wakeRead_ = -1;
    int wakeWrite_ = -1;
    std::chrono::steady_clock::time_point startTime_ = std::chrono::steady_clock::now();
};

}  // namespace corvid::sim
