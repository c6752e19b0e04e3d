#include "corvid/record_views.h"

#include <cstdio>
#include <ostream>

#include "automation/dates.h"
#include "text/windows_1252.h"

namespace corvid::tool {
namespace {

using automation::Currency;

double Amount(Currency value) { return value.ToDouble(); }

std::string IsoDate(automation::Date value) {
    const automation::DateParts p = automation::SplitDate(value);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", p.year, p.month, p.day,
                  p.hour, p.minute, p.second);
    return text;
}

std::string Text(const std::string& printerText) { return text::Utf8FromWindows1252(printerText); }

}  // namespace

RecordView ViewOf(const records::PrinterResponse1& r) {
    return {{"numeroCajero", r.numeroCajero},
            {"totalVentasDiarias", Amount(r.totalVentasDiarias)},
            {"numeroUltimaFactura", r.numeroUltimaFactura},
            {"facturasDia", r.facturasDia},
            {"numeroUltimaND", r.numeroUltimaND},
            {"notasDebitoDia", r.notasDebitoDia},
            {"numeroUltimaNC", r.numeroUltimaNC},
            {"notasCreditoDia", r.notasCreditoDia},
            {"ultimoDNF", r.ultimoDNF},
            {"ndfDia", r.ndfDia},
            {"nCierres", r.nCierres},
            {"contadorReportes", r.contadorReportes},
            {"RIF", Text(r.RIF)},
            {"Serial", Text(r.Serial)},
            {"Fecha", IsoDate(r.Fecha)},
            {"isFake", r.isFake}};
}

RecordView ViewOf(const records::PrinterResponse2& r) {
    return {{"subTotalVenta", Amount(r.subTotalVenta)},
            {"subTotalImpuestos", Amount(r.subTotalImpuestos)},
            {"cantidadItems", r.cantidadItems},
            {"total", Amount(r.total)},
            {"cantidadPagos", r.cantidadPagos},
            {"tipoTrans", r.tipoTrans}};
}

RecordView ViewOf(const records::PrinterResponse3& r) {
    RecordView flags = RecordView::array();
    for (int i = 0; i <= r.nFlags; ++i) flags.push_back(r.Flag(i));
    return {{"TipoTasa1", r.imagenIncluido(r.TipoTasa1)},
            {"ValorTasa1", r.ValorTasa1},
            {"TipoTasa2", r.imagenIncluido(r.TipoTasa2)},
            {"ValorTasa2", r.ValorTasa2},
            {"TipoTasa3", r.imagenIncluido(r.TipoTasa3)},
            {"ValorTasa3", r.ValorTasa3},
            {"TasaIGTF", r.TasaIGTF},
            {"flags", flags},
            {"isFake", r.isFake}};
}

RecordView ViewOf(const records::PrinterResponse4& r) {
    RecordView means = RecordView::array();
    for (int n = 1; n <= r.nMedios(); ++n) means.push_back(Amount(r.valor(n)));
    return {{"medios", means}, {"isFake", r.isFake}};
}

RecordView ViewOf(const records::ResumenZ& r) {
    const auto group = [](Currency exempt, Currency baseG, Currency taxG, Currency baseR,
                          Currency taxR, Currency baseA, Currency taxA) {
        return RecordView{{"exento", Amount(exempt)},    {"baseGeneral", Amount(baseG)},
                          {"ivaGeneral", Amount(taxG)},  {"baseReducida", Amount(baseR)},
                          {"ivaReducida", Amount(taxR)}, {"baseAdicional", Amount(baseA)},
                          {"ivaAdicional", Amount(taxA)}};
    };
    return {{"numeroUltimoZ", r.numeroUltimoZ},
            {"fechaUltimoReporte", IsoDate(r.fechaUltimoReporte)},
            {"numeroUltimaFactura", r.numeroUltimaFactura},
            {"fechaUltimaFactura", IsoDate(r.fechaUltimaFactura)},
            {"ultimaND", r.ultimaND},
            {"ultimaNC", r.ultimaNC},
            {"ultimoDNF", r.ultimoDNF},
            {"ventas", group(r.ventasExentas, r.baseVG, r.impuestoVG, r.baseIR, r.impuestoIR,
                             r.baseIA, r.impuestoIA)},
            {"notasDebito", group(r.exentoND, r.baseVGND, r.impuestoVGND, r.baseIRND,
                                  r.impuestoIRND, r.baseIAND, r.impuestoIAND)},
            {"notasCredito", group(r.exentoNC, r.baseVGNC, r.impuestoVGNC, r.baseIRNC,
                                   r.impuestoIRNC, r.baseIANC, r.impuestoIANC)},
            {"percibido",
             {{"ventas", Amount(r.percibidoVentas)},
              {"notasDebito", Amount(r.percibidoND)},
              {"notasCredito", Amount(r.percibidoNC)}}},
            {"igtf",
             {{"base", Amount(r.BaseIGTF)},
              {"valor", Amount(r.ValorIGTF)},
              {"baseND", Amount(r.BaseIGTFND)},
              {"valorND", Amount(r.IGTFND)},
              {"baseNC", Amount(r.BaseIGTFNC)},
              {"valorNC", Amount(r.IGTFNC)}}}};
}

RecordView ViewOf(const records::ReporteZMF& r) {
    return {{"numeroCierre", r.numeroCierre},
            {"fechaCierre", IsoDate(r.fechaCierre)},
            {"numeroUltimaFactura", r.numeroUltimaFactura},
            {"fechaUltimaFactura", IsoDate(r.fechaUltimaFactura)},
            {"horaUltimaFactura", IsoDate(r.horaUltimaFactura)},
            {"ventasExentas", Amount(r.ventasExentas)},
            {"baseVG", Amount(r.baseVG)},
            {"impuestoVG", Amount(r.impuestoVG)},
            {"baseIR", Amount(r.baseIR)},
            {"impuestoIR", Amount(r.impuestoIR)},
            {"NCExentas", Amount(r.NCExentas)},
            {"baseNCVG", Amount(r.baseNCVG)},
            {"impuestoNCVG", Amount(r.impuestoNCVG)},
            {"baseNCIR", Amount(r.baseNCIR)},
            {"impuestoNCIR", Amount(r.impuestoNCIR)}};
}

void PrintView(const RecordView& view, std::ostream& out, const std::string& indent) {
    for (const auto& [name, value] : view.items()) {
        out << indent << name << ":";
        if (value.is_object()) {
            out << "\n";
            PrintView(value, out, indent + "  ");
        } else {
            out << " " << (value.is_string() ? value.get<std::string>() : value.dump()) << "\n";
        }
    }
}

}  // namespace corvid::tool
