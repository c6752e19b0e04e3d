#include "service/command_collector.h"

#include <utility>

#include "documents/configuration.h"
#include "documents/customer_data.h"
#include "documents/totals.h"
#include "session/printer_fiscal.h"

namespace corvid::service {

using automation::Currency;
using automation::Variant;

std::vector<std::string> CommandCollector::Take() { return std::exchange(commands_, {}); }

void CommandCollector::PasarDatosCliente(const std::string& nombre, const std::string& rif,
                                         const std::string& direccion) {
    for (std::string& command : documents::PasarDatosClienteCommands(
             nombre, rif, direccion, std::nullopt, std::nullopt, std::nullopt)) {
        commands_.push_back(std::move(command));
    }
}

void CommandCollector::PasarDatosClienteNC(const std::string& nombre, const std::string& rif,
                                           const std::string& direccion, const std::string& factura,
                                           const std::string& serial, automation::Date fecha) {
    for (std::string& command : documents::PasarDatosClienteNCCommands(
             nombre, rif, direccion, factura, serial, Variant(fecha))) {
        commands_.push_back(std::move(command));
    }
}

void CommandCollector::PasarItem(const std::string& descripcion, Currency precio, double cantidad,
                                 double tasa) {
    commands_.push_back(
        session_.ItemCommand(documents::ItemKind::kSale, descripcion, precio, cantidad, tasa));
}

void CommandCollector::RefundItem(const std::string& descripcion, Currency precio, double cantidad,
                                  double tasa) {
    commands_.push_back(
        session_.ItemCommand(documents::ItemKind::kRefund, descripcion, precio, cantidad, tasa));
}

void CommandCollector::SubTotal() { commands_.push_back(documents::SubTotalCommand(true)); }

void CommandCollector::PasarDescuento(double porcentaje) {
    commands_.push_back(documents::PercentDiscountCommand(porcentaje));
}

void CommandCollector::PasarMontoDescuento(Currency monto) {
    commands_.push_back(documents::AmountDiscountCommand(session_.FormatMedio(monto.ToDouble())));
}

void CommandCollector::CerrarConMedio(int medio, Currency monto) {
    commands_.push_back(
        documents::CloseWithMeansCommand(medio, session_.FormatMedio(monto.ToDouble())));
}

void CommandCollector::CerrarNotaCreditoConMedio(int medio, Currency monto) {
    commands_.push_back(
        documents::CreditNoteCloseCommand(medio, session_.FormatMedio(monto.ToDouble())));
}

void CommandCollector::PrintNoFiscal(const std::string& texto, bool cerrar) {
    commands_.push_back(documents::PrintNoFiscalCommand(texto, cerrar));
}

void CommandCollector::ReporteDiario(const std::string& rango, const std::string& tipo) {
    commands_.push_back(documents::ReporteDiarioCommand(rango, tipo));
}

void CommandCollector::SetHeader(int linea, const std::string& texto) {
    commands_.push_back(
        documents::SetHeaderCommand(Variant(static_cast<std::int32_t>(linea)), texto));
}

void CommandCollector::SetFooter(int linea, const std::string& texto) {
    commands_.push_back(documents::SetFooterCommand(linea, texto));
}

void CommandCollector::SetDate(automation::Date fecha) {
    commands_.push_back(documents::SetDateCommand(Variant(fecha)));
}

void CommandCollector::SetTime(automation::Date hora) {
    commands_.push_back(documents::SetTimeCommand(Variant(hora)));
}

}  // namespace corvid::service
