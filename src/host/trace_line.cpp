#include "host/trace_line.h"

#include "automation/format.h"

namespace corvid::host {

std::string FormatTraceLine(automation::Date now, float seconds_since_midnight,
                            std::string_view message) {
    const std::string seconds =
        "        " + automation::CStr(automation::Variant(seconds_since_midnight));
    std::string line = automation::Format(automation::Variant(now), "dd/mm hh:nn:ss");
    line += ' ';
    line += seconds.size() > 10 ? seconds.substr(seconds.size() - 10) : seconds;
    line += ' ';
    line += message;
    return line;
}

}  // namespace corvid::host
