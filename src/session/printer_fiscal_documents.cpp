// The façade's document members: each builds its command with a pure builder of
// src/documents and sends it through Execute.
#include "automation/conversions.h"
#include "automation/vb_error.h"
#include "documents/address_limits.h"
#include "documents/configuration.h"
#include "documents/totals.h"
#include "host/library_settings.h"
#include "host/user_prompts.h"
#include "session/printer_fiscal.h"

namespace corvid::session {

using automation::Currency;
using documents::ItemKind;

std::int16_t PrinterFiscal::SendItem(ItemKind kind, std::string_view descripcion, Currency precio,
                                     double cantidad, double impuesto) {
    if (cantidad < 0) {
        outcome().pfError = pfClientError;
        outcome().DescripcionError = documents::NegativeQuantityMessage(kind);
        return pfClientError;
    }
    return Execute(ItemCommand(kind, descripcion, precio, cantidad, impuesto));
}

std::string PrinterFiscal::ItemCommand(ItemKind kind, std::string_view descripcion, Currency precio,
                                       double cantidad, double impuesto) {
    const std::int16_t index = IndiceTasa(impuesto);
    return documents::ClassicItemCommand(kind, index, FormatPrecio(precio.ToDouble()),
                                         FormatCantidad(cantidad), descripcion,
                                         settings_.columnasDescripcion);
}

std::int16_t PrinterFiscal::PasarItem(std::string_view descripcion, Currency precio,
                                      double cantidad, double impuesto) {
    return SendItem(ItemKind::kSale, descripcion, precio, cantidad, impuesto);
}
std::int16_t PrinterFiscal::RefundItem(std::string_view descripcion, Currency precio,
                                       double cantidad, double impuesto) {
    return SendItem(ItemKind::kRefund, descripcion, precio, cantidad, impuesto);
}
std::int16_t PrinterFiscal::AnularItem(std::string_view descripcion, Currency precio,
                                       double cantidad, double impuesto) {
    return SendItem(ItemKind::kVoid, descripcion, precio, cantidad, impuesto);
}
std::int16_t PrinterFiscal::PasarLineaFactura(std::string_view descripcion, Currency precio,
                                              double cantidad, double impuesto) {
    return PasarItem(descripcion, precio, cantidad, impuesto);
}

std::int16_t PrinterFiscal::detalleGeneral(std::string_view tipo, std::string_view descripcion,
                                           Currency precio, double cantidad, double impuesto,
                                           std::string_view codigo) {
    const std::int16_t index = IndiceTasa(impuesto);
    return Execute(
        documents::GeneralItemCommand(tipo, index, precio, cantidad, codigo, descripcion));
}

std::int16_t PrinterFiscal::pasarLineaFacturaG(std::string_view descripcion, Currency precio,
                                               double cantidad, double impuesto,
                                               std::string_view codigo) {
    return detalleGeneral("F+", descripcion, precio, cantidad, impuesto, codigo);
}
std::int16_t PrinterFiscal::anularLineaFacturaG(std::string_view descripcion, Currency precio,
                                                double cantidad, double impuesto,
                                                std::string_view codigo) {
    return detalleGeneral("F-", descripcion, precio, cantidad, impuesto, codigo);
}
std::int16_t PrinterFiscal::pasarLineaNCG(std::string_view descripcion, Currency precio,
                                          double cantidad, double impuesto,
                                          std::string_view codigo) {
    return detalleGeneral("C+", descripcion, precio, cantidad, impuesto, codigo);
}
std::int16_t PrinterFiscal::anularLineaNCG(std::string_view descripcion, Currency precio,
                                           double cantidad, double impuesto,
                                           std::string_view codigo) {
    return detalleGeneral("C-", descripcion, precio, cantidad, impuesto, codigo);
}

std::int16_t PrinterFiscal::IndiceTasa(double tasa) {
    if (tasa < 0) {
        const auto percibido = host::ReadInt16Setting("IndicePercibido", 4);
        if (!percibido) throw automation::VbError::Standard(automation::vb_errors::kOverflow);
        return *percibido;
    }
    if (auto index = documents::MatchRate(settings_.tasas.data(), settings_.numTasas, tasa)) {
        return *index;
    }
    s3_ = Response3();  // the printer's own rates, read afresh
    return s3_->IndexOfRate(tasa).value_or(0);
}

std::int32_t PrinterFiscal::SendSeries(const std::vector<std::string>& commands) {
    for (const std::string& command : commands) {
        if (Execute(command) != 0) {
            host::CurrentUserPrompts().MessageBox(
                outcome().DescripcionError, host::PromptButtons::kOk, host::PromptIcon::kNone, "");
            break;
        }
    }
    return outcome().pfError;
}

std::int32_t PrinterFiscal::SendSteps(const documents::StepCommands& commands,
                                      const std::string& method) {
    for (const documents::NumberedCommand& step : commands) {
        if (Execute(step.command) != 0) {
            host::CurrentUserPrompts().MessageBox(
                method + " (" + std::to_string(step.step) + "): " + outcome().DescripcionError,
                host::PromptButtons::kOk, host::PromptIcon::kCritical, "Error en Printer Fiscal");
            break;
        }
    }
    return outcome().pfError;
}

std::int32_t PrinterFiscal::PasarDatosCliente(std::string_view nombre, std::string_view rif,
                                              std::string_view direccion,
                                              std::optional<std::string> datosFactRel,
                                              std::optional<std::string> serialPrinter,
                                              std::optional<automation::Variant> fechaFactura) {
    return SendSeries(
        documents::PasarDatosClienteCommands(nombre, rif, direccion, std::move(datosFactRel),
                                             std::move(serialPrinter), std::move(fechaFactura)));
}

std::int32_t PrinterFiscal::PasarDatosClienteNC(std::string_view nombre, std::string_view rif,
                                                std::string_view direccion,
                                                std::string_view datosFactRel,
                                                std::string_view serialPrinter,
                                                const automation::Variant& fechaFactura) {
    // The credit-note series goes on after a failure and shows nothing.
    for (const std::string& command : documents::PasarDatosClienteNCCommands(
             nombre, rif, direccion, datosFactRel, serialPrinter, fechaFactura)) {
        Execute(command);
    }
    return outcome().pfError;
}

std::int32_t PrinterFiscal::IniciarFactura(std::string_view nombre, std::string_view rif,
                                           std::string_view direccion) {
    return SendSeries(
        documents::IniciarFacturaCommands(nombre, rif, direccion, documents::AnchoDireccion()));
}

std::int32_t PrinterFiscal::PasarDatosClientePA(std::string_view nombre, std::string_view rif,
                                                std::string_view direccion,
                                                std::string_view datosFactRel) {
    return SendSteps(documents::PasarDatosClientePACommands(nombre, rif, direccion, datosFactRel),
                     "PasarDatosClientePA");
}

std::int32_t PrinterFiscal::PasarDatosClienteNCPA(std::string_view nombre, std::string_view rif,
                                                  std::string_view direccion,
                                                  std::string_view datosFactRel) {
    return SendSteps(documents::PasarDatosClienteNCPACommands(nombre, rif, direccion, datosFactRel),
                     "PasarDatosClienteNCPA");
}

std::string PrinterFiscal::PaymentField(Currency amount) { return FormatMedio(amount.ToDouble()); }

bool PrinterFiscal::SubTotal(bool doPrint) {
    return Execute(documents::SubTotalCommand(doPrint)) != 0;
}
bool PrinterFiscal::PasarDescuento(double porcentaje) {
    return Execute(documents::PercentDiscountCommand(porcentaje)) != 0;
}
bool PrinterFiscal::PasarMontoDescuento(Currency monto) {
    return Execute(documents::AmountDiscountCommand(PaymentField(monto))) != 0;
}
std::int16_t PrinterFiscal::descuentoGeneral(bool isPorcentaje, bool isDescuento, double valor) {
    return Execute(documents::GeneralDiscountCommand(isPorcentaje, isDescuento, valor));
}
std::int16_t PrinterFiscal::CerrarComprobante(Currency monto) {
    const bool hasAmount = monto != Currency{};
    return Execute(documents::CloseCommand(hasAmount, hasAmount ? PaymentField(monto) : ""));
}
std::int16_t PrinterFiscal::CerrarConMedio(double indiceMedio, Currency monto) {
    return Execute(documents::CloseWithMeansCommand(indiceMedio, PaymentField(monto)));
}
std::int16_t PrinterFiscal::CerrarNotaCredito() {
    return Execute(documents::CreditNoteCloseCommand(1, PaymentField(Currency{})));
}
std::int16_t PrinterFiscal::CerrarNotaCreditoConMedio(double indiceMedio, Currency monto) {
    return Execute(documents::CreditNoteCloseCommand(indiceMedio, PaymentField(monto)));
}
std::int16_t PrinterFiscal::CerrarDevolucion(double medioPago, Currency montoDevuelto) {
    return CerrarNotaCreditoConMedio(medioPago, montoDevuelto);
}
std::int16_t PrinterFiscal::CancelarTransaccion() { return Execute(documents::kCancelCommand); }

std::int16_t PrinterFiscal::PrintNoFiscal(std::string_view texto, bool cerrar) {
    return Execute(documents::PrintNoFiscalCommand(texto, cerrar));
}
std::int16_t PrinterFiscal::ReporteDiario(std::string_view rango, std::string_view tipo) {
    return Execute(documents::ReporteDiarioCommand(rango, tipo));
}
std::int16_t PrinterFiscal::SetHeader(const automation::Variant& linea, std::string_view texto) {
    return Execute(documents::SetHeaderCommand(linea, texto));
}
std::int16_t PrinterFiscal::SetFooter(std::int32_t linea, std::string_view texto) {
    return Execute(documents::SetFooterCommand(linea, texto));
}
std::int16_t PrinterFiscal::SetDate(const automation::Variant& fecha) {
    return Execute(documents::SetDateCommand(fecha));
}
std::int16_t PrinterFiscal::SetTime(const automation::Variant& hora) {
    return Execute(documents::SetTimeCommand(hora));
}
std::int16_t PrinterFiscal::Login(const automation::Variant& cajero) {
    return Execute(documents::LoginCommand(cajero));
}
std::int16_t PrinterFiscal::Logoff() { return Execute(documents::kLogoffCommand); }
std::int16_t PrinterFiscal::StartTraining() { return Execute(documents::kStartTrainingCommand); }
std::int16_t PrinterFiscal::EndTraining() { return Execute(documents::kEndTrainingCommand); }
std::int16_t PrinterFiscal::setFlag(const automation::Variant& flag,
                                    const automation::Variant& value) {
    return Execute(documents::SetFlagCommand(flag, value));
}
void PrinterFiscal::reimprimirDocumentos(std::string_view cmd, const automation::Variant& desde,
                                         const automation::Variant& hasta) {
    Execute(documents::ReprintCommand(cmd, desde, hasta));
}
void PrinterFiscal::reimprimirFactura(const automation::Variant& numero) {
    reimprimirDocumentos("F", numero, numero);
}

}  // namespace corvid::session
