// The host object told when the person clicks a line of the report (the SetNotify target).
#pragma once

#include <cstdint>
#include <string>

namespace corvid::preview {

class ReportClickTarget {
  public:
    virtual ~ReportClickTarget() = default;
    // `line` is the clicked line's text, `column` the caret's 1-based column in it.
    virtual void ReportClicked(const std::string& line, std::int32_t column) = 0;
};

}  // namespace corvid::preview
