#include "preview/report_sink.h"

#include "automation/replaceable.h"

namespace corvid::preview {
namespace {

automation::Replaceable<ReportSink>& Sink() {
    static automation::Replaceable<ReportSink> sink;
    return sink;
}

}  // namespace

ReportSink ReplaceReportSink(ReportSink sink) { return Sink().Replace(std::move(sink)); }

void HandToReportSink(const std::string& text) {
    // Called outside the lock: a sink may replace itself.
    if (const ReportSink sink = Sink().Get()) sink(text);
}

}  // namespace corvid::preview
