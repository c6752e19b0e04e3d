// Reports the library shows in its preview (the test-mode preview, the on-screen trace)
// reach the terminal while the tool runs, framed so they stand apart from the tool's words.
#pragma once

#include <ostream>

#include "preview/report_sink.h"

namespace corvid::tool {

class ReportOutput {
  public:
    explicit ReportOutput(std::ostream& out);
    ~ReportOutput();
    ReportOutput(const ReportOutput&) = delete;
    ReportOutput& operator=(const ReportOutput&) = delete;

  private:
    preview::ReportSink previous_;
};

}  // namespace corvid::tool
