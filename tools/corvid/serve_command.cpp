#include "corvid/serve_command.h"

#include <functional>
#include <memory>
#include <ostream>
#include <sstream>

#include "corvid/printer_target.h"
#include "corvid/status_commands.h"
#include "corvid/stop_signal.h"
#include "corvid/windows_service.h"
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
// Long enough to walk to the till, short enough that a code seen over a shoulder is stale.
constexpr std::chrono::minutes kPairingLifetime{5};

std::filesystem::path DataFolder(const ServeOptions& options) {
    return options.dataFolder ? std::filesystem::path(*options.dataFolder)
                              : service::DefaultDataFolder();
}

// The tool's status, and the day's figures a dashboard shows beside it.
nlohmann::json StatusJson(session::PrinterFiscal& printer) {
    std::ostringstream text;
    const bool answered = ShowStatus(printer, Output::kJson, text) == kExitAccepted;
    nlohmann::json status = nlohmann::json::parse(text.str(), nullptr, false);
    if (answered && status.is_object()) {
        status["Day"] = SummaryUpload(printer, "U0X");
        status["Closing"] = SummaryUpload(printer, "U0Z");
    }
    return status;
}

struct Printers {
    std::vector<std::unique_ptr<PrinterTarget>> targets;
    std::vector<service::PrinterSetup> setups;
};

// The setup of the target last added; the built-in simulator lets its paper be read.
service::PrinterSetup SetupOfLast(const Printers& printers, const std::string& name,
                                  const std::string& port, const ServeOptions& options) {
    const PrinterTarget& target = *printers.targets.back();
    service::PrinterSetup setup{name, port, target.port(), options.onOpenDocument, {}};
    if (SimulatedPrinter* simulator = target.simulator()) {
        setup.paper = [simulator] { return simulator->PrintedText(); };
    }
    return setup;
}

Printers OpenTargets(const ServeOptions& options) {
    Printers printers;
    if (options.printers.empty()) {
        printers.targets.push_back(
            std::make_unique<PrinterTarget>(std::nullopt, kHighestMappedPort));
        printers.setups.push_back(
            SetupOfLast(printers, "default", printers.targets.back()->description(), options));
    }
    for (std::size_t i = 0; i < options.printers.size(); ++i) {
        const NamedPrinter& named = options.printers[i];
        printers.targets.push_back(std::make_unique<PrinterTarget>(
            named.port, static_cast<std::int16_t>(kHighestMappedPort - i)));
        printers.setups.push_back(SetupOfLast(printers, named.name, named.portText, options));
    }
    return printers;
}

// Runs the service until a stop is asked for; `ready` is called once it listens.
int ServeUntilStopped(const ServeOptions& options, std::ostream& out, std::ostream& err,
                      const std::function<void()>& ready) {
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
        ready();
        WaitForStopSignal();
        out << "corvid serve: stopping\n";
        server.Stop();
        desk.Stop();
        out << "corvid serve: stopped\n" << std::flush;
        return kExitAccepted;
    } catch (const std::exception& error) {
        err << "corvid serve: " << error.what() << "\n" << std::flush;
        return kExitFailed;
    }
}

}  // namespace

int RunServe(const Invocation& inv, std::ostream& out, std::ostream& err) {
    const ServeOptions& options = inv.serve;
    if (!options.windowsService) return ServeUntilStopped(options, out, err, [] {});
    return RunAsWindowsService(
        DataFolder(options) / "service.log",
        [&options](std::ostream& log, const std::function<void()>& ready) {
            return ServeUntilStopped(options, log, log, ready);
        },
        err);
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
            case Command::kTokenPair: {
                const std::string code = service::NewPairingCode();
                journal.AddPairing(service::TokenHash(code), inv.tokenName, kPairingLifetime);
                out << code << "\n";
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
