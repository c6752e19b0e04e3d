// The print service's commands and options on the tool's command line.
#include <set>

#include "corvid/command_line_parts.h"
#include "corvid/port_device.h"
#include "corvid/windows_service.h"

namespace corvid::tool::command_line {

namespace {

// `what` checked by `check`; its complaint becomes a Mistake naming the option.
template <class Check>
void Checking(const std::string& option, const std::string& text, Check check) {
    try {
        check(text);
    } catch (const std::invalid_argument& e) {
        throw Mistake{option + " " + text + ": " + e.what()};
    }
}

bool IsDocumentCommand(Command command) {
    return command == Command::kSale || command == Command::kCreditNote ||
           command == Command::kNonFiscal || command == Command::kReport;
}

bool IsServiceCommand(Command command) {
    return command == Command::kServe || command == Command::kTokenAdd ||
           command == Command::kTokenList || command == Command::kTokenRemove ||
           command == Command::kTokenPair;
}

void CheckServe(Arguments& a) {
    ServeOptions& serve = a.inv.serve;
    std::set<std::string> names;
    for (const std::string& text : a.printers) {
        Checking("--printer", text,
                 [&](const std::string& t) { serve.printers.push_back(ParseNamedPrinter(t)); });
        const NamedPrinter& printer = serve.printers.back();
        if (!printer.port.device.empty() && !CanOpenDeviceFiles())
            throw Mistake{"--printer " + text +
                          ": name the port as COMn (device paths are for Linux)"};
        if (!names.insert(printer.name).second)
            throw Mistake{"--printer " + text + ": the name " + printer.name + " is taken"};
    }
    if (!a.listen.empty())
        Checking("--listen", a.listen, [&](const std::string& t) { ParseListen(t, serve); });
    for (const std::string& origin : serve.allowedOrigins)
        Checking("--allow-origin", origin, CheckOrigin);
    if (serve.windowsService) {
        // A service runs as LocalSystem, whose own folders are no place for a shop's journal.
        if (!serve.dataFolder)
            throw Mistake{
                "--windows-service needs --data FOLDER (the installer gives "
                "%ProgramData%\\Corvid)"};
        if (const std::string refusal = WindowsServiceRefusal(); !refusal.empty())
            throw Mistake{refusal};
    }
    serve.onOpenDocument =
        a.onOpenDocument == "cancel" ? OpenDocumentPolicy::kCancel : OpenDocumentPolicy::kComplete;
}

// --service, --token and --key: a client's, for the document commands and jobs.
void CheckClient(Arguments& a) {
    Invocation& inv = a.inv;
    if (!a.serviceUrl) {
        if (a.token || a.key)
            throw Mistake{a.token ? "--token needs --service" : "--key needs --service"};
        if (inv.command == Command::kJobs)
            throw Mistake{"jobs lists a print service's journal: give --service URL --token T"};
        return;
    }
    if (!IsDocumentCommand(inv.command) && inv.command != Command::kJobs)
        throw Mistake{"--service applies to sale, credit-note, nonfiscal, report and jobs"};
    if (!a.token) throw Mistake{"--service needs --token"};
    if (a.portOption->count() > 0 || inv.testMode || inv.json || inv.trace)
        throw Mistake{
            "--service sends to a print service: leave --port, --test-mode, --json and --trace "
            "out"};
    ServiceTarget target;
    Checking("--service", *a.serviceUrl, [&](const std::string& t) { ParseServiceUrl(t, target); });
    if (a.token->empty()) throw Mistake{"--token needs a value"};
    target.token = *a.token;
    if (a.key) {
        if (inv.command == Command::kJobs) throw Mistake{"--key applies to the document commands"};
        Checking("--key", *a.key, CheckKey);
        target.key = a.key;
    }
    inv.service = target;
}

}  // namespace

void AddServiceOptions(CLI::App& app, Arguments& a) {
    app.add_option("--service", a.serviceUrl,
                   "post documents to a print service, http://HOST:PORT");
    app.add_option("--token", a.token, "the service's token (corvid token add NAME)");
    app.add_option("--key", a.key,
                   "the job's idempotency key (a fresh one when left out): the service prints "
                   "a key once");
}

void AddServiceCommands(CLI::App& app, Arguments& a) {
    CLI::App* serve = a.Add(app, Command::kServe, "serve",
                            "run the print service: programs post documents over HTTP");
    serve->add_option("--printer", a.printers,
                      "NAME=PORT, repeatable; PORT as --port takes it (none: the built-in "
                      "simulated printer as 'default')");
    serve->add_option("--listen", a.listen, "ADDRESS:PORT to listen on (default 127.0.0.1:8720)");
    serve->add_option("--data", a.inv.serve.dataFolder,
                      "the folder of the service's database (default: the user's state folder)");
    serve->add_option("--allow-origin", a.inv.serve.allowedOrigins,
                      "a web page's origin that may call the service, repeatable");
    serve
        ->add_option("--on-open-document", a.onOpenDocument,
                     "a document left open by a crash or a power cut: complete or cancel")
        ->check(CLI::IsMember({"complete", "cancel"}))
        ->capture_default_str();
    serve->add_flag("--windows-service", a.inv.serve.windowsService,
                    "run under the Windows service manager (as the installer registers it), "
                    "logging to service.log in the --data folder, which it needs");

    CLI::App* token = app.add_subcommand("token", "manage the tokens that may call the service");
    token->require_subcommand(1);
    token->add_option("--data", a.inv.serve.dataFolder, "the folder of the service's database");
    a.Add(*token, Command::kTokenAdd, "add", "make a token for NAME and print it")
        ->add_option("NAME", a.inv.tokenName, "who the token is for")
        ->required();
    a.Add(*token, Command::kTokenList, "list", "the names of the tokens and when they were made");
    a.Add(*token, Command::kTokenRemove, "remove", "remove NAME's token")
        ->add_option("NAME", a.inv.tokenName, "whose token")
        ->required();
    a.Add(*token, Command::kTokenPair, "pair",
          "print a 6-digit code that logs a browser in as NAME, once, within 5 minutes")
        ->add_option("NAME", a.inv.tokenName, "who the browser's token is for")
        ->required();

    CLI::App* jobs =
        a.Add(app, Command::kJobs, "jobs", "the service's journal, newest first (needs --service)");
    jobs->add_option("--since", a.inv.jobsFilter.since,
                     "jobs created at or after this ISO 8601 time");
    jobs->add_option("--state", a.inv.jobsFilter.state,
                     "queued, printing, done, failed, cancelled or attention");
}

void CheckServiceWords(Arguments& a) {
    Invocation& inv = a.inv;
    if (IsServiceCommand(inv.command) && (a.portOption->count() > 0 || a.serviceUrl))
        throw Mistake{
            "the service names its printers with serve --printer NAME=PORT; leave --port "
            "and --service out"};
    if (inv.command == Command::kServe) CheckServe(a);
    if (inv.command == Command::kJobs) {
        if (inv.jobsFilter.since) Checking("--since", *inv.jobsFilter.since, CheckIsoTime);
        if (inv.jobsFilter.state) Checking("--state", *inv.jobsFilter.state, CheckJobState);
    }
    CheckClient(a);
}

}  // namespace corvid::tool::command_line
