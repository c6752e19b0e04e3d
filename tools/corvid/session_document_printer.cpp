#include "corvid/session_document_printer.h"

#include "documents/customer_data.h"
#include "jobs/step_runner.h"
#include "session/printer_fiscal.h"

namespace corvid::tool {

// The results of the session's members are left aside: the outcome says the same, and
// three of them (SubTotal and the discounts) return True on failure.

// The customer-data series is sent one command at a time, with the commands the
// session's PasarDatosCliente and PasarDatosClienteNC build. Those members go on after a
// command the printer refuses with NAK (Execute still returns pfOk then), and the
// credit-note one after any refusal, leaving only the last command's outcome: a refused
// line could pass unnoticed. Here the series stops where the printer refuses.
void SessionDocumentPrinter::SendUntilRefused(const std::vector<std::string>& commands) {
    for (const std::string& command : commands) {
        printer_.Execute(command);
        if (!jobs::Accepted(printer_.outcome())) return;
    }
}

void SessionDocumentPrinter::PasarDatosCliente(const std::string& nombre, const std::string& rif,
                                               const std::string& direccion) {
    SendUntilRefused(documents::PasarDatosClienteCommands(nombre, rif, direccion, std::nullopt,
                                                          std::nullopt, std::nullopt));
}

void SessionDocumentPrinter::PasarDatosClienteNC(const std::string& nombre, const std::string& rif,
                                                 const std::string& direccion,
                                                 const std::string& factura,
                                                 const std::string& serial,
                                                 automation::Date fecha) {
    SendUntilRefused(documents::PasarDatosClienteNCCommands(nombre, rif, direccion, factura, serial,
                                                            automation::Variant(fecha)));
}

void SessionDocumentPrinter::PasarItem(const std::string& descripcion, automation::Currency precio,
                                       double cantidad, double tasa) {
    printer_.PasarItem(descripcion, precio, cantidad, tasa);
}

void SessionDocumentPrinter::RefundItem(const std::string& descripcion, automation::Currency precio,
                                        double cantidad, double tasa) {
    printer_.RefundItem(descripcion, precio, cantidad, tasa);
}

void SessionDocumentPrinter::SubTotal() { printer_.SubTotal(); }
void SessionDocumentPrinter::PasarDescuento(double porcentaje) {
    printer_.PasarDescuento(porcentaje);
}
void SessionDocumentPrinter::PasarMontoDescuento(automation::Currency monto) {
    printer_.PasarMontoDescuento(monto);
}
void SessionDocumentPrinter::CerrarConMedio(int medio, automation::Currency monto) {
    printer_.CerrarConMedio(medio, monto);
}
void SessionDocumentPrinter::CerrarNotaCreditoConMedio(int medio, automation::Currency monto) {
    printer_.CerrarNotaCreditoConMedio(medio, monto);
}
void SessionDocumentPrinter::PrintNoFiscal(const std::string& texto, bool cerrar) {
    printer_.PrintNoFiscal(texto, cerrar);
}
void SessionDocumentPrinter::ReporteDiario(const std::string& rango, const std::string& tipo) {
    printer_.ReporteDiario(rango, tipo);
}
void SessionDocumentPrinter::SetHeader(int linea, const std::string& texto) {
    printer_.SetHeader(automation::Variant(static_cast<std::int32_t>(linea)), texto);
}
void SessionDocumentPrinter::SetFooter(int linea, const std::string& texto) {
    printer_.SetFooter(linea, texto);
}
void SessionDocumentPrinter::SetDate(automation::Date fecha) {
    printer_.SetDate(automation::Variant(fecha));
}
void SessionDocumentPrinter::SetTime(automation::Date hora) {
    printer_.SetTime(automation::Variant(hora));
}

const session::ExchangeOutcome& SessionDocumentPrinter::outcome() const {
    return printer_.outcome();
}
std::string SessionDocumentPrinter::explainSTS1() const { return printer_.explainSTS1(); }
std::string SessionDocumentPrinter::explainSTS2() const { return printer_.explainSTS2(); }

}  // namespace corvid::tool
