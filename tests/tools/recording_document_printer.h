// A DocumentPrinter that writes down every call, and refuses the call numbered `refuse`
// (from 1) as the session reports a printer answering NAK: with pfPrinterError, or, when
// every attempt drew a NAK, with pfOk and resultFlag NAK alone.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "automation/dates.h"
#include "corvid/document_printer.h"

namespace corvid::tool::testing {

class RecordingDocumentPrinter : public DocumentPrinter {
  public:
    std::vector<std::string> calls;
    std::size_t refuse = 0;
    bool nakLeavesPfOk = false;

    void PasarDatosCliente(const std::string& nombre, const std::string& rif,
                           const std::string& direccion) override {
        Record("PasarDatosCliente(" + nombre + "|" + rif + "|" + direccion + ")");
    }
    void PasarDatosClienteNC(const std::string& nombre, const std::string& rif,
                             const std::string& direccion, const std::string& factura,
                             const std::string& serial, automation::Date fecha) override {
        const automation::DateParts d = automation::SplitDate(fecha);
        Record("PasarDatosClienteNC(" + nombre + "|" + rif + "|" + direccion + "|" + factura + "|" +
               serial + "|" + std::to_string(d.day) + "/" + std::to_string(d.month) + "/" +
               std::to_string(d.year) + ")");
    }
    void PasarItem(const std::string& descripcion, automation::Currency precio, double cantidad,
                   double tasa) override {
        Record("PasarItem(" + descripcion + "|" + Money(precio) + "|" + Number(cantidad) + "|" +
               Number(tasa) + ")");
    }
    void RefundItem(const std::string& descripcion, automation::Currency precio, double cantidad,
                    double tasa) override {
        Record("RefundItem(" + descripcion + "|" + Money(precio) + "|" + Number(cantidad) + "|" +
               Number(tasa) + ")");
    }
    void SubTotal() override { Record("SubTotal()"); }
    void PasarDescuento(double porcentaje) override {
        Record("PasarDescuento(" + Number(porcentaje) + ")");
    }
    void PasarMontoDescuento(automation::Currency monto) override {
        Record("PasarMontoDescuento(" + Money(monto) + ")");
    }
    void CerrarConMedio(int medio, automation::Currency monto) override {
        Record("CerrarConMedio(" + std::to_string(medio) + "|" + Money(monto) + ")");
    }
    void CerrarNotaCreditoConMedio(int medio, automation::Currency monto) override {
        Record("CerrarNotaCreditoConMedio(" + std::to_string(medio) + "|" + Money(monto) + ")");
    }
    void PrintNoFiscal(const std::string& texto, bool cerrar) override {
        Record("PrintNoFiscal(" + texto + "|" + (cerrar ? "true" : "false") + ")");
    }
    void ReporteDiario(const std::string& rango, const std::string& tipo) override {
        Record("ReporteDiario(" + rango + "|" + tipo + ")");
    }
    void SetHeader(int linea, const std::string& texto) override {
        Record("SetHeader(" + std::to_string(linea) + "|" + texto + ")");
    }
    void SetFooter(int linea, const std::string& texto) override {
        Record("SetFooter(" + std::to_string(linea) + "|" + texto + ")");
    }
    void SetDate(automation::Date fecha) override {
        const automation::DateParts d = automation::SplitDate(fecha);
        Record("SetDate(" + std::to_string(d.day) + "/" + std::to_string(d.month) + "/" +
               std::to_string(d.year) + ")");
    }
    void SetTime(automation::Date hora) override {
        const automation::DateParts d = automation::SplitDate(hora);
        Record("SetTime(" + std::to_string(d.hour) + ":" + std::to_string(d.minute) + ":" +
               std::to_string(d.second) + ")");
    }

    const session::ExchangeOutcome& outcome() const override { return outcome_; }
    std::string explainSTS1() const override { return "STS1 words"; }
    std::string explainSTS2() const override { return "STS2 words"; }

    session::ExchangeOutcome outcome_;

  private:
    void Record(std::string call) {
        calls.push_back(std::move(call));
        outcome_ = {};
        outcome_.resultFlag = session::ACK;
        if (calls.size() == refuse) {
            outcome_.resultFlag = session::NAK;
            outcome_.pfError = nakLeavesPfOk ? session::pfOk : session::pfPrinterError;
            outcome_.DescripcionError = nakLeavesPfOk ? "Ok" : "Se recibi\xF3 NAK";
            outcome_.STS1 = 0x60;
            outcome_.STS2 = 0x60;
        }
    }
    static std::string Money(automation::Currency amount) {
        return std::to_string(amount.scaled());
    }
    static std::string Number(double value) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", value);
        return text;
    }
};

}  // namespace corvid::tool::testing
