// A session on a scripted line, with in-memory settings and a fake clock. The line plays a
// printer scripted per test: what it answers to ENQ and to each block, split into the
// reads the session will see. Waiting advances the fake clock, so time-outs cost nothing.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "host/library_settings.h"
#include "session/printer_fiscal.h"
#include "session/serial_line.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"

namespace corvid::session::testing {

// One answer as the reads that deliver it; an empty answer is silence, and an empty
// read inside an answer is one wait slice without bytes.
using Reads = std::vector<std::string>;

inline std::string Byte(int code) { return std::string(1, char(code)); }

inline std::string StatusReply(int sts1, int sts2) {
    return std::string{char(STX), char(sts1), char(sts2), char(ETX), char(sts1 ^ sts2 ^ ETX)};
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
    std::int16_t openedPort = 0;
    std::vector<std::int16_t> closedPorts;
    int waits = 0;

    int Count(const std::string& written) const {
        return static_cast<int>(std::count(writes.begin(), writes.end(), written));
    }
    // The commands of the blocks written (without STX, ETX and check).
    std::vector<std::string> Commands() const {
        std::vector<std::string> commands;
        for (const std::string& w : writes) {
            if (!w.empty() && w[0] == char(STX)) commands.push_back(w.substr(1, w.size() - 3));
        }
        return commands;
    }
    int BlocksWritten() const { return static_cast<int>(Commands().size()); }

    std::int32_t Open(std::int16_t port, const std::string&, const std::string&) override {
        openedPort = port;
        return 0;
    }
    std::int32_t Close(std::int16_t port) override {
        closedPorts.push_back(port);
        return 0;
    }
    std::int32_t SetLine(std::int16_t, std::int16_t line, std::int16_t state) override {
        lineChanges.emplace_back(line, state);
        return 0;
    }
    std::int32_t Write(std::int16_t, std::string_view data) override {
        writes.emplace_back(data);
        if (data == Byte(ENQ)) {
            Deliver(statusAnswers, defaultStatus);
        } else if (data == Byte(ACK)) {
            Deliver(ackAnswers, {});
        } else if (!data.empty() && data[0] == char(STX)) {
            Deliver(blockAnswers, Reads{Byte(ACK)});
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
        if (!pending_.empty()) pending_.pop_front();  // one slice of silence
        clock_.Advance(milliseconds / 1000.0);
        return false;
    }
    std::string ErrorText() override { return "Error (2): CommOpen - No such file"; }

  private:
    void Deliver(std::deque<Reads>& queue, const Reads& fallback) {
        const Reads reads = queue.empty() ? fallback : queue.front();
        if (!queue.empty()) queue.pop_front();
        pending_.insert(pending_.end(), reads.begin(), reads.end());
    }

    automation::FakeClock& clock_;
    std::deque<std::string> pending_;
};

class SessionTest : public ::testing::Test {
  protected:
    void Set(const std::string& key, const std::string& value,
             const std::string& section = host::kSessionSection) {
        settings_->SetIniValue(host::kApplication, section, key, value);
    }
    // A session created now, from the settings set so far.
    PrinterFiscal& Session() {
        if (!session_) session_ = std::make_unique<PrinterFiscal>(line_);
        return *session_;
    }
    PrinterFiscal& OpenSession(std::int16_t port = 1) {
        Session().SetSerialPrinter("Z1F0000001");  // no S1 query at Abrir
        session_->Abrir(port);
        line_->writes.clear();
        return *session_;
    }

    host::ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> fakeClock_ = std::make_shared<automation::FakeClock>();
    automation::ScopedClock clock_{fakeClock_};
    std::shared_ptr<ScriptedLine> line_ = std::make_shared<ScriptedLine>(*fakeClock_);
    std::unique_ptr<PrinterFiscal> session_;
};

}  // namespace corvid::session::testing
