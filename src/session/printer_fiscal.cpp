#include "session/printer_fiscal.h"

#include <cmath>

#include "automation/clock.h"
#include "host/library_settings.h"
#include "session/framing.h"
#include "session/process_serial_line.h"
#include "session/status_texts.h"

namespace corvid::session {

PrinterFiscal::PrinterFiscal(std::shared_ptr<SerialLine> line)
    : process_(Process()),
      settings_(ReadSessionSettings(process_)),
      exchange_(line ? std::move(line) : ProcessSerialLine(), process_.trace, settings_.exchange),
      link_(settings_.testMode ? MakePreviewLink(exchange_)
                               : MakePortLink(exchange_, process_.trace)),
      amounts_([this] { return LoadFlag21(); }) {}

PrinterFiscal::~PrinterFiscal() {
    try {
        Cerrar();
    } catch (...) {
        // Releasing the object must not throw into the host.
    }
}

std::int32_t PrinterFiscal::tipoPrinter() const {
    const std::int32_t configured = host::ReadInt32Setting("TipoPrinter", -1).value_or(-1);
    if (configured >= 0) return configured;
    return records::ModelOfSerial(serialPrinter_);
}

std::string PrinterFiscal::BuildCommandBlock(std::string_view command) const {
    return session::BuildCommandBlock(command);
}

std::int16_t PrinterFiscal::CalcXOr(std::string_view text) const { return session::CalcXOr(text); }

std::string PrinterFiscal::EscapeString(std::string_view text) const {
    return session::EscapeString(text);
}

void PrinterFiscal::Abrir(const PortNumber& portNumber) {
    if (link_->Open(portNumber) && serialPrinter_.empty()) {
        // With "SkipChecks" or a failed query this is the substitute record's serial.
        serialPrinter_ = StatusS1()->Serial;
        process_.lastSerial = serialPrinter_;
    }
}

void PrinterFiscal::Cerrar() { link_->Close(); }

bool PrinterFiscal::AbrirGaveta() {
    // True on failure: hosts test it that way round.
    return Execute("w") != 0;
}

void PrinterFiscal::SendDirect(std::string_view sCommand) { link_->SendDirect(sCommand); }

std::int16_t PrinterFiscal::Execute(std::string_view sCmd) {
    Trace("Execute: -> " + session::EscapeString(sCmd));
    return link_->Execute(sCmd);
}

void PrinterFiscal::ExecuteNoCheck(std::string_view sCmd) {
    Trace("ExecuteNoCheck: -> " + session::EscapeString(sCmd));
    link_->ExecuteNoCheck(sCmd);
}

Delivery PrinterFiscal::Deliver(std::string_view sCmd) {
    Trace("Deliver: -> " + session::EscapeString(sCmd));
    return link_->Deliver(sCmd);
}

void PrinterFiscal::SendAck() { exchange_.SendAck(); }

void PrinterFiscal::GetStatus() { exchange_.GetStatus(); }

std::string PrinterFiscal::explainSTS1() const { return ExplainStatus1(outcome().STS1); }
std::string PrinterFiscal::explainSTS2() const { return ExplainStatus2(outcome().STS2); }

std::int16_t PrinterFiscal::Reset() { return Execute("e"); }

Fields PrinterFiscal::NextStatusBlock() {
    exchange_.WriteAck();
    return {};
}

Fields PrinterFiscal::GetResponse(std::string_view cmd) {
    Trace("GetResponse: " + session::EscapeString(cmd));
    return link_->GetResponse(cmd, [this](std::string_view command) { return Execute(command); });
}

std::string PrinterFiscal::GetResponseString(std::string_view cmd, std::string_view sep) {
    const std::string separator = sep.empty() ? std::string("\n") : std::string(sep);
    std::string text;
    for (const std::string& field : GetResponse(cmd)) text += separator + field;
    return text;
}

std::vector<Fields> PrinterFiscal::GetMultipleResponses(std::string_view cmd) {
    Trace("GetMultipleResponses: " + session::EscapeString(cmd));
    std::vector<Fields> blocks{GetResponse(cmd)};
    ReadFurtherBlocks(exchange_, blocks);
    return blocks;
}

std::string PrinterFiscal::GetMultipleResponsesStr(std::string_view cmd,
                                                   std::optional<std::string_view> itemSep,
                                                   std::optional<std::string_view> rowSep) {
    const std::string item =
        itemSep ? std::string(*itemSep) : std::string(1, static_cast<char>(US));
    const std::string row = rowSep ? std::string(*rowSep) : std::string(1, static_cast<char>(RS));
    Fields rows;
    for (const Fields& block : GetMultipleResponses(cmd)) rows.push_back(JoinFields(block, item));
    return JoinFields(rows, row);
}

std::string PrinterFiscal::FormatPrecio(double value) {
    return amounts_.Format(documents::AmountKind::kPrice, value);
}
std::string PrinterFiscal::FormatCantidad(double value) {
    return amounts_.Format(documents::AmountKind::kQuantity, value);
}
std::string PrinterFiscal::FormatMedio(double value) {
    return amounts_.Format(documents::AmountKind::kPayment, value);
}

void PrinterFiscal::Demora(std::int16_t n) {
    if (factorDelay_ == 0) {
        factorDelay_ = static_cast<float>(host::ReadNumberSetting("FactorDelay", 0.3));
    }
    const double seconds = n * static_cast<double>(factorDelay_);
    // Sleeping, not the clock loop a busy-wait would run: the printer needs the time,
    // not the processor.
    if (seconds > 0) {
        automation::CurrentClock().SleepMilliseconds(
            static_cast<long>(std::lround(seconds * 1000)));
    }
}

std::int16_t PrinterFiscal::LoadFlag21() {
    if (!s3_) s3_ = Response3();
    f21_ = s3_->Flag(21);
    return f21_;
}

}  // namespace corvid::session
