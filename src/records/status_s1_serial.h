// The printer's serial (registration) number in the fields of its "S1" status reply.
#pragma once

#include <string>
#include <vector>

namespace corvid::records {

// Field 9 of the short layout, field 13 of the long one (16 fields or more); empty when
// the reply is a failure substitute or too short.
std::string SerialFromStatusS1(const std::vector<std::string>& fields);

}  // namespace corvid::records
