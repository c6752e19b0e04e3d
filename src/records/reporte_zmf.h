// One daily closure as the printer keeps it in fiscal memory (a row of the "U3A" reply).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/currency.h"
#include "automation/variant.h"
#include "records/response_source.h"

namespace corvid::records {

class ReporteZMF {
  public:
    std::int16_t numeroCierre = 0;
    automation::Date fechaCierre;
    automation::Date horaCierre;  // never filled
    std::int32_t numeroUltimaFactura = 0;
    automation::Date fechaUltimaFactura;
    automation::Date horaUltimaFactura;
    automation::Currency ventasExentas, baseVG, impuestoVG, baseIR, impuestoIR;
    automation::Currency NCExentas, baseNCVG, impuestoNCVG, baseNCIR, impuestoNCIR;

    // Raises on a short row or a bad number, after setting the fields before it.
    void loadFromResponse(const std::vector<std::string>& response);
    // Reads closure `numero` from fiscal memory; False (record untouched) when the
    // exchange failed.
    bool load(ResponseSource& printer, const automation::Variant& numero);
    std::string toString() const;
};

// "U3A" and the range, each number formatted "000000".
std::string FiscalMemoryRangeCommand(const automation::Variant& desde,
                                     const automation::Variant& hasta);

}  // namespace corvid::records
