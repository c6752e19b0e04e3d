// A printer behind the session's serial line, scripted per test: what it answers to ENQ
// and to each block, split into the reads the session will see. Waiting advances a fake
// clock instead of the wall clock, so time-outs cost nothing.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "session/control_values.h"
#include "session/serial_line.h"
#include "support/fake_clock.h"

namespace corvid::session::testing {

// One answer as the reads that deliver it; an empty answer is silence, and an empty
// read inside an answer is one wait slice without bytes.
using Reads = std::vector<std::string>;

inline std::string StatusReply(int sts1, int sts2) {
    std::string reply{char(STX), char(sts1), char(sts2), char(ETX)};
    reply += char(sts1 ^ sts2 ^ ETX);
    return reply;
}

inline std::string DataReply(const std::string& text, int end = ETX) {
    std::string reply = char(STX) + text + char(end);
    char check = 0;
    for (std::size_t i = 1; i < reply.size(); ++i) check ^= reply[i];
    return reply + check;
}

class ScriptedLine : public SerialLine {
  public:
    explicit ScriptedLine(automation::FakeClock& clock) : clock_(clock) {}

    // Answers to the next status requests; when none is queued the default answers.
    std::deque<Reads> statusAnswers;
    Reads defaultStatus{StatusReply(0x60, 0x40)};
    // Answers to the next blocks; when none is queued the block gets ACK.
    std::deque<Reads> blockAnswers;
    // Answers to the host's ACK during a multi-block reply.
    std::deque<Reads> ackAnswers;

    std::vector<std::string> writes;
    std::vector<std::pair<std::int16_t, std::int16_t>> lineChanges;
    std::int32_t openResult = 0;
    std::string errorText = "Error (2): CommOpen (CreateFile) - No such file or directory";
    std::int16_t openedPort = 0;
    std::vector<std::int16_t> closedPorts;

    int Count(const std::string& written) const {
        int n = 0;
        for (const auto& w : writes) n += w == written;
        return n;
    }
    // The command of the i-th block written (without STX, ETX and check).
    std::string Command(int i) const {
        int seen = 0;
        for (const std::string& w : writes) {
            if (!w.empty() && w[0] == char(STX) && seen++ == i) return w.substr(1, w.size() - 3);
        }
        return "<none>";
    }
    int BlocksWritten() const {
        int n = 0;
        for (const auto& w : writes) n += !w.empty() && w[0] == char(STX);
        return n;
    }

    std::int32_t Open(std::int16_t port, const std::string&, const std::string&) override {
        openedPort = port;
        return openResult;
    }
    std::int32_t Close(std::int16_t port) override {
        closedPorts.push_back(port);
        openedPort = 0;
        return 0;
    }
    std::int32_t SetLine(std::int16_t, std::int16_t line, std::int16_t state) override {
        lineChanges.emplace_back(line, state);
        return 0;
    }
    std::int32_t Write(std::int16_t, std::string_view data) override {
        writes.emplace_back(data);
        if (data == std::string(1, char(ENQ))) {
            Deliver(Next(statusAnswers, defaultStatus));
        } else if (data == std::string(1, char(ACK))) {
            if (!ackAnswers.empty()) Deliver(Next(ackAnswers, {}));
        } else if (!data.empty() && data[0] == char(STX)) {
            Deliver(Next(blockAnswers, Reads{std::string(1, char(ACK))}));
        }
        return static_cast<std::int32_t>(data.size());
    }
    std::int32_t Read(std::int16_t, std::string& data, std::int32_t) override {
        data.clear();
        if (pending_.empty() || pending_.front().empty()) return 0;
        data = pending_.front();
        pending_.pop_front();
        return static_cast<std::int32_t>(data.size());
    }
    bool WaitReadable(std::int16_t, std::int32_t milliseconds) override {
        ++waits;
        if (!pending_.empty() && !pending_.front().empty()) return true;
        // An empty read in a script is one slice of silence.
        if (!pending_.empty()) pending_.pop_front();
        clock_.Advance(milliseconds / 1000.0);
        return false;
    }
    std::string ErrorText() override { return errorText; }

    int waits = 0;

  private:
    static Reads Next(std::deque<Reads>& queue, const Reads& fallback) {
        if (queue.empty()) return fallback;
        Reads next = queue.front();
        queue.pop_front();
        return next;
    }
    void Deliver(const Reads& reads) {
        for (const auto& r : reads) pending_.push_back(r);
    }

    automation::FakeClock& clock_;
    std::deque<std::string> pending_;
};

}  // namespace corvid::session::testing
