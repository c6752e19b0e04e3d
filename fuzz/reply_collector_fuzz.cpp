// The exchange engine reading whatever a printer (or line noise) sends back.
//
// Input: byte 0 picks the operation (bits 0-1: bare reply waits, commands, a multi-block
// read, or a mix), the time-out (bits 2-3: 1, 2, 0 or -1 s), "SkipChecks" (bit 4) and the
// trace (bits 5 and 6 both set); bytes 1-3 are a table that cuts the rest into reads (1 to
// 32 bytes, each after 0 to 2.5 s of silence). The rest is what arrives on the line,
// whatever the host writes. Once it is used up the printer behaves: it answers a status
// request with a good status and a block with ACK, and says nothing after the host's ACK.
// (A printer that never answers a status request keeps a command waiting for good, as it
// always has, so the harness does not model one.)
//
// Properties: every call returns; a command never sends more than 7 blocks; one reply wait
// lasts no longer than the time-out plus a wait slice and the check byte's wait; a complete
// reply ends with its end byte and holds no ETX before it; a multi-block read takes at most
// one block per ETB on the line plus the first; the collector never raises to the host.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "host/trace_log.h"
#include "host/user_prompts.h"
#include "session/control_values.h"
#include "session/exchange.h"
#include "session/responses.h"
#include "session/serial_line.h"

namespace corvid::fuzz {
namespace {

using session::ACK;
using session::ENQ;
using session::EOT;
using session::ETB;
using session::ETX;
using session::STX;

// Long enough for multi-block replies; longer only slows every input down.
constexpr std::size_t kMaxStream = 1024;
constexpr std::size_t kMaxTracedStream = 48;
constexpr double kByteMs = 1.2;  // one byte at 9600 baud

class FuzzedLine : public session::SerialLine {
  public:
    // `shortSilences`: with no time-out the host asks again at once, so a long silence
    // would cost thousands of status requests without finding more.
    FuzzedLine(automation::FakeClock& clock, const std::uint8_t* table, std::string stream,
               bool shortSilences)
        : clock_(clock), stream_(std::move(stream)), short_silences_(shortSilences) {
        std::copy(table, table + 3, table_);
        NextChunk();
    }

    bool Exhausted() const { return pos_ >= stream_.size(); }
    double now_ms() const { return now_ms_; }
    int blocks_written = 0;
    int writes = 0;

    std::int32_t Open(std::int16_t, const std::string&, const std::string&) override { return 0; }
    std::int32_t Close(std::int16_t) override { return 0; }
    std::int32_t SetLine(std::int16_t, std::int16_t, std::int16_t) override { return 0; }
    std::int32_t Write(std::int16_t, std::string_view data) override {
        ++writes;
        Advance(kByteMs * static_cast<double>(data.size()));
        if (!data.empty() && data[0] == char(STX)) ++blocks_written;
        if (!Exhausted()) return static_cast<std::int32_t>(data.size());
        if (data == std::string(1, char(ENQ))) {
            canned_ += {char(STX), char(0x60), char(0x40), char(ETX), char(0x60 ^ 0x40 ^ ETX)};
        } else if (!data.empty() && data[0] == char(STX)) {
            canned_ += char(ACK);
        }
        return static_cast<std::int32_t>(data.size());
    }
    std::int32_t Read(std::int16_t, std::string& data, std::int32_t size) override {
        data.clear();
        if (size <= 0) return 0;
        const auto most = static_cast<std::size_t>(size);
        if (!Exhausted()) {
            if (now_ms_ < available_at_) return 0;
            const std::size_t n = std::min({chunk_left_, most, stream_.size() - pos_});
            data = stream_.substr(pos_, n);
            pos_ += n;
            chunk_left_ -= n;
            if (chunk_left_ == 0) NextChunk();
        } else if (!canned_.empty()) {
            data = canned_.substr(0, most);
            canned_.erase(0, data.size());
        }
        return static_cast<std::int32_t>(data.size());
    }
    // Returns as soon as bytes are there, as the port does.
    bool WaitReadable(std::int16_t, std::int32_t milliseconds) override {
        if (Readable()) return true;
        double wait = milliseconds;
        if (!Exhausted()) wait = std::min(wait, available_at_ - now_ms_);
        Advance(wait);
        return Readable();
    }
    std::string ErrorText() override { return "Error (0): fuzz - none"; }

  private:
    bool Readable() const { return Exhausted() ? !canned_.empty() : now_ms_ >= available_at_; }
    void Advance(double ms) {
        if (ms <= 0) return;
        now_ms_ += ms;
        clock_.Advance(ms / 1000.0);
    }
    void NextChunk() {
        static constexpr double kSilenceMs[] = {0, 0, 10, 50, 100, 300, 1100, 2500};
        const std::uint8_t entry = table_[next_entry_++ % 3];
        chunk_left_ = 1 + (entry & 0x1F);
        const double silence = kSilenceMs[entry >> 5];
        available_at_ = now_ms_ + (short_silences_ ? std::min(silence, 10.0) : silence);
    }

    automation::FakeClock& clock_;
    std::uint8_t table_[3] = {};
    std::string stream_;
    bool short_silences_;
    std::size_t pos_ = 0;
    std::size_t chunk_left_ = 0;
    std::size_t next_entry_ = 0;
    double available_at_ = 0;
    double now_ms_ = 0;
    std::string canned_;
};

class CountingPrompts : public host::UserPrompts {
  public:
    host::PromptAnswer MessageBox(const std::string& text, host::PromptButtons, host::PromptIcon,
                                  const std::string&) override {
        std::fprintf(stderr, "message box: %s\n", text.c_str());
        ++shown;
        return host::PromptAnswer::kOk;
    }
    int shown = 0;
};

// A complete reply ends with ETX, ETB or EOT, and no ETX comes before its end.
void CheckCompleteReply(const session::Exchange& exchange) {
    if (!exchange.ready()) return;
    const std::string& result = exchange.outcome().result;
    FUZZ_CHECK(!result.empty());
    const char last = result.back();
    FUZZ_CHECK(last == char(ETX) || last == char(ETB) || last == char(EOT));
    FUZZ_CHECK(result.find(char(ETX)) >= result.size() - 1);
    if (exchange.outcome().resultFlag == ETB) FUZZ_CHECK(last == char(ETB));
}

// One wait: the time-out, one more slice, the check byte's wait, and the ACKs it wrote.
void TimedWait(session::Exchange& exchange, FuzzedLine& line, std::int16_t timeOut) {
    const double start = line.now_ms();
    const int writes = line.writes;
    exchange.WaitForReply();
    const double limit = std::max<double>(timeOut, 0) * 1000 + 50 + 50 +
                         kByteMs * (line.writes - writes) + 10;  // float Timer rounding
    FUZZ_CHECK(line.now_ms() - start <= limit);
    CheckCompleteReply(exchange);
}

void CheckedExecute(session::Exchange& exchange, FuzzedLine& line, std::string_view command) {
    const int before = line.blocks_written;
    exchange.Execute(command);
    FUZZ_CHECK(line.blocks_written - before <= 7);
    CheckCompleteReply(exchange);
}

void MultipleResponses(session::Exchange& exchange, std::size_t etbOnLine) {
    std::vector<session::Fields> blocks{session::ReadResponse(exchange, "U3A000001000009")};
    session::ReadFurtherBlocks(exchange, blocks);
    FUZZ_CHECK(blocks.size() <= 1 + etbOnLine);
}

}  // namespace
}  // namespace corvid::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    using namespace corvid::fuzz;
    if (size < 4) return 0;
    ProcessSetup setup;
    auto prompts = std::make_shared<CountingPrompts>();
    const auto previousPrompts = host::ReplaceUserPrompts(prompts);

    const std::uint8_t mode = data[0];
    static constexpr std::int16_t kTimeOuts[] = {1, 2, 0, -1};
    session::ExchangeSettings settings;
    settings.timeOut = kTimeOuts[(mode >> 2) & 3];
    settings.skipChecks = (mode & 0x10) != 0;
    // The trace formats a time stamp per line: traced inputs are kept short.
    const bool traced = (mode & 0x60) == 0x60;
    const std::string stream(reinterpret_cast<const char*>(data + 4),
                             std::min(size - 4, traced ? kMaxTracedStream : kMaxStream));
    const auto etbOnLine = static_cast<std::size_t>(std::count(stream.begin(), stream.end(), ETB));

    host::TraceLog trace;
    if (traced) {
        trace.SetIsDebug(true);
        trace.SetFileEnabled(false);
        trace.AddSink([](const std::string&) {});
    }
    auto line =
        std::make_shared<FuzzedLine>(setup.clock(), data + 1, stream, settings.timeOut <= 0);
    session::Exchange exchange(line, trace, settings);
    exchange.Open(1);
    exchange.PrepareLines();

    switch (mode & 3) {
        case 0:  // the bare collector, reply after reply
            for (int i = 0; i < 256 && !line->Exhausted(); ++i) {
                TimedWait(exchange, *line, settings.timeOut);
            }
            break;
        case 1:  // commands until the line has said everything
            for (int i = 0; i < 16 && !line->Exhausted(); ++i) {
                CheckedExecute(exchange, *line, "S1");
            }
            break;
        case 2:
            MultipleResponses(exchange, etbOnLine);
            break;
        default:
            exchange.GetStatus();
            CheckedExecute(exchange, *line, "w");
            MultipleResponses(exchange, etbOnLine);
            exchange.SendAck();
            CheckCompleteReply(exchange);
            break;
    }
    exchange.Close();
    FUZZ_CHECK(prompts->shown == 0);
    host::ReplaceUserPrompts(previousPrompts);
    return 0;
}
