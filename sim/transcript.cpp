#include "sim/transcript.h"

#include <cstdio>

#include "sim/wire.h"

namespace corvid::sim {

std::string FormatEntry(const TranscriptEntry& entry, std::chrono::steady_clock::time_point start) {
    double seconds = std::chrono::duration<double>(entry.at - start).count();
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%+12.6f ", seconds);
    std::string line = stamp;
    line += entry.direction == TranscriptEntry::Direction::HostToPrinter ? "host    " : "printer ";
    line += Readable(entry.bytes);
    if (entry.what == TranscriptEntry::What::Block && !entry.checkOk) line += "  (bad check)";
    if (!entry.note.empty()) line += "  (" + entry.note + ")";
    return line;
}

void Transcript::Add(TranscriptEntry entry) {
    Observer observer;
    {
        std::lock_guard lock(mutex_);
        entries_.push_back(entry);
        observer = observer_;
    }
    changed_.notify_all();
    if (observer) observer(entry);
}

void Transcript::Clear() {
    std::lock_guard lock(mutex_);
    entries_.clear();
}

void Transcript::SetObserver(Observer observer) {
    std::lock_guard lock(mutex_);
    observer_ = std::move(observer);
}

std::vector<TranscriptEntry> Transcript::Entries() const {
    std::lock_guard lock(mutex_);
    return entries_;
}

std::vector<std::string> Transcript::Commands() const {
    std::lock_guard lock(mutex_);
    std::vector<std::string> commands;
    for (const auto& entry : entries_) {
        if (entry.what == TranscriptEntry::What::Block) commands.push_back(entry.command);
    }
    return commands;
}

std::size_t Transcript::CountLocked(TranscriptEntry::Direction direction,
                                    TranscriptEntry::What what) const {
    std::size_t n = 0;
    for (const auto& entry : entries_) {
        if (entry.direction == direction && entry.what == what) ++n;
    }
    return n;
}

std::size_t Transcript::Count(TranscriptEntry::Direction direction,
                              TranscriptEntry::What what) const {
    std::lock_guard lock(mutex_);
    return CountLocked(direction, what);
}

bool Transcript::WaitForCount(TranscriptEntry::Direction direction, TranscriptEntry::What what,
                              std::size_t n, std::chrono::milliseconds timeout) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeout, [&] { return CountLocked(direction, what) >= n; });
}

}  // namespace corvid::sim
