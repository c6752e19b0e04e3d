// What the simulated printer knows about itself: model, serial number, clock, tax rates,
// flags, header and footer, the cashier, the open document, the day's totals, the
// documents issued and the paper it printed. Command handlers read and change it.
#pragma once

#include <array>
#include <chrono>
#include <ctime>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/amount_formats.h"
#include "sim/day_totals.h"
#include "sim/document.h"
#include "sim/fiscal_memory.h"
#include "sim/paper_roll.h"

namespace corvid::sim {

enum class Variant { SRP350, DT230, HKA112, SRP812 };

// The S1 record comes in two layouts: 14 fields (older firmware) or 16 fields. Unless
// chosen, the SRP350 and DT230 send the short one, the HKA112 and SRP812 the long one.
enum class S1Layout { Short, Long };
S1Layout DefaultS1Layout(Variant variant);

// The model a serial number announces: "Z6B" DT230, "Z7A" HKA112, "Z1F" SRP812, else SRP350.
Variant VariantFromSerial(std::string_view serial);

// A plausible serial number of the model, recognisable by its first three characters.
std::string DefaultSerial(Variant variant);

inline constexpr int kFlagCount = 64;  // flags 00 to 63, reported by S3
inline constexpr int kAmountFormatFlag = 21;

// A fiscal document as it was printed, kept for reprints.
struct IssuedDocument {
    DocumentKind kind;
    long number;
    int date;  // yymmdd
    std::vector<std::string> lines;
};

struct FiscalState {
    // Status bytes are worked out from the state; a forced value stands in for that.
    std::optional<unsigned char> forcedSts1;
    std::optional<unsigned char> forcedSts2;
    bool lastCommandRefused = false;

    std::string serial = DefaultSerial(Variant::SRP350);
    std::string rif = "J-30123456-7";
    std::optional<S1Layout> s1Layout;  // none: the model's own

    int cashier = 0;  // 0: nobody logged in
    bool training = false;

    // Numbers of the last document of each kind and of the last reports; they run on
    // across days.
    long lastInvoice = 1520;
    long lastDebitNote = 12;
    long lastCreditNote = 48;
    long lastNonFiscal = 310;
    long closures = 204;
    long reportCounter = 19;
    std::optional<Stamp> lastInvoiceAt;  // none until an invoice is issued or restored

    Rates rates{0, 1600, 800, 3100, 0};  // tax is added to the price
    int igtfRate = 300;                  // hundredths of a percent
    std::array<int, kFlagCount> flags{};
    std::map<int, std::string> header;  // 40-column lines by number
    std::map<int, std::string> footer;

    std::optional<Document> document;
    DayTotals day;
    std::vector<IssuedDocument> issued;
    PaperRoll paper;
    FiscalMemory memory;

    // The printer's clock: fixed when set, else the host's clock moved by the offset that
    // setting the date or time leaves.
    std::optional<std::tm> clock;
    std::chrono::seconds clockOffset{0};

    Variant variant() const { return VariantFromSerial(serial); }
    AmountFormats formats() const { return AmountFormatsFor(flags[kAmountFormatFlag]); }
    S1Layout s1LayoutInUse() const { return s1Layout.value_or(DefaultS1Layout(variant())); }

    // Reads the fiscal memory's file; the counters of the last closing it holds become the
    // printer's own (they count on from there). An empty memory starts with the closing
    // the counter says was the last: StartingClosure(). Throws std::runtime_error when the
    // file cannot be read or written.
    void LoadMemory();
    // The closing a printer with no memory yet was switched on after: number `closures`,
    // today at 00:00, the document numbers as they stand, nothing sold.
    ClosureRecord StartingClosure() const;

    // 0x60 fiscal mode (0x40 training), plus 1 while a fiscal document is open and 2 while
    // a non-fiscal one is.
    unsigned char Sts1() const;
    // 0x40, or 0x60 ("fiscal error") after a refused command until one is accepted.
    unsigned char Sts2() const;

    std::tm Now() const;
    void SetClock(std::tm time);

    // The fields of the reply to "S1" in the chosen layout.
    std::vector<std::string> S1Fields() const;
    // The fields of the reply to "S3": three rates, IGTF, flags.
    std::vector<std::string> S3Fields() const;
};

}  // namespace corvid::sim
