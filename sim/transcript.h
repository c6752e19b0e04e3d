// Everything that crossed the line, in order: each unit the host sent and each reply the
// printer gave, with the time it was seen. Safe to read from any thread while the
// simulator runs; a test can wait, with a bound, until a number of units has been seen.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace corvid::sim {

struct TranscriptEntry {
    enum class Direction { HostToPrinter, PrinterToHost };
    enum class What { Enq, Ack, Nak, Block, Stray, StatusReply, DataReply };

    Direction direction;
    What what;
    std::string bytes;
    std::string command;   // Block: the command text
    bool checkOk = false;  // Block: its check byte was right
    std::chrono::steady_clock::time_point at;
    std::string note;  // a reply's explanation, such as why a command was refused
};

// "   +0.012345 host    [ENQ]": seconds since `start` (to the microsecond, so that a
// host's reaction to a reply can be timed from it), the sender and the readable bytes, then
// the note if there is one.
std::string FormatEntry(const TranscriptEntry& entry, std::chrono::steady_clock::time_point start);

class Transcript {
  public:
    using Observer = std::function<void(const TranscriptEntry&)>;

    void Add(TranscriptEntry entry);
    void Clear();
    // Called for every entry added, on the adding thread, outside the lock.
    void SetObserver(Observer observer);

    std::vector<TranscriptEntry> Entries() const;
    // The command of every block the host sent, in order.
    std::vector<std::string> Commands() const;
    std::size_t Count(TranscriptEntry::Direction direction, TranscriptEntry::What what) const;
    // True once Count(...) >= n; false if that has not happened within `timeout`.
    bool WaitForCount(TranscriptEntry::Direction direction, TranscriptEntry::What what,
                      std::size_t n, std::chrono::milliseconds timeout) const;

  private:
    std::size_t CountLocked(TranscriptEntry::Direction direction, TranscriptEntry::What what) const;

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::vector<TranscriptEntry> entries_;
    Observer observer_;
};

}  // namespace corvid::sim
