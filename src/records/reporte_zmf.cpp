#include "records/reporte_zmf.h"

#include "automation/conversions.h"
#include "automation/format.h"
#include "records/fecha_hora.h"
#include "records/reply_fields.h"

namespace corvid::records {

using detail::Hundredths;

std::string FiscalMemoryRangeCommand(const automation::Variant& desde,
                                     const automation::Variant& hasta) {
    return "U3A" + automation::Format(desde, "000000") + automation::Format(hasta, "000000");
}

void ReporteZMF::loadFromResponse(const std::vector<std::string>& response) {
    const auto& r = response;
    numeroCierre = automation::CInt(FieldAt(r, 0));
    fechaCierre = ParseFechaHora(FieldAt(r, 1), FieldAt(r, 2));
    numeroUltimaFactura = automation::CLng(FieldAt(r, 3));
    fechaUltimaFactura = ParseFechaHora(FieldAt(r, 4), "");
    horaUltimaFactura = ParseFechaHora("", FieldAt(r, 5));
    // Fields 6 to 8 and 14 to 22 are not kept.
    ventasExentas = Hundredths(FieldAt(r, 9));
    baseVG = Hundredths(FieldAt(r, 10));
    impuestoVG = Hundredths(FieldAt(r, 11));
    baseIR = Hundredths(FieldAt(r, 12));
    impuestoIR = Hundredths(FieldAt(r, 13));
    NCExentas = Hundredths(FieldAt(r, 23));
    baseNCVG = Hundredths(FieldAt(r, 24));
    impuestoNCVG = Hundredths(FieldAt(r, 25));
    baseNCIR = Hundredths(FieldAt(r, 26));
    impuestoNCIR = Hundredths(FieldAt(r, 27));
}

bool ReporteZMF::load(ResponseSource& printer, const automation::Variant& numero) {
    const std::vector<Fields> rows =
        printer.GetMultipleResponses(FiscalMemoryRangeCommand(numero, numero));
    // No row at all is as much a failed exchange as the "pfError" row.
    if (rows.empty() || rows[0].empty() || rows[0][0] == "pfError") return false;
    loadFromResponse(rows[0]);
    return true;
}

std::string ReporteZMF::toString() const {
    using automation::Variant;
    std::string text;
    const auto line = [&](const char* label, const Variant& value) {
        text += label + automation::CStr(value) + "\r\n";
    };
    line("NumeroCierre = ", numeroCierre);
    line("Fecha Cierre = ", fechaCierre);
    line("numeroUltimaFactura = ", numeroUltimaFactura);
    line("fechaUltimaFactura = ", fechaUltimaFactura);
    line("horaUltimaFactura = ", horaUltimaFactura);
    line("ventasExentas = ", ventasExentas);
    line("baseVG = ", baseVG);
    line("impuestoVG = ", impuestoVG);
    line("baseIR = ", baseIR);
    line("impuestoIR = ", impuestoIR);
    line("NCExentas = ", NCExentas);
    line("baseNCVG = ", baseNCVG);
    line("impuestoNCVG = ", impuestoNCVG);
    line("baseNCIR = ", baseNCIR);
    line("impuestoNCIR = ", impuestoNCIR);
    return text;
}

}  // namespace corvid::records
