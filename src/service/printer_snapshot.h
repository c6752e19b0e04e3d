// What the printer itself says of the document in progress and of its counters: the
// evidence the service decides from whenever a reply was lost, after a restart, or when a
// printer comes back from a power cut.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::service {

// The S1 counter a finished job moves on by one.
enum class Counter { kInvoice, kCreditNote, kNonFiscal, kClosure, kReport };

struct Counters {
    std::int64_t invoice = 0, creditNote = 0, nonFiscal = 0, closures = 0, reports = 0;

    std::int64_t Of(Counter counter) const;
    nlohmann::json ToJson() const;
    static Counters FromJson(const nlohmann::json& json);
};

// Kinds of open document, as S2 tells them.
inline constexpr int kNoDocument = 0, kInvoiceOpen = 1, kCreditNoteOpen = 2, kNonFiscalOpen = 3;

struct PrinterSnapshot {
    int documentKind = kNoDocument;
    std::int64_t documentNumber = 0;
    std::int64_t quantityThousandths = 0;  // items sold on the open document
    std::int64_t subtotalCents = 0;
    int payments = 0;
    Counters counters;

    // For the journal and for people.
    std::string Describe() const;
};

// Reads S1 and S2; none when either reply is missing or does not read.
std::optional<PrinterSnapshot> ReadSnapshot(session::PrinterFiscal& printer);
// S1 only.
std::optional<Counters> ReadCounters(session::PrinterFiscal& printer);
// The open document's subtotal from S2, in cents.
std::optional<std::int64_t> ReadSubtotal(session::PrinterFiscal& printer);
// What the open document comes to, taxes included, in cents.
std::optional<std::int64_t> ReadDue(session::PrinterFiscal& printer);

}  // namespace corvid::service
