#include "records/printer_response2.h"

#include "automation/conversions.h"
#include "automation/format.h"
#include "automation/variant.h"
#include "records/reply_fields.h"

namespace corvid::records {
namespace {

using detail::Trim;

automation::Currency Amount(std::string_view text) { return detail::Hundredths(Trim(text)); }

// Split at every blank, empty parts kept; an empty text has no parts.
std::vector<std::string_view> SplitBlanks(std::string_view text) {
    std::vector<std::string_view> parts;
    if (text.empty()) return parts;
    std::size_t start = 0;
    for (std::size_t blank; (blank = text.find(' ', start)) != std::string_view::npos;) {
        parts.push_back(text.substr(start, blank - start));
        start = blank + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

}  // namespace

void PrinterResponse2::loadFake() { tipoTrans = -1; }

void PrinterResponse2::loadFromResponse(const std::vector<std::string>& v) {
    // Field 0 starts with the three characters of the command echo.
    subTotalVenta = Amount(detail::Mid(FieldAt(v, 0), 4));
    subTotalImpuestos = Amount(FieldAt(v, 1));
    cantidadItems = automation::CDbl(Trim(FieldAt(v, 3)));
    total = Amount(FieldAt(v, 4));
    cantidadPagos = automation::CInt(Trim(FieldAt(v, 5)));
    tipoTrans = automation::CInt(Trim(FieldAt(v, 6)));
}

std::string PrinterResponse2::toString() const {
    using automation::CStr;
    using automation::Variant;
    std::string text;
    const auto line = [&](const char* label, const Variant& value) {
        text += label + CStr(value) + "\r\n";
    };
    line("subTotalVenta = ", subTotalVenta);
    line("subTotalImpuestos = ", subTotalImpuestos);
    line("cantidadItems = ", cantidadItems);
    line("total = ", total);
    line("cantidadPagos = ", cantidadPagos);
    line("tipoTrans = ", tipoTrans);
    return text;
}

void EstadoDocumento::loadFromResponse(const std::vector<std::string>& v) {
    // The failure reply ("pfError") has no blank: nothing is loaded from it.
    const auto parts = SplitBlanks(FieldAt(v, 0));
    if (parts.size() < 2) return;
    subTotalBasesImponibles = Amount(parts[1]);
    subTotalIVA = Amount(FieldAt(v, 1));
    NotaS2 = FieldAt(v, 3);
    MontoPorPagar = Amount(FieldAt(v, 4));
    numeroPagosRealizados = automation::CInt(FieldAt(v, 5));
    estado = automation::CInt(FieldAt(v, 6));
}

std::string EstadoDocumento::toString() const {
    using automation::Format;
    using automation::Variant;
    std::string text;
    const auto line = [&](const char* label, const std::string& value) {
        text += label + value + "\r\n";
    };
    line("subTotalBasesImponibles = ", Format(Variant(subTotalBasesImponibles), "Currency"));
    line("subTotalIVA = ", Format(Variant(subTotalIVA), "Currency"));
    line("NotaS2 = ", NotaS2);
    line("MontoPorPagar = ", Format(Variant(MontoPorPagar), "Currency"));
    line("numeroPagosRealizados = ", Format(Variant(numeroPagosRealizados), "#0"));
    line("estado = ", Format(Variant(estado), "#0"));
    return text;
}

}  // namespace corvid::records
