#include "registration/record_values.h"

#include "registration/bstr_text.h"

namespace corvid::registration {

BSTR ToHost(const std::string& value) { return BstrFromBytes(value); }

void FromHost(BSTR value, std::string& field) { field = BytesFromBstr(value); }

}  // namespace corvid::registration
