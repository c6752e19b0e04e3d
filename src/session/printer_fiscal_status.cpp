// The façade's status queries: each sends one status command and hands the reply to a
// record of src/records.
#include <limits>

#include "automation/conversions.h"
#include "automation/vb_error.h"
#include "session/printer_fiscal.h"

namespace corvid::session {
namespace {

using records::FieldAt;

// A command refused with NAK at every attempt leaves an empty reply: its field 0 does not
// exist, and asking for it raises error 9, as it always has for hosts.
bool Failed(const Fields& fields) { return FieldAt(fields, 0) == "pfError"; }

// The "S2", "S3" and "S4" records share one shape: a substitute in test mode or after a
// failed exchange, the reply's fields otherwise.
template <class Record, class Load>
std::shared_ptr<Record> StatusRecord(bool substituting, PrinterFiscal& printer,
                                     std::string_view command, Load load) {
    auto record = std::make_shared<Record>();
    if (substituting) {
        record->loadFake();
        return record;
    }
    const Fields fields = printer.GetResponse(command);
    if (Failed(fields)) {
        record->loadFake();
    } else {
        load(*record, fields);
    }
    return record;
}

}  // namespace

std::int32_t PrinterFiscal::numeroUltimaFactura() {
    const Fields fields = GetResponse("S1");
    if (Failed(fields)) return -1;
    return records::LastInvoiceNumber(fields);
}

std::int32_t PrinterFiscal::NumeroUltimoCierre() {
    const Fields fields = GetResponse("S1");
    if (Failed(fields)) return -1;
    return records::LastClosureNumber(fields);
}

std::shared_ptr<records::PrinterResponse1> PrinterFiscal::Response1() {
    auto record = std::make_shared<records::PrinterResponse1>();
    if (Substituting()) {
        record->loadFake();
        return record;
    }
    // Unlike the other records, an empty reply is no failure here: it is a reply that does
    // not read, and the record falls back to its substitute by itself.
    const Fields fields = GetResponse("S1");
    if (fields == Fields{"pfError"}) {
        record->loadFake();
    } else {
        record->loadFromResponse(fields);
    }
    return record;
}

std::shared_ptr<records::PrinterResponse2> PrinterFiscal::Response2() {
    return StatusRecord<records::PrinterResponse2>(
        Substituting(), *this, "S2", [](records::PrinterResponse2& record, const Fields& fields) {
            record.loadFromResponse(fields);
        });
}

std::shared_ptr<records::PrinterResponse3> PrinterFiscal::Response3() {
    return StatusRecord<records::PrinterResponse3>(
        Substituting(), *this, "S3",
        [this](records::PrinterResponse3& record, const Fields& fields) {
            record.loadFromResponse(fields, process_.trace);
        });
}

std::shared_ptr<records::PrinterResponse4> PrinterFiscal::Response4() {
    return StatusRecord<records::PrinterResponse4>(
        Substituting(), *this, "S4", [](records::PrinterResponse4& record, const Fields& fields) {
            record.loadFromResponse(fields);
        });
}

std::shared_ptr<records::ResumenZ> PrinterFiscal::CerrarZ() {
    if (Execute("I0Z") != 0) return nullptr;
    return ResumenZ();
}

std::shared_ptr<records::ResumenZ> PrinterFiscal::ResumenZ() {
    auto record = std::make_shared<records::ResumenZ>();
    record->load(*this);
    return record;
}

double PrinterFiscal::tasa(double index) {
    if (index < 1 || index > 3) return 0;
    const Fields fields = GetResponse("S3");
    if (Failed(fields)) return -1;
    return records::RateOfField(fields, static_cast<std::size_t>(automation::CLng(index - 1)));
}

std::shared_ptr<records::EstadoDocumento> PrinterFiscal::getEstadoDocumento() {
    auto record = std::make_shared<records::EstadoDocumento>();
    // No failure test: the failure reply has no blank in field 0, so nothing is loaded.
    record->loadFromResponse(GetResponse("S2"));
    return record;
}

std::vector<std::shared_ptr<records::ReporteZMF>> PrinterFiscal::reportesZMF(
    const automation::Variant& desde, const automation::Variant& hasta) {
    const std::vector<Fields> rows =
        GetMultipleResponses(records::FiscalMemoryRangeCommand(desde, hasta));
    std::vector<std::shared_ptr<records::ReporteZMF>> closures;
    if (Failed(rows.at(0))) return closures;
    // The host's row counter is a 16-bit integer: it cannot step past row 32766.
    if (rows.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
        throw automation::VbError::Standard(automation::vb_errors::kOverflow);
    }
    for (const Fields& row : rows) {
        auto closure = std::make_shared<records::ReporteZMF>();
        closure->loadFromResponse(row);
        closures.push_back(std::move(closure));
    }
    return closures;
}

std::shared_ptr<records::ReporteZMF> PrinterFiscal::loadReporteZMF(
    const automation::Variant& numero) {
    auto closure = std::make_shared<records::ReporteZMF>();
    if (!closure->load(*this, numero)) return nullptr;
    return closure;
}

}  // namespace corvid::session
