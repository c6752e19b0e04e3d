// The blocks a document's steps send, built with the session's own builders but not sent:
// the service sends each block itself, journalled, and never blindly twice.
#pragma once

#include <string>
#include <vector>

#include "jobs/document_printer.h"

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::service {

class CommandCollector : public jobs::DocumentPrinter {
  public:
    // `session` gives the rate indexes and amount formats of the printer in use.
    explicit CommandCollector(session::PrinterFiscal& session) : session_(session) {}

    // The commands collected since the last call, in order.
    std::vector<std::string> Take();

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

    const session::ExchangeOutcome& outcome() const override { return outcome_; }
    std::string explainSTS1() const override { return {}; }
    std::string explainSTS2() const override { return {}; }

  private:
    session::PrinterFiscal& session_;
    std::vector<std::string> commands_;
    session::ExchangeOutcome outcome_;
};

}  // namespace corvid::service
