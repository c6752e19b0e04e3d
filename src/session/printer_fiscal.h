// The session a point-of-sale host holds. A thin façade: the exchange engine keeps the
// outcome and the port, the link decides where commands go (the printer, or the preview
// in test mode), response retrieval splits replies into fields, and the document
// builders format amounts.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/currency.h"
#include "automation/variant.h"
#include "documents/amount_formats.h"
#include "documents/customer_data.h"
#include "documents/item_lines.h"
#include "records/printer_response1.h"
#include "records/printer_response2.h"
#include "records/printer_response3.h"
#include "records/printer_response4.h"
#include "records/reporte_zmf.h"
#include "records/response_source.h"
#include "records/resumen_z.h"
#include "session/control_values.h"
#include "session/exchange.h"
#include "session/printer_link.h"
#include "session/process_state.h"
#include "session/serial_line.h"
#include "session/session_settings.h"

namespace corvid::session {

class PrinterFiscal : public records::ResponseSource {
  public:
    // Reads every setting in the fixed order of creation. `line` is the serial layer;
    // omitted, the process-wide port table is used.
    explicit PrinterFiscal(std::shared_ptr<SerialLine> line = nullptr);
    ~PrinterFiscal() override;
    PrinterFiscal(const PrinterFiscal&) = delete;
    PrinterFiscal& operator=(const PrinterFiscal&) = delete;

    // Outcome of the last exchange, readable and writable by the host.
    ExchangeOutcome& outcome() { return exchange_.outcome(); }
    const ExchangeOutcome& outcome() const { return exchange_.outcome(); }
    const std::string& SerialPrinter() const { return serialPrinter_; }
    void SetSerialPrinter(std::string serial) { serialPrinter_ = std::move(serial); }
    std::int16_t f21() const { return f21_; }
    void Setf21(std::int16_t value) { f21_ = value; }

    // pfError as a 16-bit integer; overflow (error 6) beyond that.
    std::int16_t lError() const { return PfErrorAsInteger(outcome()); }
    std::int16_t lStatus() const { return 0; }
    // The printer model: the "TipoPrinter" setting when 0 or more, else the serial prefix.
    std::int32_t tipoPrinter() const override;

    // Framing, as members for hosts.
    std::string BuildCommandBlock(std::string_view command) const;
    std::int16_t CalcXOr(std::string_view text) const;
    std::string EscapeString(std::string_view text) const;

    // Session. `portNumber` is converted only when a port is opened.
    void Abrir(const PortNumber& portNumber);
    void Abrir(std::int16_t port) {
        Abrir([port] { return port; });
    }
    void Cerrar();
    bool AbrirGaveta();
    void SendDirect(std::string_view sCommand);
    std::int16_t Execute(std::string_view sCmd);
    void ExecuteNoCheck(std::string_view sCmd);
    // The print service's sending: a block whose answer is lost is not sent again.
    Delivery Deliver(std::string_view sCmd);
    void SendAck();
    void GetStatus();
    std::string explainSTS1() const;
    std::string explainSTS2() const;
    std::int16_t Reset();
    Fields NextStatusBlock();

    // Replies with fields.
    Fields GetResponse(std::string_view cmd) override;
    std::string GetResponseString(std::string_view cmd, std::string_view sep = {});
    std::vector<Fields> GetMultipleResponses(std::string_view cmd) override;
    // Missing separators are US between fields and RS between blocks.
    std::string GetMultipleResponsesStr(std::string_view cmd,
                                        std::optional<std::string_view> itemSep = std::nullopt,
                                        std::optional<std::string_view> rowSep = std::nullopt);

    // Item lines. A negative quantity sends nothing and returns pfClientError.
    std::int16_t PasarItem(std::string_view descripcion, automation::Currency precio,
                           double cantidad, double impuesto);
    std::int16_t RefundItem(std::string_view descripcion, automation::Currency precio,
                            double cantidad, double impuesto);
    std::int16_t AnularItem(std::string_view descripcion, automation::Currency precio,
                            double cantidad, double impuesto);
    std::int16_t PasarLineaFactura(std::string_view descripcion, automation::Currency precio,
                                   double cantidad, double impuesto);
    std::int16_t detalleGeneral(std::string_view tipo, std::string_view descripcion,
                                automation::Currency precio, double cantidad, double impuesto,
                                std::string_view codigo = {});
    // detalleGeneral with kind "F+", "F-", "C+" and "C-".
    std::int16_t pasarLineaFacturaG(std::string_view descripcion, automation::Currency precio,
                                    double cantidad, double impuesto, std::string_view codigo = {});
    std::int16_t anularLineaFacturaG(std::string_view descripcion, automation::Currency precio,
                                     double cantidad, double impuesto,
                                     std::string_view codigo = {});
    std::int16_t pasarLineaNCG(std::string_view descripcion, automation::Currency precio,
                               double cantidad, double impuesto, std::string_view codigo = {});
    std::int16_t anularLineaNCG(std::string_view descripcion, automation::Currency precio,
                                double cantidad, double impuesto, std::string_view codigo = {});
    // The command of an item line, as the item members send it.
    std::string ItemCommand(documents::ItemKind kind, std::string_view descripcion,
                            automation::Currency precio, double cantidad, double impuesto);
    // The rate index of a tax percentage: the configured rates, then the printer's.
    std::int16_t IndiceTasa(double tasa);

    // Customer data; each returns pfError after the last command sent.
    std::int32_t PasarDatosCliente(std::string_view nombre, std::string_view rif,
                                   std::string_view direccion,
                                   std::optional<std::string> datosFactRel = std::nullopt,
                                   std::optional<std::string> serialPrinter = std::nullopt,
                                   std::optional<automation::Variant> fechaFactura = std::nullopt);
    std::int32_t PasarDatosClienteNC(std::string_view nombre, std::string_view rif,
                                     std::string_view direccion, std::string_view datosFactRel,
                                     std::string_view serialPrinter,
                                     const automation::Variant& fechaFactura);
    std::int32_t IniciarFactura(std::string_view nombre, std::string_view rif,
                                std::string_view direccion);
    std::int32_t PasarDatosClientePA(std::string_view nombre, std::string_view rif,
                                     std::string_view direccion,
                                     std::string_view datosFactRel = {});
    std::int32_t PasarDatosClienteNCPA(std::string_view nombre, std::string_view rif,
                                       std::string_view direccion, std::string_view datosFactRel);

    // Totals and closing. The Booleans are True on failure, as hosts read them.
    bool SubTotal(bool doPrint = true);
    bool PasarDescuento(double porcentaje);
    bool PasarMontoDescuento(automation::Currency monto);
    std::int16_t descuentoGeneral(bool isPorcentaje, bool isDescuento, double valor);
    std::int16_t CerrarComprobante(automation::Currency monto = {});
    std::int16_t CerrarConMedio(double indiceMedio, automation::Currency monto);
    std::int16_t CerrarNotaCredito();
    std::int16_t CerrarNotaCreditoConMedio(double indiceMedio, automation::Currency monto);
    std::int16_t CerrarDevolucion(double medioPago, automation::Currency montoDevuelto);
    std::int16_t CancelarTransaccion();

    // Non-fiscal text, reports and configuration.
    std::int16_t PrintNoFiscal(std::string_view texto, bool cerrar);
    std::int16_t ReporteDiario(std::string_view rango, std::string_view tipo);
    std::int16_t SetHeader(const automation::Variant& linea, std::string_view texto);
    std::int16_t SetFooter(std::int32_t linea, std::string_view texto);
    std::int16_t SetDate(const automation::Variant& fecha);
    std::int16_t SetTime(const automation::Variant& hora);
    std::int16_t Login(const automation::Variant& cajero);
    std::int16_t Logoff();
    std::int16_t StartTraining();
    std::int16_t EndTraining();
    std::int16_t setFlag(const automation::Variant& flag, const automation::Variant& value);
    void reimprimirDocumentos(std::string_view cmd, const automation::Variant& desde,
                              const automation::Variant& hasta);
    void reimprimirFactura(const automation::Variant& numero);

    // Status queries. A failed exchange never raises here: the records fall back to their
    // substitutes, the numbers to -1, the closing to null, the closures to an empty list;
    // pfError and DescripcionError tell why. "TestMode" or "SkipChecks" give the
    // substitute records without touching the port.
    std::int32_t numeroUltimaFactura();
    // Field 6 of the "S1" reply, whatever its layout.
    std::int32_t NumeroUltimoCierre();
    std::shared_ptr<records::PrinterResponse1> Response1();
    std::shared_ptr<records::PrinterResponse1> StatusS1() { return Response1(); }
    std::shared_ptr<records::PrinterResponse2> Response2();
    std::shared_ptr<records::PrinterResponse2> StatusS2() { return Response2(); }
    // The "S3" record: rates and printer flags.
    std::shared_ptr<records::PrinterResponse3> Response3();
    std::shared_ptr<records::PrinterResponse4> Response4();
    std::shared_ptr<records::PrinterResponse3> StatusS3() { return Response3(); }
    // Closes the day ("I0Z") and reads its summary; null when the printer refused.
    std::shared_ptr<records::ResumenZ> CerrarZ();
    std::shared_ptr<records::ResumenZ> ResumenZ();
    // Tax rate 1 to 3 from "S3"; 0 outside 1..3 (nothing sent), -1 on failure.
    double tasa(double index);
    std::shared_ptr<records::EstadoDocumento> getEstadoDocumento();
    // Closures `desde` to `hasta` from fiscal memory, in the printer's order.
    std::vector<std::shared_ptr<records::ReporteZMF>> reportesZMF(const automation::Variant& desde,
                                                                  const automation::Variant& hasta);
    // One closure, or null when the exchange failed.
    std::shared_ptr<records::ReporteZMF> loadReporteZMF(const automation::Variant& numero);

    // The cached S3 record, loaded on first need; a host may replace it.
    std::shared_ptr<records::PrinterResponse3> s3() const { return s3_; }
    void Sets3(std::shared_ptr<records::PrinterResponse3> record) { s3_ = std::move(record); }

    // Digit strings with implied decimals for the document commands.
    std::string FormatPrecio(double value);
    std::string FormatCantidad(double value);
    std::string FormatMedio(double value);

    // Waits n delay units of "FactorDelay" seconds, sleeping.
    void Demora(std::int16_t n);

    // Read-only views of the state read at creation (for tests and tools).
    std::int16_t port() const { return exchange_.port(); }
    bool skipChecks() const { return settings_.exchange.skipChecks; }
    std::int16_t timeOut() const { return settings_.exchange.timeOut; }
    std::int16_t retries() const { return settings_.retries; }
    bool testMode() const { return settings_.testMode; }
    bool ready() const { return exchange_.ready(); }
    std::int32_t columnasDescripcion() const { return settings_.columnasDescripcion; }
    const std::array<double, 8>& tasas() const { return settings_.tasas; }
    std::int16_t numTasas() const { return settings_.numTasas; }
    preview::lfQuickView* preview() const { return link_->preview(); }

  private:
    std::int16_t LoadFlag21();
    std::int16_t SendItem(documents::ItemKind kind, std::string_view descripcion,
                          automation::Currency precio, double cantidad, double impuesto);
    // Sends the commands in order and stops at the first failure, showing `DescripcionError`
    // (after the step's prefix) in a message box; returns pfError.
    std::int32_t SendSeries(const std::vector<std::string>& commands);
    std::int32_t SendSteps(const documents::StepCommands& commands, const std::string& method);
    std::string PaymentField(automation::Currency amount);
    // Status requests with "TestMode" or "SkipChecks" on give substitutes.
    bool Substituting() const { return settings_.testMode || settings_.exchange.skipChecks; }
    void Trace(const std::string& message) { process_.trace.Trace(message); }

    ProcessState& process_;
    SessionSettings settings_;
    Exchange exchange_;
    std::unique_ptr<PrinterLink> link_;
    documents::AmountFormats amounts_;
    std::string serialPrinter_;
    std::int16_t f21_ = 0;
    std::shared_ptr<records::PrinterResponse3> s3_;
    float factorDelay_ = 0;
};

}  // namespace corvid::session
