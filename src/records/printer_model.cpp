#include "records/printer_model.h"

namespace corvid::records {

VariantesPF ModelOfSerial(std::string_view serial) {
    const std::string_view prefix = serial.substr(0, 3);
    if (prefix == "Z6B") return DT230;
    if (prefix == "Z7A") return HKA112;
    if (prefix == "Z1F") return SRP812;
    return SRP350;
}

const char* ModelName(std::int32_t model) {
    switch (model) {
        case SRP350:
            return "SRP350";
        case DT230:
            return "DT230";
        case HKA112:
            return "HKA112";
        case SRP812:
            return "SRP812";
        default:
            return "unknown";
    }
}

}  // namespace corvid::records
