#include "host/trace_log.h"

#include <cstdio>

#include "automation/clock.h"
#include "host/settings_store.h"
#include "host/special_folder.h"
#include "host/trace_line.h"

namespace corvid::host {
namespace {

std::string CurrentTraceLine(const std::string& message) {
    automation::Clock& clock = automation::CurrentClock();
    return FormatTraceLine(clock.Now(), clock.SecondsSinceMidnight(), message);
}

std::string TraceFileSetting() {
    const std::string fallback = SHgetFolder(kCsidlPersonal) + PathSeparator() + "FPRINTER.LOG";
    return GetSettingString("ORV", "CONFIG\\NimbusPF", "DEBUGFILE", fallback);
}

}  // namespace

int TraceLog::AddSink(Sink sink) {
    const int id = next_sink_id_++;
    sinks_.emplace(id, std::move(sink));
    return id;
}

void TraceLog::RemoveSink(int id) { sinks_.erase(id); }

void TraceLog::Trace(const std::string& message) {
    if (!is_debug_) return;
    try {
        if (debug_inmediato_) {
            AddToDebugView(message);
            if (!sinks_.empty()) FeedSinks(CurrentTraceLine(message));
            return;
        }
        const std::string line = CurrentTraceLine(message);
        if (file_enabled_) AppendToFile(line);
        FeedSinks(line);
    } catch (...) {
        // The trace must never disturb the exchange it records.
    }
}

void TraceLog::AddToDebugView(const std::string& message) {
    try {
        if (!debug_view_ && debug_view_factory_) debug_view_ = debug_view_factory_();
        if (debug_view_) debug_view_->Add(message);
    } catch (...) {
    }
}

void TraceLog::AppendToFile(const std::string& line) {
    try {
        if (file_name_.empty()) file_name_ = TraceFileSetting();
        std::FILE* file = std::fopen(file_name_.c_str(), "ab");
        if (file == nullptr) return;
        const std::string text = line + "\r\n";
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
    } catch (...) {
    }
}

void TraceLog::FeedSinks(const std::string& line) {
    // A copy, so that a sink may remove itself.
    const std::map<int, Sink> sinks = sinks_;
    for (const auto& [id, sink] : sinks) {
        try {
            sink(line);
        } catch (...) {
        }
    }
}

}  // namespace corvid::host
