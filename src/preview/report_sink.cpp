#include "preview/report_sink.h"

#include <mutex>
#include <utility>

namespace corvid::preview {
namespace {

std::mutex& Guard() {
    static std::mutex guard;
    return guard;
}

ReportSink& Slot() {
    static ReportSink sink;
    return sink;
}

}  // namespace

ReportSink ReplaceReportSink(ReportSink sink) {
    std::lock_guard lock(Guard());
    return std::exchange(Slot(), std::move(sink));
}

void HandToReportSink(const std::string& text) {
    ReportSink sink;
    {
        std::lock_guard lock(Guard());
        sink = Slot();
    }
    if (sink) sink(text);
}

}  // namespace corvid::preview
