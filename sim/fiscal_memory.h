// The printer's fiscal memory: one record per daily closing, never changed once written.
// Without a file it lives as long as the process; with one, each closing is appended to it
// as a line before the printer reports the closing done, so closings survive a restart.
//
// File format, one closing a line, blank-separated, lines starting with "#" skipped:
//   Z number date time lastInvoice invoiceDate invoiceTime lastDebitNote lastCreditNote
//     lastNonFiscal S bases[5] taxes[5] D bases[5] taxes[5] C bases[5] taxes[5]
// dates yymmdd, times hhmm, amounts in hundredths by rate slot (exempt, general, reduced,
// additional, levy); S sales, D debit notes, C credit notes.
#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "sim/money.h"

namespace corvid::sim {

// A moment as the printer's records write it.
struct Stamp {
    int date = 0;  // yymmdd
    int time = 0;  // hhmm
};

Stamp StampOf(const std::tm& t);
std::string DateField(const Stamp& stamp);  // "yymmdd"
std::string TimeField(const Stamp& stamp);  // "hhmm"

struct KindAmounts {
    SlotAmounts bases{};
    SlotAmounts taxes{};
};

struct ClosureRecord {
    long number = 0;
    Stamp at;
    long lastInvoice = 0;
    Stamp invoiceAt;
    long lastDebitNote = 0;
    long lastCreditNote = 0;
    long lastNonFiscal = 0;
    KindAmounts sales;
    KindAmounts debitNotes;
    KindAmounts creditNotes;
};

class FiscalMemory {
  public:
    void SetPath(std::string path) { path_ = std::move(path); }
    const std::string& path() const { return path_; }

    // Replaces the records with those of the file, if there is one; a missing file is an
    // empty memory.
    // Throws std::runtime_error naming the line when the file cannot be read or a line is
    // not a record.
    void Load();
    // Writes the record to the file, then keeps it. False, keeping nothing, when the file
    // cannot be written: the closing must then not take place.
    bool Keep(const ClosureRecord& record);

    bool empty() const { return records_.empty(); }
    const ClosureRecord& Last() const { return records_.back(); }
    // The records numbered from `from` to `to`, in number order.
    std::vector<ClosureRecord> Range(long from, long to) const;

  private:
    std::string path_;
    std::vector<ClosureRecord> records_;
};

}  // namespace corvid::sim
