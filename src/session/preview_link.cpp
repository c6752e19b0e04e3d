// Test mode: no port; what would have been sent becomes lines of a preview.
#include <string>

#include "preview/quick_view.h"
#include "session/exchange.h"
#include "session/framing.h"
#include "session/printer_link.h"

namespace corvid::session {
namespace {

class PreviewLink : public PrinterLink {
  public:
    explicit PreviewLink(Exchange& exchange) : exchange_(exchange) {}

    // The argument is never converted: any value opens a test session.
    bool Open(const PortNumber&) override {
        preview_ = std::make_shared<preview::lfQuickView>();
        return false;
    }
    void Close() override {
        if (preview_) preview_->ShowModal();
    }
    void SendDirect(std::string_view command) override {
        Add("SendDirect: " + session::EscapeString(command));
    }
    std::int16_t Execute(std::string_view command) override {
        Add(std::string(command));
        return PfErrorAsInteger(exchange_.outcome());
    }
    void ExecuteNoCheck(std::string_view command) override { Add(std::string(command)); }
    Delivery Deliver(std::string_view command) override {
        Add(std::string(command));
        return Delivery::kAccepted;
    }
    Fields GetResponse(std::string_view command, const ExecuteCommand&) override {
        Add("GET RESPONSE: " + std::string(command));
        return {"Ok"};
    }
    preview::lfQuickView* preview() const override { return preview_.get(); }

  private:
    // Before Abrir there is no preview yet, and nothing is kept.
    void Add(const std::string& line) {
        if (preview_) preview_->Add(line, 0);
    }

    Exchange& exchange_;
    std::shared_ptr<preview::lfQuickView> preview_;
};

}  // namespace

std::unique_ptr<PrinterLink> MakePreviewLink(Exchange& exchange) {
    return std::make_unique<PreviewLink>(exchange);
}

}  // namespace corvid::session
