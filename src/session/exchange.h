// The exchange engine: opens and closes the session's port and carries out one command
// exchange with the printer (status request, framed block, the reply, re-sending after
// NAK), leaving the outcome behind. "SkipChecks" is one of its rules: no status request
// and no reply wait.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/trace_log.h"
#include "session/exchange_outcome.h"
#include "session/serial_line.h"

namespace corvid::session {

// How a block sent once fared (Deliver).
enum class Delivery {
    kAccepted,  // the printer answered ACK
    kRefused,   // the printer answered NAK to every attempt: it did not take the block
    kUnclear,   // the block went out but its answer was lost or garbled: ask the printer
    kNoAnswer,  // no status before sending: nothing went out
};

struct ExchangeSettings {
    bool skipChecks = false;
    // Seconds one reply wait may last.
    std::int16_t timeOut = 10;
    // Seconds one Execute may wait in all before it gives up; 0 sets no bound, and a
    // printer that never answers ENQ is then asked for status for ever.
    double maxWait = 0;
};

class Exchange {
  public:
    Exchange(std::shared_ptr<SerialLine> line, host::TraceLog& trace, ExchangeSettings settings);

    ExchangeOutcome& outcome() { return outcome_; }
    const ExchangeOutcome& outcome() const { return outcome_; }
    const ExchangeSettings& settings() const { return settings_; }
    // The last wait saw a complete reply.
    bool ready() const { return ready_; }
    // The port in use; 0 when none. A failed Open leaves the number set.
    std::int16_t port() const { return port_; }

    // Opens "COM" & port (the caller closes the port in use first). Raises error 40001
    // when the port cannot be opened; the number stays.
    void Open(std::int16_t port);
    void Close();
    // Clears RTS, raises DTR.
    void PrepareLines();

    // Writes `text` to the trace.
    void Trace(const std::string& text) const { trace_.Trace(text); }

    // Sends ENQ and decodes the status bytes into STS1 and STS2.
    void GetStatus();
    // Collects one reply within the time-out.
    void WaitForReply();
    // The full checked exchange; returns pfError.
    std::int16_t Execute(std::string_view command);
    // The service's way of sending: like Execute, but a block whose answer was lost or
    // unclear is never sent again, since the printer may have carried it out. Only a NAK,
    // which says the printer did not take it, lets the block go out again.
    Delivery Deliver(std::string_view command);
    // Frames and writes, without status or wait; refuses when no port is open.
    void ExecuteNoCheck(std::string_view command);
    // Frames and writes, without status or wait, open port or not.
    void SendDirect(std::string_view command);
    // Writes ACK, then waits for a reply.
    void SendAck();
    // Writes one ACK and nothing more.
    void WriteAck();

  private:
    void CollectReply();
    // Takes one read into the reply; false when it was a lone NAK or ACK, which ends the
    // wait at once.
    bool TakeChunk(std::string chunk);
    // pfError and DescripcionError from how the wait ended.
    void SettleOutcome();
    void DiscardLateCheckByte();
    void SetOutcome(std::int32_t error, const char* description);
    // Whether the running Execute has used up "MaxWait"; never while none runs.
    bool OutOfTime() const;

    std::shared_ptr<SerialLine> line_;
    host::TraceLog& trace_;
    ExchangeSettings settings_;
    ExchangeOutcome outcome_;
    std::int16_t port_ = 0;
    bool ready_ = false;
    // Clock reading when the running Execute began, if its wait is bounded.
    std::optional<float> boundStart_;
};

}  // namespace corvid::session
