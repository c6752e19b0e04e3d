// The tool's document calls on an open PrinterFiscal.
#pragma once

#include <string>
#include <vector>

#include "jobs/document_printer.h"

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::tool {

class SessionDocumentPrinter : public jobs::DocumentPrinter {
  public:
    explicit SessionDocumentPrinter(session::PrinterFiscal& printer) : printer_(printer) {}

    void PasarDatosCliente(const std::string& nombre, const std::string& rif,
                           const std::string& direccion) override;
    void PasarDatosClienteNC(const std::string& nombre, const std::string& rif,
                             const std::string& direccion, const std::string& factura,
                             const std::string& serial, automation::Date fecha) override;
    void PasarItem(const std::string& descripcion, automation::Currency precio, double cantidad,
                   double tasa) override;
    void RefundItem(const std::string& descripcion, automation::Currency precio, double cantidad,
                    double tasa) override;
    void SubTotal() override;
    void PasarDescuento(double porcentaje) override;
    void PasarMontoDescuento(automation::Currency monto) override;
    void CerrarConMedio(int medio, automation::Currency monto) override;
    void CerrarNotaCreditoConMedio(int medio, automation::Currency monto) override;
    void PrintNoFiscal(const std::string& texto, bool cerrar) override;
    void ReporteDiario(const std::string& rango, const std::string& tipo) override;
    void SetHeader(int linea, const std::string& texto) override;
    void SetFooter(int linea, const std::string& texto) override;
    void SetDate(automation::Date fecha) override;
    void SetTime(automation::Date hora) override;

    const session::ExchangeOutcome& outcome() const override;
    std::string explainSTS1() const override;
    std::string explainSTS2() const override;

  private:
    void SendUntilRefused(const std::vector<std::string>& commands);

    session::PrinterFiscal& printer_;
};

}  // namespace corvid::tool
