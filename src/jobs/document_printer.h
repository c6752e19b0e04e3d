// The session calls the tool's documents are made of, with the session's own arguments
// (texts in the printer's code page). SessionDocumentPrinter forwards them to a
// PrinterFiscal; tests record them.
#pragma once

#include <string>

#include "automation/currency.h"
#include "automation/variant.h"
#include "session/exchange_outcome.h"

namespace corvid::jobs {

class DocumentPrinter {
  public:
    virtual ~DocumentPrinter() = default;

    virtual void PasarDatosCliente(const std::string& nombre, const std::string& rif,
                                   const std::string& direccion) = 0;
    virtual void PasarDatosClienteNC(const std::string& nombre, const std::string& rif,
                                     const std::string& direccion, const std::string& factura,
                                     const std::string& serial, automation::Date fecha) = 0;
    virtual void PasarItem(const std::string& descripcion, automation::Currency precio,
                           double cantidad, double tasa) = 0;
    virtual void RefundItem(const std::string& descripcion, automation::Currency precio,
                            double cantidad, double tasa) = 0;
    virtual void SubTotal() = 0;
    virtual void PasarDescuento(double porcentaje) = 0;
    virtual void PasarMontoDescuento(automation::Currency monto) = 0;
    virtual void CerrarConMedio(int medio, automation::Currency monto) = 0;
    virtual void CerrarNotaCreditoConMedio(int medio, automation::Currency monto) = 0;
    virtual void PrintNoFiscal(const std::string& texto, bool cerrar) = 0;
    virtual void ReporteDiario(const std::string& rango, const std::string& tipo) = 0;
    virtual void SetHeader(int linea, const std::string& texto) = 0;
    virtual void SetFooter(int linea, const std::string& texto) = 0;
    virtual void SetDate(automation::Date fecha) = 0;
    virtual void SetTime(automation::Date hora) = 0;

    // How the last call went: pfError, DescripcionError and the status bytes.
    virtual const session::ExchangeOutcome& outcome() const = 0;
    // The status bytes in words (printer code page).
    virtual std::string explainSTS1() const = 0;
    virtual std::string explainSTS2() const = 0;
};

}  // namespace corvid::jobs
