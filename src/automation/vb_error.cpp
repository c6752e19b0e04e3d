#include "automation/vb_error.h"

#include <utility>

namespace corvid::automation {

VbError::VbError(std::int32_t number, std::string source, std::string description)
    : std::runtime_error(description),
      number_(number),
      source_(std::move(source)),
      description_(std::move(description)) {}

VbError VbError::Standard(std::int32_t number, std::string source) {
    return VbError(number, std::move(source), StandardDescription(number));
}

std::string StandardDescription(std::int32_t number) {
    switch (number) {
        case vb_errors::kInvalidProcedureCall:
            return "Invalid procedure call or argument";
        case vb_errors::kOverflow:
            return "Overflow";
        case vb_errors::kSubscriptOutOfRange:
            return "Subscript out of range";
        case vb_errors::kTypeMismatch:
            return "Type mismatch";
        default:
            return "Application-defined or object-defined error";
    }
}

}  // namespace corvid::automation
