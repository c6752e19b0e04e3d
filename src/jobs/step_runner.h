// Runs steps in order on the printer, one line per step, and stops at the first one the
// printer does not accept, quoting the printer's words and status.
#pragma once

#include <iosfwd>

#include "jobs/steps.h"

namespace corvid::jobs {

// True when the printer accepted every step.
bool RunSteps(DocumentPrinter& printer, const Steps& steps, std::ostream& out);

// Whether the printer took the last command. A command refused with NAK on every attempt
// leaves pfError at pfOk: resultFlag NAK is then the only sign of the refusal.
bool Accepted(const session::ExchangeOutcome& outcome);

// Why the last command failed, in lines that start with `indent`: the printer's words and
// its status bytes explained, or, when no status was read for it, that nothing was read.
void ExplainFailure(const session::ExchangeOutcome& outcome, const std::string& sts1,
                    const std::string& sts2, const char* indent, std::ostream& out);

}  // namespace corvid::jobs
