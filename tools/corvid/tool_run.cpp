#include "corvid/tool_run.h"

#include <chrono>
#include <cstdio>
#include <memory>
#include <ostream>
#include <variant>

#include "automation/dates.h"
#include "automation/vb_error.h"
#include "corvid/abrupt_exit.h"
#include "corvid/command_line.h"
#include "corvid/commands.h"
#include "corvid/control_tags.h"
#include "corvid/demo.h"
#include "corvid/document_file.h"
#include "corvid/printer_target.h"
#include "corvid/report_output.h"
#include "corvid/serve_command.h"
#include "corvid/service_client.h"
#include "corvid/session_document_printer.h"
#include "corvid/status_commands.h"
#include "corvid/test_mode_settings.h"
#include "corvid/tool_prompts.h"
#include "corvid/watchdog.h"
#include "jobs/step_runner.h"
#include "session/printer_fiscal.h"
#include "session/process_state.h"
#include "text/windows_1252.h"

namespace corvid::tool {

namespace {

using Document = std::variant<std::monostate, jobs::Sale, jobs::CreditNote>;

// Sale and credit-note files are read before anything is opened: a mistake in the file
// sends nothing.
Document LoadDocument(const Invocation& inv) {
    if (inv.command == Command::kSale) return jobs::ParseSale(ReadDocumentFile(inv.words[0]));
    if (inv.command == Command::kCreditNote)
        return jobs::ParseCreditNote(ReadDocumentFile(inv.words[0]));
    return {};
}

// The library's message boxes and (with --trace) its trace go to `out` while the tool
// runs.
class SessionOutput {
  public:
    SessionOutput(std::ostream& out, bool trace)
        : previousPrompts_(host::ReplaceUserPrompts(std::make_shared<ToolPrompts>(out))) {
        if (!trace) return;
        auto& log = session::Process().trace;
        log.SetIsDebug(true);
        log.SetFileEnabled(false);
        sink_ = log.AddSink([&out](const std::string& line) {
            out << "  | " << text::Utf8FromWindows1252(line) << "\n";
        });
    }
    ~SessionOutput() {
        if (sink_ != 0) session::Process().trace.RemoveSink(sink_);
        host::ReplaceUserPrompts(previousPrompts_);
    }

  private:
    std::shared_ptr<host::UserPrompts> previousPrompts_;
    int sink_ = 0;
};

jobs::Steps StepsOf(const Invocation& inv, const Document& document) {
    switch (inv.command) {
        case Command::kSale:
            return jobs::SaleSteps(std::get<jobs::Sale>(document));
        case Command::kCreditNote:
            return jobs::CreditNoteSteps(std::get<jobs::CreditNote>(document));
        case Command::kNonFiscal: {
            std::vector<std::string> lines;
            for (const std::string& word : inv.words)
                lines.push_back(text::Windows1252FromUtf8(word));
            return jobs::NonFiscalSteps(lines);
        }
        case Command::kReport:
            return {jobs::ReportStep(inv.reportKind)};
        case Command::kHeader:
            return {jobs::HeaderStep(inv.line, text::Windows1252FromUtf8(inv.words[0]))};
        case Command::kFooter:
            return {jobs::FooterStep(inv.line, text::Windows1252FromUtf8(inv.words[0]))};
        case Command::kSetDate:
            return {
                jobs::SetDateStep(inv.when ? *inv.when : automation::DateOnly(automation::Now()))};
        case Command::kSetTime:
            return {jobs::SetTimeStep(inv.when ? *inv.when : automation::Now())};
        default:
            return {};
    }
}

// Every step accepted does not make a finished document: payments short of the total leave
// it open, and the printer then refuses everything else until it is paid or cancelled.
bool FiscalDocumentLeftOpen(session::PrinterFiscal& printer, std::ostream& out) {
    printer.GetStatus();
    // The low bits of STS1: 1 while a fiscal document is open, 2 a non-fiscal one.
    if (!jobs::Accepted(printer.outcome()) || (printer.outcome().STS1 & 0x03) != 1) return false;
    out << "The document is still open (" << text::Utf8FromWindows1252(printer.explainSTS1())
        << "): the payments do not cover its total. Pay the rest, or cancel it with: "
           "corvid send 7\n";
    return true;
}

int RunOnPrinter(session::PrinterFiscal& printer, const PrinterTarget& target,
                 const Invocation& inv, const Document& document, std::ostream& out) {
    const Output output = inv.json ? Output::kJson : Output::kText;
    switch (inv.command) {
        case Command::kStatus:
            return ShowStatus(printer, output, out);
        case Command::kSummary:
            return ShowSummary(printer, output, out);
        case Command::kMemory:
            return ShowClosures(printer, inv.from, inv.to, output, out);
        case Command::kReport:
            if (inv.reportKind == 'Z') return CloseDay(printer, output, out);
            break;
        case Command::kSend:
            return SendCommand(printer, ParseControlTags(text::Windows1252FromUtf8(inv.words[0])),
                               out);
        case Command::kQuery:
            return QueryCommand(printer, ParseControlTags(text::Windows1252FromUtf8(inv.words[0])),
                                out);
        case Command::kDemo:
            return RunDemo(printer, *target.simulator(), out);
        default:
            break;
    }
    {
        SessionDocumentPrinter documents(printer);
        const jobs::Steps steps = StepsOf(inv, document);
        if (!jobs::RunSteps(documents, steps, out)) return kExitFailed;
        out << "Accepted: " << steps.size() << (steps.size() == 1 ? " step" : " steps") << ".\n";
        const bool fiscal = inv.command == Command::kSale || inv.command == Command::kCreditNote;
        return fiscal && FiscalDocumentLeftOpen(printer, out) ? kExitFailed : kExitAccepted;
    }
}

int Run(const Invocation& inv, const Document& document, std::ostream& out, std::ostream& err) {
    const PrinterTarget target(inv.port);
    // JSON output is for scripts: standard output holds nothing else.
    (inv.json ? err : out) << "Printer: "
                           << (inv.testMode ? "none, test mode (commands are shown, not sent)"
                                            : target.description())
                           << "\n";
    const TestModeSettings testMode(inv.testMode);
    // Before the session: it shows its test-mode preview, or its trace view, when closed.
    const ReportOutput reports(out);
    session::PrinterFiscal printer;
    // After the session's creation, which sets the trace flags from the settings.
    const SessionOutput sessionOutput(out, inv.trace);
    try {
        printer.Abrir(target.port());
    } catch (const automation::VbError& e) {
        err << "corvid: cannot open " << target.description() << ": "
            << text::Utf8FromWindows1252(e.description()) << "\n";
        return kExitFailed;
    }
    const int status = RunOnPrinter(printer, target, inv, document, out);
    // A test session shows its preview at every Cerrar, and releasing it closes it once
    // more: leave that one to the release, so the preview is shown once.
    if (!inv.testMode) printer.Cerrar();
    return status;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    const ParsedCommandLine parsed = ParseCommandLine(args);
    out << parsed.output;
    err << parsed.error;
    if (!parsed.invocation) return parsed.exitCode;
    const Invocation& inv = *parsed.invocation;
    // The service runs until it is stopped: no deadline.
    if (inv.command == Command::kServe) return RunServe(inv, out, err);
    if (inv.command == Command::kTokenAdd || inv.command == Command::kTokenList ||
        inv.command == Command::kTokenRemove || inv.command == Command::kTokenPair)
        return RunTokenCommand(inv, out, err);

    // Armed first, so that it bounds everything after the command line: reading the file
    // too, which may be a pipe that never delivers.
    char expired[160];
    std::snprintf(expired, sizeof expired,
                  "\ncorvid: no result within %g s (--deadline); gave up, the port is closed\n",
                  inv.deadlineSeconds);
    const Watchdog watchdog(
        std::chrono::duration<double>(inv.deadlineSeconds),
        [message = std::string(expired)] { ExitNow(message.c_str(), kExitDeadline); });

    if (inv.service) return RunServiceCommand(inv, out, err);

    Document document;
    try {
        document = LoadDocument(inv);
    } catch (const jobs::DocumentError& e) {
        err << "corvid: " << inv.words[0] << ": " << e.what() << "\n";
        return kExitUsage;
    }

    try {
        return Run(inv, document, out, err);
    } catch (const automation::VbError& e) {
        err << "corvid: error " << e.number() << " from " << e.source() << ": "
            << text::Utf8FromWindows1252(e.description()) << "\n";
    } catch (const std::exception& e) {
        err << "corvid: " << e.what() << "\n";
    }
    return kExitFailed;
}

}  // namespace corvid::tool
