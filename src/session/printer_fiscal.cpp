#include "session/printer_fiscal.h"

#include <cmath>

#include "automation/clock.h"
#include "automation/conversions.h"
#include "automation/format.h"
#include "host/settings_store.h"
#include "host/trace_log.h"
#include "preview/quick_view.h"
#include "session/framing.h"
#include "session/process_state.h"
#include "session/session_settings.h"

namespace corvid::session {

SessionProcessState& SessionProcess() {
    static SessionProcessState state;
    return state;
}

PrinterFiscal::PrinterFiscal(std::shared_ptr<SerialLine> line)
    : line_(line ? std::move(line) : ProcessSerialLine()) {
    ReadSettingsAtCreation();
}

PrinterFiscal::~PrinterFiscal() {
    try {
        Cerrar();
    } catch (...) {
        // Releasing the object must not throw into the host.
    }
}

void PrinterFiscal::ReadSettingsAtCreation() {
    if (auto v = ReadInt16Setting("TimeOut", 10)) timeOut_ = *v;
    if (auto v = ReadInt16Setting("Retries", 3)) retries_ = *v;
    skipChecks_ = ReadBoolSetting("SkipChecks", false);
    SessionProcess().testMode = ReadBoolSetting("TestMode", false);
    testMode_ = SessionProcess().testMode;
    auto& trace = host::TraceLog::Process();
    InstallDebugViewFactory();
    trace.SetIsDebug(ReadBoolSetting("IsDebug", false));
    trace.SetDebugInmediato(ReadBoolSetting("DebugInmediato", false));
    if (auto v = ReadInt32Setting("ColumnasDescripcion", 28)) columnasDescripcion_ = *v;

    // Rates "0", "1", ... until the first missing one; at most seven.
    numTasas_ = 0;
    while (numTasas_ < 7) {
        const std::string text =
            host::GetSettingString(kApplication, kRatesSection, std::to_string(numTasas_), "nil");
        if (text == "nil") break;
        tasas_[static_cast<std::size_t>(numTasas_)] = automation::Val(text);
        ++numTasas_;
    }
}

std::int32_t PrinterFiscal::tipoPrinter() const {
    const std::int32_t configured = ReadInt32Setting("TipoPrinter", -1).value_or(-1);
    if (configured >= 0) return configured;
    const std::string prefix = SerialPrinter.substr(0, 3);
    if (prefix == "Z6B") return DT230;
    if (prefix == "Z7A") return HKA112;
    if (prefix == "Z1F") return SRP812;
    return SRP350;
}

std::string PrinterFiscal::BuildCommandBlock(std::string_view command) const {
    return session::BuildCommandBlock(command);
}

std::int16_t PrinterFiscal::CalcXOr(std::string_view text) const { return session::CalcXOr(text); }

std::string PrinterFiscal::EscapeString(std::string_view text) const {
    return session::EscapeString(text);
}

std::int16_t PrinterFiscal::AnchoDireccion() const {
    return ReadInt16Setting("AnchoDireccion", 40).value_or(40);
}

std::int16_t PrinterFiscal::LineasDireccion() const {
    return ReadInt16Setting("LineasDireccion", 10).value_or(10);
}

void PrinterFiscal::Demora(std::int16_t n) {
    if (factorDelay_ == 0) {
        factorDelay_ = static_cast<float>(ReadNumberSetting("FactorDelay", 0.3));
    }
    const double seconds = n * static_cast<double>(factorDelay_);
    // Sleeping, not the clock loop a busy-wait would run: the printer needs the time,
    // not the processor.
    if (seconds > 0) {
        automation::CurrentClock().SleepMilliseconds(
            static_cast<long>(std::lround(seconds * 1000)));
    }
}

void PrinterFiscal::LoadFlag21() {
    // The S3 record that carries flag 21 comes with the status records; until then the
    // session keeps the f21 it has (0 on a new session, or what the host set).
}

namespace {

struct AmountFormat {
    std::int16_t digits;
    std::int16_t decimals;
};

struct AmountSettings {
    const char* digitsKey;
    const char* decimalsKey;
};

AmountSettings SettingsOf(AmountKind kind) {
    switch (kind) {
        case AmountKind::kPrice:
            return {"DigitosPrecio", "DecimalesPrecio"};
        case AmountKind::kQuantity:
            return {"DigitosCantidad", "DecimalesCantidad"};
        case AmountKind::kPayment:
            break;
    }
    return {"DigitosMedio", "DecimalesMedio"};
}

// The printer's default formats, chosen by its flag 21.
AmountFormat FallbackFormat(AmountKind kind, std::int16_t flag21) {
    struct Row {
        std::int16_t flag;
        AmountFormat price, quantity, payment;
    };
    static constexpr Row kRows[] = {
        {2, {10, 3}, {8, 3}, {12, 2}},   {3, {10, 4}, {8, 3}, {12, 2}},
        {11, {10, 1}, {8, 3}, {12, 1}},  {12, {10, 0}, {8, 3}, {12, 0}},
        {30, {16, 2}, {17, 3}, {17, 2}},
    };
    Row row{0, {10, 2}, {8, 3}, {12, 2}};
    for (const Row& candidate : kRows) {
        if (candidate.flag == flag21) row = candidate;
    }
    switch (kind) {
        case AmountKind::kPrice:
            return row.price;
        case AmountKind::kQuantity:
            return row.quantity;
        case AmountKind::kPayment:
            break;
    }
    return row.payment;
}

}  // namespace

std::string PrinterFiscal::FormatAmount(AmountKind kind, double value) {
    const std::size_t slot = 2 * static_cast<std::size_t>(kind);
    if (formatos_[slot] == 0) {
        const AmountSettings keys = SettingsOf(kind);
        formatos_[slot] = ReadInt16Setting(keys.digitsKey, -1).value_or(-1);
        formatos_[slot + 1] = ReadInt16Setting(keys.decimalsKey, -1).value_or(-1);
        if (formatos_[slot] < 0 || formatos_[slot + 1] < 0) {
            LoadFlag21();
            const AmountFormat fallback = FallbackFormat(kind, f21);
            formatos_[slot] = fallback.digits;
            formatos_[slot + 1] = fallback.decimals;
        }
    }
    const double scaled = std::floor(value * std::pow(10.0, formatos_[slot + 1]) + 0.5);
    return automation::Format(scaled, std::string(static_cast<std::size_t>(formatos_[slot]), '0'));
}

void PrinterFiscal::Trace(const std::string& message) const {
    host::TraceLog::Process().Trace(message);
}

}  // namespace corvid::session
