// The printer's answer to "S2", the document in progress, read two ways: PrinterResponse2
// (Response2, StatusS2) and EstadoDocumento (getEstadoDocumento).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/currency.h"

namespace corvid::records {

class PrinterResponse2 {
  public:
    automation::Currency subTotalVenta;
    automation::Currency subTotalImpuestos;
    double cantidadItems = 0;
    automation::Currency total;
    std::int16_t cantidadPagos = 0;
    std::int16_t tipoTrans = 0;

    // Only tipoTrans changes: -1.
    void loadFake();
    // Raises on a missing or bad field, keeping the fields set before it.
    void loadFromResponse(const std::vector<std::string>& v);
    std::string toString() const;
};

class EstadoDocumento {
  public:
    automation::Currency subTotalBasesImponibles;
    automation::Currency subTotalIVA;
    std::string NotaS2;
    automation::Currency MontoPorPagar;
    std::int16_t numeroPagosRealizados = 0;
    std::int16_t estado = 0;

    // Loads nothing when field 0 has no blank (the failure reply); raises on a bad field
    // otherwise.
    void loadFromResponse(const std::vector<std::string>& v);
    std::string toString() const;
};

}  // namespace corvid::records
