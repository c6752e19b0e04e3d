// What the simulated printer knows about itself: model, serial number, status bytes and
// the counters that its status records report. Command handlers read and change it; it
// is the place where the fiscal meaning of document commands will grow.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::sim {

enum class Variant { SRP350, DT230, HKA112, SRP812 };

// The S1 record comes in two layouts: 14 fields (older firmware) or 16 fields.
enum class S1Layout { Short, Long };

// The model a serial number announces: "Z6B" DT230, "Z7A" HKA112, "Z1F" SRP812, else SRP350.
Variant VariantFromSerial(std::string_view serial);

// A plausible serial number of the model, recognisable by its first three characters.
std::string DefaultSerial(Variant variant);

struct FiscalState {
    // Status bytes of the reply to ENQ; default: fiscal mode, idle, no error.
    unsigned char sts1 = 0x60;
    unsigned char sts2 = 0x40;

    std::string serial = DefaultSerial(Variant::SRP350);
    std::string rif = "J-30123456-7";
    S1Layout s1Layout = S1Layout::Short;

    int cashier = 1;
    std::int64_t dailySalesHundredths = 1234567;  // 12345.67
    long lastInvoice = 1520;
    long invoicesToday = 37;
    long lastDebitNote = 12;
    long debitNotesToday = 1;
    long lastCreditNote = 48;
    long creditNotesToday = 2;
    long lastNonFiscal = 310;
    long nonFiscalToday = 5;
    long closures = 204;
    long reportCounter = 19;

    // The printer's clock; the host's clock when empty.
    std::optional<std::tm> clock;

    Variant variant() const { return VariantFromSerial(serial); }

    // The fields of the reply to "S1" in the chosen layout.
    std::vector<std::string> S1Fields() const;
};

}  // namespace corvid::sim
