// The session's commands on the printer's serial port.
#include "host/trace_log.h"
#include "session/exchange.h"
#include "session/printer_link.h"

namespace corvid::session {
namespace {

class PortLink : public PrinterLink {
  public:
    PortLink(Exchange& exchange, host::TraceLog& trace) : exchange_(exchange), trace_(trace) {}

    bool Open(const PortNumber& portNumber) override {
        // The open port is closed before the argument is converted: a bad argument leaves
        // the session closed, not on the old port.
        exchange_.Close();
        exchange_.Open(portNumber());
        exchange_.PrepareLines();
        exchange_.GetStatus();
        return true;
    }
    void Close() override {
        exchange_.Close();
        if (trace_.IsDebug()) {
            if (auto view = trace_.debug_view()) view->ShowModal();
        }
    }
    void SendDirect(std::string_view command) override { exchange_.SendDirect(command); }
    std::int16_t Execute(std::string_view command) override { return exchange_.Execute(command); }
    void ExecuteNoCheck(std::string_view command) override { exchange_.ExecuteNoCheck(command); }
    Delivery Deliver(std::string_view command) override { return exchange_.Deliver(command); }
    Fields GetResponse(std::string_view command, const ExecuteCommand& execute) override {
        return ReadResponse(exchange_, command, execute);
    }

  private:
    Exchange& exchange_;
    host::TraceLog& trace_;
};

}  // namespace

std::unique_ptr<PrinterLink> MakePortLink(Exchange& exchange, host::TraceLog& trace) {
    return std::make_unique<PortLink>(exchange, trace);
}

}  // namespace corvid::session
