#include "corvid/serve_command.h"

#include <memory>
#include <ostream>
#include <sstream>

#include "corvid/printer_target.h"
#include "corvid/status_commands.h"
#include "corvid/stop_signal.h"
#include "service/bounded_waits.h"
#include "service/http_server.h"
#include "service/journal.h"
#include "service/print_service.h"
#include "service/tokens.h"

namespace corvid::tool {
namespace {

// Printers named by a device or server are reached as COM99, COM98, ...: the port table's
// last numbers, the least likely to be taken by a real port.
constexpr std::int16_t kHighestMappedPort = 99;

std::filesystem::path DataFolder(const ServeOptions& options) {
    return options.dataFolder ? std::filesystem::path(*options.dataFolder)
                              : service::DefaultDataFolder();
}

nlohmann::json StatusJson(session::PrinterFiscal& printer) {
    std::ostringstream text;
    ShowStatus(printer, Output::kJson, text);
    return nlohmann::json::parse(text.str(), nullptr, false);
}

struct Printers {
    std::vector<std::unique_ptr<PrinterTarget>> targets;
    std::vector<service::PrinterSetup> setups;
};

Printers OpenTargets(const ServeOptions& options) {
    Printers printers;
    if (options.printers.empty()) {
        printers.targets.push_back(
            std::make_unique<PrinterTarget>(std::nullopt, kHighestMappedPort));
        printers.setups.push_back({"default", printers.targets.back()->description(),
                                   printers.targets.back()->port(), options.onOpenDocument});
    }
    for (std::size_t i = 0; i < options.printers.size(); ++i) {
        const NamedPrinter& named = options.printers[i];
        printers.targets.push_back(std::make_unique<PrinterTarget>(
            named.port, static_cast<std::int16_t>(kHighestMappedPort - i)));
        printers.setups.push_back(
            {named.name, named.portText, printers.targets.back()->port(), options.onOpenDocument});
    }
    return printers;
}

}  // namespace

int RunServe(const Invocation& inv, std::ostream& out, std::ostream& err) {
    const ServeOptions& options = inv.serve;
    PrepareStopSignal();
    try {
        service::BoundedWaits boundedWaits;
        Printers printers = OpenTargets(options);
        const std::filesystem::path data = DataFolder(options);
        service::PrintService desk(data, printers.setups, StatusJson);
        service::HttpServer server(
            desk, {options.listenAddress, options.listenPort, options.allowedOrigins});
        server.Start();
        desk.Start();
        out << "corvid serve: listening on http://" << options.listenAddress << ":" << server.port()
            << "\n";
        for (const service::PrinterSetup& setup : printers.setups) {
            out << "  printer " << setup.name << ": " << setup.port << "\n";
        }
        out << "  journal: " << (data / "journal.db").string() << "\n" << std::flush;
        WaitForStopSignal();
        out << "corvid serve: stopping\n";
        server.Stop();
        desk.Stop();
        return kExitAccepted;
    } catch (const std::exception& error) {
        err << "corvid serve: " << error.what() << "\n";
        return kExitFailed;
    }
}

int RunTokenCommand(const Invocation& inv, std::ostream& out, std::ostream& err) {
    try {
        service::Journal journal(DataFolder(inv.serve));
        switch (inv.command) {
            case Command::kTokenAdd: {
                const std::string token = service::NewToken();
                journal.AddToken(inv.tokenName, service::TokenHash(token));
                out << token << "\n";
                return kExitAccepted;
            }
            case Command::kTokenRemove:
                if (journal.RemoveToken(inv.tokenName)) return kExitAccepted;
                err << "corvid token: no token named " << inv.tokenName << "\n";
                return kExitFailed;
            default:
                for (const service::TokenInfo& token : journal.Tokens()) {
                    out << token.name << "  " << token.created << "\n";
                }
                return kExitAccepted;
        }
    } catch (const std::exception& error) {
        err << "corvid token: " << error.what() << "\n";
        return kExitFailed;
    }
}

}  // namespace corvid::tool
