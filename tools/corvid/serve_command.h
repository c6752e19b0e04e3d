// `corvid serve` and `corvid token add|list|remove`: the print service and its tokens.
#pragma once

#include <iosfwd>

#include "corvid/command_line.h"

namespace corvid::tool {

// Runs the service with inv.serve until it is told to stop; returns the exit status.
int RunServe(const Invocation& inv, std::ostream& out, std::ostream& err);
// token add prints the new token; token list the names; token remove removes one.
int RunTokenCommand(const Invocation& inv, std::ostream& out, std::ostream& err);

}  // namespace corvid::tool
