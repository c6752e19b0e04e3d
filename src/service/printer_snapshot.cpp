#include "service/printer_snapshot.h"

#include <cmath>

#include "records/printer_response1.h"
#include "records/printer_response2.h"
#include "records/reply_fields.h"
#include "session/printer_fiscal.h"

namespace corvid::service {
namespace {

// The short S1 layout has 14 fields; a failed query gives one ("pfError").
constexpr std::size_t kFewestS1Fields = 12;
constexpr std::size_t kS2Fields = 7;

std::optional<records::Fields> Query(session::PrinterFiscal& printer, const char* command,
                                     std::size_t fewestFields) {
    records::Fields fields = printer.GetResponse(command);
    if (printer.outcome().pfError != session::pfOk || fields.size() < fewestFields) {
        return std::nullopt;
    }
    return fields;
}

std::int64_t Cents(const automation::Currency& amount) { return amount.scaled() / 100; }

}  // namespace

std::int64_t Counters::Of(Counter counter) const {
    switch (counter) {
        case Counter::kInvoice:
            return invoice;
        case Counter::kCreditNote:
            return creditNote;
        case Counter::kNonFiscal:
            return nonFiscal;
        case Counter::kClosure:
            return closures;
        case Counter::kReport:
            break;
    }
    return reports;
}

nlohmann::json Counters::ToJson() const {
    return {{"invoice", invoice},
            {"credit_note", creditNote},
            {"nonfiscal", nonFiscal},
            {"closures", closures},
            {"reports", reports}};
}

Counters Counters::FromJson(const nlohmann::json& json) {
    Counters counters;
    counters.invoice = json.value("invoice", std::int64_t{0});
    counters.creditNote = json.value("credit_note", std::int64_t{0});
    counters.nonFiscal = json.value("nonfiscal", std::int64_t{0});
    counters.closures = json.value("closures", std::int64_t{0});
    counters.reports = json.value("reports", std::int64_t{0});
    return counters;
}

std::string PrinterSnapshot::Describe() const {
    nlohmann::json json = {{"open_document", documentKind},
                           {"document_number", documentNumber},
                           {"quantity", static_cast<double>(quantityThousandths) / 1000},
                           {"subtotal", static_cast<double>(subtotalCents) / 100},
                           {"payments", payments},
                           {"counters", counters.ToJson()}};
    return json.dump();
}

std::optional<Counters> ReadCounters(session::PrinterFiscal& printer) {
    const auto fields = Query(printer, "S1", kFewestS1Fields);
    if (!fields) return std::nullopt;
    records::PrinterResponse1 s1;
    s1.loadFromResponse(*fields);
    Counters counters;
    counters.invoice = s1.numeroUltimaFactura;
    counters.creditNote = s1.numeroUltimaNC;
    counters.nonFiscal = s1.ultimoDNF;
    counters.closures = s1.nCierres;
    counters.reports = s1.contadorReportes;
    return counters;
}

namespace {

std::optional<std::int64_t> ReadS2Amount(session::PrinterFiscal& printer,
                                         automation::Currency records::PrinterResponse2::*amount) {
    const auto fields = Query(printer, "S2", kS2Fields);
    if (!fields) return std::nullopt;
    try {
        records::PrinterResponse2 s2;
        s2.loadFromResponse(*fields);
        return Cents(s2.*amount);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<std::int64_t> ReadSubtotal(session::PrinterFiscal& printer) {
    return ReadS2Amount(printer, &records::PrinterResponse2::subTotalVenta);
}

std::optional<std::int64_t> ReadDue(session::PrinterFiscal& printer) {
    return ReadS2Amount(printer, &records::PrinterResponse2::total);
}

std::optional<PrinterSnapshot> ReadSnapshot(session::PrinterFiscal& printer) {
    const auto fields = Query(printer, "S2", kS2Fields);
    if (!fields) return std::nullopt;
    PrinterSnapshot snapshot;
    try {
        records::PrinterResponse2 s2;
        s2.loadFromResponse(*fields);
        snapshot.documentKind = s2.tipoTrans;
        snapshot.subtotalCents = Cents(s2.subTotalVenta);
        snapshot.quantityThousandths = std::llround(s2.cantidadItems * 1000);
        snapshot.payments = s2.cantidadPagos;
        snapshot.documentNumber = std::stoll(records::FieldAt(*fields, 2));
    } catch (const std::exception&) {
        return std::nullopt;
    }
    const auto counters = ReadCounters(printer);
    if (!counters) return std::nullopt;
    snapshot.counters = *counters;
    return snapshot;
}

}  // namespace corvid::service
