// corvid: talk to a fiscal printer from the command line.
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "automation/vb_error.h"
#include "corvid/commands.h"
#include "corvid/control_tags.h"
#include "corvid/printer_target.h"
#include "corvid/text_codec.h"
#include "host/trace_log.h"
#include "session/printer_fiscal.h"
#include "session/process_state.h"

namespace {

using corvid::session::PrinterFiscal;
using namespace corvid::tool;

constexpr const char* kUsage =
    "usage: corvid [--port COMn|N|DEVICE] [--trace] COMMAND [ARGUMENT]\n"
    "\n"
    "Without --port the built-in simulated printer answers.\n"
    "\n"
    "commands:\n"
    "  status            status bytes and their meaning, the printer's serial, the S1 fields\n"
    "  send COMMAND      one checked exchange, e.g. send w (opens the cash drawer)\n"
    "  query COMMAND     the fields of the reply, every block of it\n"
    "  demo              a short session on the simulated printer with the trace shown\n"
    "\n"
    "Control bytes in a command are written as the trace writes them: [STX], [ETX], [010].\n";

struct Options {
    std::string port;
    bool trace = false;
    std::string command;
    std::string argument;
};

bool ParseOptions(int argc, char** argv, Options& options) {
    std::vector<std::string> words;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--trace") {
            options.trace = true;
        } else if (arg == "--port" && i + 1 < argc) {
            options.port = argv[++i];
        } else if (arg == "--help" || arg == "-h") {
            return false;
        } else {
            words.push_back(arg);
        }
    }
    if (words.empty() || words.size() > 2) return false;
    options.command = words[0];
    if (words.size() == 2) options.argument = words[1];
    const bool needsArgument = options.command == "send" || options.command == "query";
    return needsArgument == (words.size() == 2);
}

// Shows every trace line on the terminal while the tool runs.
int ShowTrace() {
    auto& trace = corvid::session::Process().trace;
    trace.SetIsDebug(true);
    trace.SetFileEnabled(false);
    return trace.AddSink(
        [](const std::string& line) { std::cout << "  | " << Cp1252ToUtf8(line) << "\n"; });
}

int RunDemo(PrinterFiscal& printer, const PrinterTarget& target) {
    std::cout << "\n== Status and serial number\n";
    int failures = ShowStatus(printer, std::cout);
    std::cout << "\n== Open the cash drawer (command w)\n";
    failures += SendCommand(printer, "w", std::cout);
    std::cout << "\n== A reply in three blocks, each further block acknowledged\n";
    failures += QueryCommand(printer, target.simulator()->MultiBlockQuery(3), std::cout);
    std::cout << "\n== The printer answers NAK twice: the block is sent again at once\n";
    target.simulator()->NakNextBlocks(2);
    failures += SendCommand(printer, "w", std::cout);
    std::cout << (failures == 0 ? "\nDemo finished: every exchange succeeded.\n"
                                : "\nDemo finished with failures.\n");
    return failures == 0 ? 0 : 1;
}

int Run(const Options& options) {
    PrinterTarget target(options.command == "demo" ? "" : options.port);
    std::cout << "Printer: " << target.description() << "\n";
    PrinterFiscal printer;
    if (options.trace || options.command == "demo") ShowTrace();
    printer.Abrir(target.port());
    int status = 2;
    if (options.command == "status") {
        status = ShowStatus(printer, std::cout);
    } else if (options.command == "send") {
        status = SendCommand(printer, ParseControlTags(Utf8ToCp1252(options.argument)), std::cout);
    } else if (options.command == "query") {
        status = QueryCommand(printer, ParseControlTags(Utf8ToCp1252(options.argument)), std::cout);
    } else if (options.command == "demo") {
        status = RunDemo(printer, target);
    } else {
        std::cerr << kUsage;
    }
    printer.Cerrar();
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!ParseOptions(argc, argv, options)) {
        std::cerr << kUsage;
        return 2;
    }
    try {
        return Run(options);
    } catch (const corvid::automation::VbError& e) {
        std::cerr << "corvid: error " << e.number() << " from " << e.source() << ": "
                  << Cp1252ToUtf8(e.description()) << "\n";
    } catch (const std::exception& e) {
        std::cerr << "corvid: " << e.what() << "\n";
    }
    return 1;
}
