#include "records/status_s1_serial.h"

namespace corvid::records {

std::string SerialFromStatusS1(const std::vector<std::string>& fields) {
    if (fields.empty() || fields[0] == "pfError") return {};
    const std::size_t index = fields.size() < 16 ? 9 : 13;
    return index < fields.size() ? fields[index] : std::string();
}

}  // namespace corvid::records
