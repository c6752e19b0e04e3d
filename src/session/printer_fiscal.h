// The session a point-of-sale host holds: outcome of the last exchange, the open port,
// the tuning values read from the settings at creation, and every member that talks to
// the printer through the exchange engine.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/vb_error.h"
#include "session/control_values.h"
#include "session/serial_line.h"

namespace corvid::preview {
class lfQuickView;
}

namespace corvid::session {

// Which amount a document command formats; each has its own settings and fallbacks.
enum class AmountKind { kPrice, kQuantity, kPayment };

using Fields = std::vector<std::string>;

class PrinterFiscal {
  public:
    // Reads every setting in the fixed order of creation. `line` is the serial layer;
    // omitted, the process-wide port table is used.
    explicit PrinterFiscal(std::shared_ptr<SerialLine> line = nullptr);
    ~PrinterFiscal();
    PrinterFiscal(const PrinterFiscal&) = delete;
    PrinterFiscal& operator=(const PrinterFiscal&) = delete;

    // Outcome of the last exchange, readable and writable by the host.
    std::string result;
    std::int32_t resultFlag = 0;
    std::int32_t pfError = pfOk;
    std::int32_t STS1 = 0;
    std::int32_t STS2 = 0;
    std::string DescripcionError;
    std::string SerialPrinter;
    std::int16_t f21 = 0;

    // A host may write any 32-bit value into pfError; one beyond 16 bits raises overflow.
    std::int16_t lError() const {
        if (pfError < INT16_MIN || pfError > INT16_MAX) {
            throw automation::VbError::Standard(automation::vb_errors::kOverflow);
        }
        return static_cast<std::int16_t>(pfError);
    }
    std::int16_t lStatus() const { return 0; }
    // The printer model: the "TipoPrinter" setting when 0 or more, else the serial prefix.
    std::int32_t tipoPrinter() const;

    // Framing, as members for hosts.
    std::string BuildCommandBlock(std::string_view command) const;
    std::int16_t CalcXOr(std::string_view text) const;
    std::string EscapeString(std::string_view text) const;

    // Session.
    void Abrir(std::int16_t portNumber);
    void Cerrar();
    bool AbrirGaveta();
    void SendDirect(std::string_view sCommand);
    std::int16_t Execute(std::string_view sCmd);
    void ExecuteNoCheck(std::string_view sCmd);
    void SendAck();
    void GetStatus();
    std::string explainSTS1() const;
    std::string explainSTS2() const;
    std::int16_t Reset();
    Fields NextStatusBlock();

    // Replies with fields.
    Fields GetResponse(std::string_view cmd);
    std::string GetResponseString(std::string_view cmd, std::string_view sep = {});
    std::vector<Fields> GetMultipleResponses(std::string_view cmd);
    // Missing separators are US between fields and RS between blocks.
    std::string GetMultipleResponsesStr(std::string_view cmd,
                                        std::optional<std::string_view> itemSep = std::nullopt,
                                        std::optional<std::string_view> rowSep = std::nullopt);
    static std::string responseItem(std::int16_t selector, const Fields& s);

    // Digit strings with implied decimals for the document commands.
    std::string FormatPrecio(double value) { return FormatAmount(AmountKind::kPrice, value); }
    std::string FormatCantidad(double value) { return FormatAmount(AmountKind::kQuantity, value); }
    std::string FormatMedio(double value) { return FormatAmount(AmountKind::kPayment, value); }
    std::string FormatAmount(AmountKind kind, double value);

    // Address limits for customer data, read on every call.
    std::int16_t AnchoDireccion() const;
    std::int16_t LineasDireccion() const;
    // Waits n delay units of "FactorDelay" seconds, sleeping.
    void Demora(std::int16_t n);

    // Read-only views of the state read at creation (for tests and tools).
    std::int16_t port() const { return port_; }
    bool skipChecks() const { return skipChecks_; }
    std::int16_t timeOut() const { return timeOut_; }
    std::int16_t retries() const { return retries_; }
    bool testMode() const { return testMode_; }
    bool ready() const { return ready_; }
    std::int32_t columnasDescripcion() const { return columnasDescripcion_; }
    const std::array<double, 8>& tasas() const { return tasas_; }
    std::int16_t numTasas() const { return numTasas_; }
    preview::lfQuickView* preview() const { return preview_.get(); }

  private:
    void ReadSettingsAtCreation();
    void LoadFlag21();
    void WaitForReply();
    void CollectReply();
    void DiscardLateCheckByte();
    // The printer's serial number from its "S1" status record; empty when unavailable.
    std::string SerialFromStatusS1();
    void Trace(const std::string& message) const;

    std::shared_ptr<SerialLine> line_;
    std::int16_t port_ = 0;
    bool skipChecks_ = false;
    std::int16_t timeOut_ = 10;
    std::int16_t retries_ = 3;
    bool ready_ = false;
    std::int32_t columnasDescripcion_ = 28;
    std::array<double, 8> tasas_{};
    std::int16_t numTasas_ = 0;
    bool testMode_ = false;
    float factorDelay_ = 0;
    std::shared_ptr<preview::lfQuickView> preview_;
    // Digits and decimals of price, quantity and payment; 0 until first use.
    std::array<std::int16_t, 6> formatos_{};
};

}  // namespace corvid::session
