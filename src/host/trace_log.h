// The session trace: one line per protocol step while "IsDebug" is on.
// With "DebugInmediato" on, each message is added to a debug view (created on first use by
// the factory the session installs, shown by the session when it closes); otherwise each
// line is appended to the trace file, opened and closed for every line so the file is
// complete even if the host dies. The file is the setting "DEBUGFILE" (section
// "CONFIG\NimbusPF"), by default FPRINTER.LOG in the documents folder; lines end with CR LF
// on every platform. Extra sinks (a live trace on a terminal) receive every line, formatted
// as in the file without the line end. The trace never fails: errors are swallowed.
// Used from the host's thread only.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "host/debug_view.h"

namespace corvid::host {

class TraceLog {
  public:
    using Sink = std::function<void(const std::string& line)>;

    void SetIsDebug(bool on) { is_debug_ = on; }
    bool IsDebug() const { return is_debug_; }
    void SetDebugInmediato(bool on) { debug_inmediato_ = on; }
    bool DebugInmediato() const { return debug_inmediato_; }

    // A tool that shows the trace live may leave the file out.
    void SetFileEnabled(bool on) { file_enabled_ = on; }

    void SetDebugViewFactory(DebugViewFactory factory) { debug_view_factory_ = std::move(factory); }
    // The debug view, or null until the first message created it.
    std::shared_ptr<DebugView> debug_view() const { return debug_view_; }
    // The trace file's name, or empty until the first line written to the file.
    const std::string& file_name() const { return file_name_; }

    // Registers a sink; returns a number to remove it with.
    int AddSink(Sink sink);
    void RemoveSink(int id);

    void Trace(const std::string& message);

  private:
    void AddToDebugView(const std::string& message);
    void AppendToFile(const std::string& line);
    void FeedSinks(const std::string& line);

    bool is_debug_ = false;
    bool debug_inmediato_ = false;
    bool file_enabled_ = true;
    std::string file_name_;
    DebugViewFactory debug_view_factory_;
    std::shared_ptr<DebugView> debug_view_;
    std::map<int, Sink> sinks_;
    int next_sink_id_ = 1;
};

}  // namespace corvid::host
