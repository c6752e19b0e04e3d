// The public enums of the session: protocol control bytes, outcome classes, printer models.
#pragma once

#include <cstdint>

#include "records/printer_model.h"

namespace corvid::session {

// Unscoped on purpose: hosts and the protocol code use the bare names (STX, ACK, ...).
enum controlValues : std::int32_t {
    STX = 2,
    ETX = 3,
    EOT = 4,
    ENQ = 5,
    ACK = 6,
    NAK = 21,
    ETB = 23,
    RS = 30,
    US = 31,
};

enum pfErrors : std::int32_t {
    pfOk = 0,
    pfCommError = 1,
    pfPrinterError = 2,
    pfClientError = 3,
};

using records::DT230;
using records::HKA112;
using records::SRP350;
using records::SRP812;
using records::VariantesPF;

}  // namespace corvid::session
