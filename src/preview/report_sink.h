// Where a report goes when it is shown without a window (Linux, a service, a test): a host
// without a desktop sets a sink and receives the report's whole text (lines separated by
// CR LF) each time one is shown. With no sink set the report is dropped, as a window nobody
// can see would be.
#pragma once

#include <functional>
#include <string>

namespace corvid::preview {

using ReportSink = std::function<void(const std::string& text)>;

// Replaces the process-wide sink; returns the previous one.
ReportSink ReplaceReportSink(ReportSink sink);
// Hands a shown report to the current sink, if any.
void HandToReportSink(const std::string& text);

}  // namespace corvid::preview
