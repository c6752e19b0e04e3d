// The printer models the library tells apart, and how a serial number announces its model.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvid::records {

enum VariantesPF : std::int32_t {
    SRP350 = 0,
    DT230 = 1,
    HKA112 = 2,
    SRP812 = 3,
};

// The first three characters of the serial: "Z6B" DT230, "Z7A" HKA112, "Z1F" SRP812;
// anything else (an empty serial too) SRP350.
VariantesPF ModelOfSerial(std::string_view serial);
// "SRP350", "DT230", "HKA112", "SRP812", or "unknown".
const char* ModelName(std::int32_t model);

}  // namespace corvid::records
