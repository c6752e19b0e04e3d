#include "records/printer_response1.h"

#include "automation/conversions.h"
#include "automation/dates.h"
#include "automation/format.h"
#include "automation/vb_error.h"
#include "host/library_settings.h"
#include "host/settings_store.h"
#include "records/fecha_hora.h"
#include "records/reply_fields.h"

namespace corvid::records {
namespace {

using detail::Hundredths;
using detail::NarrowedCounter;

constexpr const char* kFakeSection = "Config\\NimbusPF\\Response1";

// Field 0 carries the command echo before the cashier's two digits.
std::int16_t Cashier(const std::string& field) { return automation::CInt(detail::Right(field, 2)); }

std::string Setting(const char* key, const char* fallback) {
    return host::GetSettingString(host::kApplication, kFakeSection, key, fallback);
}

}  // namespace

void PrinterResponse1::loadFake() {
    numeroCajero = automation::CInt(Setting("numeroCajero", "0"));
    // The sales total has always been read from the cashier's key; hosts rely on it.
    totalVentasDiarias = automation::CCur(Setting("numeroCajero", "0"));
    numeroUltimaFactura = automation::CLng(Setting("ultimaFactura", "0"));
    facturasDia = automation::CLng(Setting("facturasDia", "0"));
    ultimoDNF = automation::CLng(Setting("ultimoDNF", "0"));
    ndfDia = automation::CLng(Setting("ndnfDia", "0"));  // the key's spelling is established
    nCierres = automation::CLng(Setting("nCierres", "0"));
    contadorReportes = automation::CLng(Setting("contadorReportes", "0"));
    RIF = Setting("RIF", "J-12345678-9");
    Serial = Setting("Serial", "");
    Fecha = automation::Now();
}

std::int32_t LastInvoiceNumber(const Fields& fields) {
    return automation::CLng(FieldAt(fields, 2));
}

std::int32_t LastClosureNumber(const Fields& fields) {
    return automation::CLng(FieldAt(fields, 6));
}

void PrinterResponse1::loadFromResponse(const Fields& v) {
    isFake = false;
    try {
        if (v.size() < 16) {
            ReadShortLayout(v);
        } else {
            ReadLongLayout(v);
        }
    } catch (const automation::VbError&) {
        loadFake();
    }
}

void PrinterResponse1::ReadShortLayout(const Fields& v) {
    numeroCajero = Cashier(FieldAt(v, 0));
    totalVentasDiarias = Hundredths(FieldAt(v, 1));
    numeroUltimaFactura = LastInvoiceNumber(v);
    facturasDia = automation::CLng(FieldAt(v, 3));
    // This layout has no debit notes.
    numeroUltimaND = 0;
    notasDebitoDia = 0;
    ultimoDNF = automation::CLng(FieldAt(v, 4));
    ndfDia = automation::CLng(FieldAt(v, 5));
    nCierres = automation::CLng(FieldAt(v, 6));
    contadorReportes = automation::CLng(FieldAt(v, 7));
    RIF = FieldAt(v, 8);
    Serial = FieldAt(v, 9);
    Fecha = ParseFechaHora(FieldAt(v, 10), FieldAt(v, 11));
    // Older printers stop before the credit notes: they count as none.
    try {
        numeroUltimaNC = automation::CLng(FieldAt(v, 12));
    } catch (const automation::VbError&) {
        numeroUltimaNC = 0;
    }
    try {
        notasCreditoDia = NarrowedCounter(FieldAt(v, 13));
    } catch (const automation::VbError&) {
        notasCreditoDia = 0;
    }
}

void PrinterResponse1::ReadLongLayout(const Fields& v) {
    numeroCajero = Cashier(FieldAt(v, 0));
    totalVentasDiarias = Hundredths(FieldAt(v, 1));
    numeroUltimaFactura = LastInvoiceNumber(v);
    facturasDia = automation::CLng(FieldAt(v, 3));
    numeroUltimaND = automation::CLng(FieldAt(v, 4));
    notasDebitoDia = NarrowedCounter(FieldAt(v, 5));
    numeroUltimaNC = automation::CLng(FieldAt(v, 6));
    notasCreditoDia = NarrowedCounter(FieldAt(v, 7));
    ultimoDNF = automation::CLng(FieldAt(v, 8));
    ndfDia = automation::CLng(FieldAt(v, 9));
    // The report counter comes before the closures here, after them in the short layout.
    contadorReportes = automation::CLng(FieldAt(v, 10));
    nCierres = automation::CLng(FieldAt(v, 11));
    RIF = FieldAt(v, 12);
    Serial = FieldAt(v, 13);
    // The time comes before the date in this layout.
    Fecha = ParseFechaHora(FieldAt(v, 15), FieldAt(v, 14));
}

std::string PrinterResponse1::toString() const {
    using automation::Format;
    using automation::Variant;
    std::string text;
    const auto line = [&](const char* label, const std::string& value) {
        text += label + value + "\r\n";
    };
    line("numeroCajero = ", Format(Variant(numeroCajero), "000"));
    line("TotalVentasDiarias = ", Format(Variant(totalVentasDiarias), "Currency"));
    line("NumeroUltimaFactura = ", Format(Variant(numeroUltimaFactura), "000000"));
    line("facturasDia = ", Format(Variant(facturasDia), "0000"));
    line("ultimoDNF = ", Format(Variant(ultimoDNF), "000000"));
    line("ndfDia = ", Format(Variant(ndfDia), "#,##0"));
    line("nCierres = ", Format(Variant(nCierres), "#,##0"));
    line("contadorReportes = ", Format(Variant(contadorReportes), "#,##0"));
    line("RIF = ", RIF);
    line("Serial = ", automation::Format(automation::Variant(Serial), ">"));
    line("Fecha = ", Format(Variant(Fecha), "dd-mm-yyyy hh:nn"));
    return text;
}

}  // namespace corvid::records
