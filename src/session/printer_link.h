// Where a session's commands go: the printer on a serial port, or, in test mode, a
// preview of what would have been sent. The session picks one when it is created, from
// "TestMode", so no sender asks which mode it is in.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "session/exchange.h"
#include "session/responses.h"

namespace corvid::preview {
class lfQuickView;
}

namespace corvid::host {
class TraceLog;
}

namespace corvid::session {

class Exchange;

// The host's port argument, converted only when a port is really opened.
using PortNumber = std::function<std::int16_t()>;

class PrinterLink {
  public:
    virtual ~PrinterLink() = default;
    // True when a port was opened (so the printer's serial number can be learnt).
    virtual bool Open(const PortNumber& portNumber) = 0;
    virtual void Close() = 0;
    virtual void SendDirect(std::string_view command) = 0;
    // Returns pfError.
    virtual std::int16_t Execute(std::string_view command) = 0;
    virtual void ExecuteNoCheck(std::string_view command) = 0;
    virtual Delivery Deliver(std::string_view command) = 0;
    // `execute` sends the command on the printer.
    virtual Fields GetResponse(std::string_view command, const ExecuteCommand& execute) = 0;
    // The test-mode preview, once Open made it; null on the port.
    virtual preview::lfQuickView* preview() const { return nullptr; }
};

// The printer on the exchange's port; Close shows the trace's debug view when there is one.
std::unique_ptr<PrinterLink> MakePortLink(Exchange& exchange, host::TraceLog& trace);
// Test mode: every command becomes a line of a preview, shown at Close.
std::unique_ptr<PrinterLink> MakePreviewLink(Exchange& exchange);

}  // namespace corvid::session
