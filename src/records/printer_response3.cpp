#include "records/printer_response3.h"

#include <cmath>

#include "automation/conversions.h"
#include "automation/format.h"
#include "automation/vb_error.h"
#include "documents/item_lines.h"
#include "host/trace_log.h"

namespace corvid::records {
namespace {

// Everything after the kind character, as a 16-bit integer in hundredths.
double Hundredths(const std::string& field) {
    return automation::CInt(field.size() > 1 ? std::string_view(field).substr(1) : "") / 100.0;
}

constexpr std::size_t kFlagsPerGroup = 10;

void TraceAbandoned(const std::string& errorText, host::TraceLog& trace) {
    // The method's name is misspelt in this line, as hosts' logs have always shown it.
    trace.Trace("PrinterResponse3.LoadFormResponse. Error: " + errorText);
}

}  // namespace

void PrinterResponse3::loadFake() {
    TipoTasa1 = TipoTasa2 = TipoTasa3 = false;
    ValorTasa1 = ValorTasa2 = ValorTasa3 = TasaIGTF = 0;
    isFake = true;
}

void PrinterResponse3::loadFromResponse(const std::vector<std::string>& v, host::TraceLog& trace) {
    isFake = false;
    const long upper = static_cast<long>(v.size()) - 1;
    try {
        if (upper >= 3) {
            bool* kinds[] = {&TipoTasa1, &TipoTasa2, &TipoTasa3};
            double* values[] = {&ValorTasa1, &ValorTasa2, &ValorTasa3};
            for (std::size_t i = 0; i < 3; ++i) {
                *kinds[i] = !v[i].empty() && v[i][0] == '1';
                *values[i] = Hundredths(v[i]);
            }
        }
        trace.Trace("PrinterResponse3.LoadFromResponse, UBound(v) = " + std::to_string(upper));
        std::size_t flagsField = 3;
        if (upper > 3 && !v[4].empty()) {
            TasaIGTF = Hundredths(v[3]);
            flagsField = 4;
        } else {
            TasaIGTF = 3;  // the printer does not report it: the fixed 3 percent
        }
        trace.Trace("PrinterResponse3.LoadFromResponse, indiceFlags = " +
                    std::to_string(flagsField));
        // A reply without a flag field fails as reading past the array's end does.
        if (upper < static_cast<long>(flagsField)) {
            throw automation::VbError::Standard(automation::vb_errors::kSubscriptOutOfRange);
        }
        const std::string& row = v[flagsField];
        // A row too long for the 16-bit count overflows (error 6) instead of wrapping it.
        nFlags = automation::CInt(static_cast<double>(row.size() / 2) - 1);
        flags_.assign(static_cast<std::size_t>(nFlags + 1), 0);
        for (std::size_t i = 0; i < flags_.size(); ++i) {
            flags_[i] = automation::CInt(std::string_view(row).substr(2 * i, 2));
        }
    } catch (const automation::VbError& error) {
        TraceAbandoned(error.description(), trace);
    }
}

void PrinterResponse3::loadFromUnreadable(const std::string& errorText, host::TraceLog& trace) {
    isFake = false;
    TraceAbandoned(errorText, trace);
}

std::optional<std::int16_t> PrinterResponse3::IndexOfRate(double tasa) const {
    const double rates[] = {ValorTasa1, ValorTasa2, ValorTasa3};
    const auto index = documents::MatchRate(rates, 3, tasa);
    if (!index) return std::nullopt;
    return static_cast<std::int16_t>(*index + 1);
}

double RateOfField(const Fields& s3, std::size_t index) {
    const std::string& field = FieldAt(s3, index);
    const double rate =
        automation::Val(field.size() > 1 ? std::string_view(field).substr(1) : "") / 100;
    if (!std::isfinite(rate)) throw automation::VbError::Standard(automation::vb_errors::kOverflow);
    return rate;
}

std::int16_t PrinterResponse3::Flag(std::int32_t n) const {
    if (n < 0 || n >= static_cast<std::int32_t>(flags_.size())) return -1;
    return flags_[static_cast<std::size_t>(n)];
}

std::string PrinterResponse3::toString() const {
    std::string text;
    const auto line = [&](const std::string& label, const std::string& value) {
        text += label + value + "\r\n";
    };
    const auto number = [](double value) { return automation::CStr(automation::Variant(value)); };
    line("Tasa1: ", imagenIncluido(TipoTasa1));
    line("Valor 1: ", number(ValorTasa1));
    line("Tasa2: ", imagenIncluido(TipoTasa2));
    line("Valor 2: ", number(ValorTasa2));
    line("Tasa3: ", imagenIncluido(TipoTasa3));
    line("Valor 3: ", number(ValorTasa3));
    std::string flags = "FLAGS: ";
    for (std::size_t i = 0; i < flags_.size(); ++i) {
        if (i > 0 && i % kFlagsPerGroup == 0) flags += "  ";
        flags += automation::Format(automation::Variant(flags_[i]), "00");
    }
    line(flags, "");
    return text;
}

}  // namespace corvid::records
