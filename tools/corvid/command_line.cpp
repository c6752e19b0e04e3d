#include "corvid/command_line.h"

#include <algorithm>
#include <sstream>

#include "corvid/command_line_parts.h"
#include "corvid/port_device.h"
#include "corvid_version.h"
#include "jobs/date_text.h"

namespace corvid::tool {

namespace {

using namespace command_line;

constexpr const char* kDescription =
    "corvid: talk to a fiscal printer from the command line.\n"
    "Without --port the built-in simulated printer answers (Linux only).";

constexpr const char* kFooter =
    "Control bytes in a command are written as the trace writes them: [STX], [ETX], [010].\n"
    "With --service URL --token T, sale, credit-note, nonfiscal and report post a job to a\n"
    "print service (corvid serve) and follow it; jobs lists the service's journal.\n"
    "Exit status: 0 when the printer accepted everything, 1 when it refused, did not answer\n"
    "or the port would not open, 2 for a mistake on the command line or in a file, 124 when\n"
    "--deadline passed, 130 after Ctrl-C. Run corvid COMMAND --help for a command's help.";

// A longest wait a person could mean; it also keeps the deadline clear of overflow.
constexpr double kLongestDeadlineSeconds = 7 * 24 * 3600;

CLI::Validator DeadlineValidator() {
    return CLI::Validator(
        [](std::string& text) -> std::string {
            std::size_t used = 0;
            double seconds = 0;
            try {
                seconds = std::stod(text, &used);
            } catch (const std::exception&) {
                used = 0;
            }
            if (used != text.size() || !(seconds > 0) || seconds > kLongestDeadlineSeconds) {
                return "expected a number of seconds above 0 (at most a week), found '" + text +
                       "'";
            }
            return {};
        },
        "SECONDS");
}

CLI::Validator ReportKindValidator() {
    return CLI::Validator(
        [](std::string& text) -> std::string {
            if (text == "x" || text == "X" || text == "z" || text == "Z") return {};
            return "expected x (the X report) or z (the daily closure), found '" + text + "'";
        },
        "x|z");
}

// The word the person typed where a command was expected, if any.
std::string FirstWord(const std::vector<std::string>& remaining) {
    for (const std::string& word : remaining) {
        if (word.empty() || word[0] != '-') return word;
    }
    return {};
}

std::optional<PortChoice> PortOption(const CLI::Option* option, const std::string& text) {
    if (option->count() == 0) return std::nullopt;
    PortChoice choice;
    try {
        choice = ParsePortChoice(text);
    } catch (const std::invalid_argument& e) {
        throw Mistake{e.what()};
    }
    if (!choice.device.empty() && !CanOpenDeviceFiles()) {
        throw Mistake{"--port " + text + ": name the port as COMn (device paths are for Linux)"};
    }
    return choice;
}

void AddGlobalOptions(CLI::App& app, Arguments& a) {
    app.footer(kFooter);
    app.require_subcommand(1);
    // Global options may also follow the command.
    app.fallthrough();
    a.portOption = app.add_option("--port", a.portText,
                                  "COMn, a port number, or a device such as /dev/ttyUSB0");
    app.add_flag("--trace", a.inv.trace, "show every line of the session trace");
    app.add_flag("--test-mode", a.inv.testMode,
                 "send nothing: show the commands a run would send, as a preview");
    app.add_flag("--json", a.inv.json, "status, report z, summary and memory as JSON, for scripts");
    app.add_option("--deadline", a.inv.deadlineSeconds,
                   "give up after this many seconds, however the printer behaves")
        ->check(DeadlineValidator())
        ->capture_default_str();
    AddServiceOptions(app, a);
}

void AddPrinterCommands(CLI::App& app, Arguments& a) {
    a.Add(app, Command::kStatus, "status",
          "status bytes in words, the serial number, the S1 to S4 records");
    a.Add(app, Command::kSend, "send", "one checked exchange, e.g. send w (opens the cash drawer)")
        ->add_option("COMMAND", a.word, "the command text")
        ->required();
    a.Add(app, Command::kQuery, "query", "the fields of every block of the reply")
        ->add_option("COMMAND", a.word, "the command text")
        ->required();
    a.Add(app, Command::kSale, "sale",
          "run the sale described in a JSON file (see samples/sale.json)")
        ->add_option("FILE", a.word, "the sale file")
        ->required();
    a.Add(app, Command::kCreditNote, "credit-note",
          "run the credit note described in a JSON file (see samples/credit_note.json)")
        ->add_option("FILE", a.word, "the credit-note file")
        ->required();
    a.Add(app, Command::kNonFiscal, "nonfiscal", "print a non-fiscal document, one line per TEXT")
        ->add_option("TEXT", a.lines, "the lines; the last one closes the document")
        ->required();
    a.Add(app, Command::kReport, "report", "the X report or the Z report (daily closure)")
        ->add_option("KIND", a.reportKind, "x or z")
        ->required()
        ->check(ReportKindValidator());
}

void AddSettingCommands(CLI::App& app, Arguments& a) {
    CLI::App* header = a.Add(app, Command::kHeader, "header", "program header line N");
    header->add_option("N", a.inv.line, "line number")->required()->check(CLI::Range(1, 99));
    header->add_option("TEXT", a.word, "the text, centred on 40 columns")->required();
    CLI::App* footer = a.Add(app, Command::kFooter, "footer", "program footer line N");
    // A footer line number travels as one letter, A for 1 to Z for 26.
    footer->add_option("N", a.inv.line, "line number")->required()->check(CLI::Range(1, 26));
    footer->add_option("TEXT", a.word, "the text, centred on 40 columns")->required();
    a.Add(app, Command::kSetDate, "set-date", "set the printer's date")
        ->add_option("DATE", a.dateOrTime, "dd-mm-yyyy; today when left out");
    a.Add(app, Command::kSetTime, "set-time", "set the printer's clock")
        ->add_option("TIME", a.dateOrTime, "hh:mm:ss; now when left out");
    a.Add(app, Command::kSummary, "summary",
          "the summary of the last daily closure (closes nothing)");
    CLI::App* memory =
        a.Add(app, Command::kMemory, "memory", "the closures FROM to TO in fiscal memory");
    memory->add_option("FROM", a.inv.from, "first closure number")
        ->required()
        ->check(CLI::Range(0, 999999));
    memory->add_option("TO", a.inv.to, "last closure number")
        ->required()
        ->check(CLI::Range(0, 999999));
    a.Add(app, Command::kDemo, "demo",
          "a sale, a credit note, the X and Z reports on the simulated printer, with its paper");
}

// The command's own words into the invocation; throws Mistake.
void TakeCommandWords(Arguments& a) {
    Invocation& inv = a.inv;
    switch (inv.command) {
        case Command::kNonFiscal:
            inv.words = a.lines;
            break;
        case Command::kReport:
            inv.reportKind = a.reportKind == "z" || a.reportKind == "Z" ? 'Z' : 'X';
            break;
        case Command::kSetDate:
            if (!a.dateOrTime.empty() && !(inv.when = jobs::ParseDayMonthYear(a.dateOrTime))) {
                throw Mistake{"set-date: expected a date written dd-mm-yyyy, found '" +
                              a.dateOrTime + "'"};
            }
            break;
        case Command::kSetTime:
            if (!a.dateOrTime.empty() && !(inv.when = jobs::ParseTimeOfDay(a.dateOrTime))) {
                throw Mistake{"set-time: expected a time written hh:mm:ss, found '" + a.dateOrTime +
                              "'"};
            }
            break;
        case Command::kSend:
        case Command::kQuery:
        case Command::kSale:
        case Command::kCreditNote:
        case Command::kHeader:
        case Command::kFooter:
            inv.words = {a.word};
            break;
        case Command::kStatus:
        case Command::kDemo:
        case Command::kSummary:
        case Command::kMemory:
        case Command::kServe:
        case Command::kTokenAdd:
        case Command::kTokenList:
        case Command::kTokenRemove:
        case Command::kTokenPair:
        case Command::kJobs:
            break;
    }
}

// The invocation of a command line the parser took; throws Mistake.
Invocation Checked(CLI::App& app, Arguments& a) {
    const std::vector<std::string> extras = app.remaining(true);
    if (!extras.empty()) throw Mistake{"unexpected argument '" + extras.front() + "'"};
    Invocation& inv = a.inv;
    inv.command = std::find_if(a.commands.begin(), a.commands.end(), [](const auto& entry) {
                      return entry.second->parsed();
                  })->first;
    inv.port = PortOption(a.portOption, a.portText);
    if (inv.command == Command::kDemo && inv.port) {
        throw Mistake{"demo runs on the built-in simulated printer; leave --port out"};
    }
    TakeCommandWords(a);
    CheckServiceWords(a);
    const bool reportsRecords = inv.command == Command::kStatus ||
                                inv.command == Command::kSummary ||
                                inv.command == Command::kMemory ||
                                (inv.command == Command::kReport && inv.reportKind == 'Z');
    if (inv.json && !reportsRecords) {
        throw Mistake{"--json applies to status, report z, summary and memory"};
    }
    if (inv.command == Command::kMemory && inv.from > inv.to) {
        throw Mistake{"memory: FROM comes after TO"};
    }
    return std::move(inv);
}

// The parser's complaint in the words the tool uses.
std::string MistakeOf(CLI::App& app, const CLI::ParseError& error) {
    const bool noCommand = app.get_subcommands().empty();
    const std::string typed = noCommand ? FirstWord(app.remaining(true)) : std::string();
    std::string message;
    if (noCommand && !typed.empty()) {
        message = "unknown command '" + typed + "'";
    } else if (noCommand && dynamic_cast<const CLI::RequiredError*>(&error)) {
        message = "no command given";
    } else if (dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
        // "--port: 1 required TEXT missing" in plainer words.
        const std::string what = error.what();
        message = what.substr(0, what.find(':')) + " needs a value";
    } else {
        message = error.what();
    }
    if (!noCommand && message.compare(0, 2, "--") != 0) {
        message = app.get_subcommands().front()->get_name() + ": " + message;
    }
    return message;
}

}  // namespace

ParsedCommandLine ParseCommandLine(const std::vector<std::string>& args) {
    ParsedCommandLine parsed;
    Arguments arguments;
    CLI::App app{kDescription, "corvid"};
    AddGlobalOptions(app, arguments);
    AddPrinterCommands(app, arguments);
    AddSettingCommands(app, arguments);
    AddServiceCommands(app, arguments);
    app.set_version_flag("--version", std::string("corvid ") + CORVID_VERSION);
    // Leftover words are collected rather than refused by the parser, so that the message
    // can say "unknown command" rather than only that a command is required.
    app.allow_extras();

    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
        parsed.invocation = Checked(app, arguments);
        return parsed;
    } catch (const CLI::CallForHelp& help) {
        std::ostringstream out, err;
        parsed.exitCode = app.exit(help, out, err);
        parsed.output = out.str();
        return parsed;
    } catch (const CLI::CallForVersion& version) {
        std::ostringstream out, err;
        parsed.exitCode = app.exit(version, out, err);
        parsed.output = out.str();
        return parsed;
    } catch (const CLI::ParseError& error) {
        parsed.error = MistakeOf(app, error);
    } catch (const Mistake& mistake) {
        parsed.error = mistake.message;
    }
    parsed.exitCode = kExitUsage;
    parsed.error = "corvid: " + parsed.error + " (see corvid --help)\n";
    return parsed;
}

}  // namespace corvid::tool
