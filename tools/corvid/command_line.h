// The tool's command line: global options, one command and its arguments. Everything is
// checked here, before any port or file is opened, so a mistake is reported as such.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/variant.h"
#include "corvid/port_choice.h"
#include "corvid/service_options.h"

namespace corvid::tool {

enum class Command {
    kStatus,
    kSend,
    kQuery,
    kSale,
    kCreditNote,
    kNonFiscal,
    kReport,
    kHeader,
    kFooter,
    kSetDate,
    kSetTime,
    kDemo,
    kSummary,
    kMemory,
    kServe,
    kTokenAdd,
    kTokenList,
    kTokenRemove,
    kTokenPair,
    kJobs,
};

// Exit statuses the tool's users can rely on.
inline constexpr int kExitAccepted = 0;    // the printer accepted everything
inline constexpr int kExitFailed = 1;      // refused, no answer, or the port would not open
inline constexpr int kExitUsage = 2;       // a mistake on the command line or in a file
inline constexpr int kExitDeadline = 124;  // --deadline passed
inline constexpr int kExitInterrupted = 130;

inline constexpr double kDefaultDeadlineSeconds = 60;

struct Invocation {
    std::optional<PortChoice> port;  // none: the built-in simulated printer
    bool trace = false;
    bool json = false;  // status, report z, summary and memory
    // Nothing is sent: the commands become a preview shown when the session closes.
    bool testMode = false;
    double deadlineSeconds = kDefaultDeadlineSeconds;
    Command command = Command::kStatus;
    // As typed (UTF-8): the command text of send and query, the file of sale and
    // credit-note, the lines of nonfiscal, the text of header and footer.
    std::vector<std::string> words;
    char reportKind = 'X';  // 'X' or 'Z'
    int line = 0;           // header and footer
    std::int32_t from = 0;  // memory: the range of closures
    std::int32_t to = 0;
    // set-date and set-time; none means the computer's clock.
    std::optional<automation::Date> when;
    ServeOptions serve;  // serve; its data folder also for the token commands
    // With --service the document commands post a job to the service instead of opening
    // a port, and jobs lists its journal.
    std::optional<ServiceTarget> service;
    std::string tokenName;  // token add and token remove
    JobsFilter jobsFilter;  // jobs
};

struct ParsedCommandLine {
    // Empty when there is nothing to run: after --help, or after a mistake.
    std::optional<Invocation> invocation;
    int exitCode = kExitAccepted;
    std::string output;  // for standard output (help)
    std::string error;   // for standard error, naming the mistake
};

// `args` without the program's name.
ParsedCommandLine ParseCommandLine(const std::vector<std::string>& args);

}  // namespace corvid::tool
