#include "corvid/report_output.h"

#include <string>

#include "text/windows_1252.h"

namespace corvid::tool {

ReportOutput::ReportOutput(std::ostream& out)
    : previous_(preview::ReplaceReportSink([&out](const std::string& text) {
          out << "-- preview --\n";
          std::size_t start = 0;
          while (start < text.size()) {
              std::size_t end = text.find("\r\n", start);
              if (end == std::string::npos) end = text.size();
              out << text::Utf8FromWindows1252(text.substr(start, end - start)) << "\n";
              start = end + 2;
          }
          out << "-- end of preview --\n";
      })) {}

ReportOutput::~ReportOutput() { preview::ReplaceReportSink(previous_); }

}  // namespace corvid::tool
