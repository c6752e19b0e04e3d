// The whole program behind main: read the command line, load the document, arm the
// deadline, open the printer, run the command, close. Standard output gets the session's
// story, standard error the tool's own complaints.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace corvid::tool {

// Returns the exit status (see command_line.h). When --deadline passes, the process ends
// from here with kExitDeadline instead of returning.
int RunCommandLine(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace corvid::tool
