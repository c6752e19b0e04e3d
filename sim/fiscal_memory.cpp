#include "sim/fiscal_memory.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace corvid::sim {

namespace {

void WriteAmounts(std::ostream& out, char tag, const KindAmounts& amounts) {
    out << ' ' << tag;
    for (Cents base : amounts.bases) out << ' ' << base;
    for (Cents tax : amounts.taxes) out << ' ' << tax;
}

bool ReadAmounts(std::istream& in, char tag, KindAmounts& amounts) {
    std::string word;
    if (!(in >> word) || word != std::string(1, tag)) return false;
    for (Cents& base : amounts.bases) in >> base;
    for (Cents& tax : amounts.taxes) in >> tax;
    return static_cast<bool>(in);
}

std::string RecordLine(const ClosureRecord& r) {
    std::ostringstream out;
    out << "Z " << r.number << ' ' << r.at.date << ' ' << r.at.time << ' ' << r.lastInvoice << ' '
        << r.invoiceAt.date << ' ' << r.invoiceAt.time << ' ' << r.lastDebitNote << ' '
        << r.lastCreditNote << ' ' << r.lastNonFiscal;
    WriteAmounts(out, 'S', r.sales);
    WriteAmounts(out, 'D', r.debitNotes);
    WriteAmounts(out, 'C', r.creditNotes);
    return out.str();
}

bool ParseRecord(const std::string& line, ClosureRecord& r) {
    std::istringstream in(line);
    std::string tag;
    in >> tag >> r.number >> r.at.date >> r.at.time >> r.lastInvoice >> r.invoiceAt.date >>
        r.invoiceAt.time >> r.lastDebitNote >> r.lastCreditNote >> r.lastNonFiscal;
    if (!in || tag != "Z") return false;
    if (!ReadAmounts(in, 'S', r.sales) || !ReadAmounts(in, 'D', r.debitNotes) ||
        !ReadAmounts(in, 'C', r.creditNotes)) {
        return false;
    }
    std::string extra;
    return !(in >> extra);
}

}  // namespace

Stamp StampOf(const std::tm& t) {
    return {(t.tm_year % 100) * 10000 + (t.tm_mon + 1) * 100 + t.tm_mday,
            t.tm_hour * 100 + t.tm_min};
}

std::string DateField(const Stamp& stamp) { return ZeroPadded(stamp.date, 6); }
std::string TimeField(const Stamp& stamp) { return ZeroPadded(stamp.time, 4); }

void FiscalMemory::Load() {
    if (path_.empty()) return;
    records_.clear();
    std::error_code error;
    if (!std::filesystem::exists(path_, error) && !error) return;
    std::ifstream file(path_);
    if (!file) throw std::runtime_error(path_ + ": cannot read the fiscal memory");
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.empty() || line[0] == '#') continue;
        ClosureRecord record;
        if (!ParseRecord(line, record) ||
            (!records_.empty() && record.number <= records_.back().number)) {
            throw std::runtime_error(path_ + ":" + std::to_string(number) +
                                     ": not a closing record in number order");
        }
        records_.push_back(record);
    }
}

bool FiscalMemory::Keep(const ClosureRecord& record) {
    if (!path_.empty()) {
        std::ofstream file(path_, std::ios::app);
        file << RecordLine(record) << '\n';
        file.flush();
        if (!file) return false;
    }
    records_.push_back(record);
    return true;
}

std::vector<ClosureRecord> FiscalMemory::Range(long from, long to) const {
    std::vector<ClosureRecord> found;
    std::copy_if(records_.begin(), records_.end(), std::back_inserter(found),
                 [&](const ClosureRecord& r) { return r.number >= from && r.number <= to; });
    return found;
}

}  // namespace corvid::sim
