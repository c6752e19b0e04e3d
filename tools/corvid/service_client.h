// The tool as a client of a print service (--service URL --token T): the document commands
// post a job and follow it step by step; jobs lists the journal.
#pragma once

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "corvid/command_line.h"

namespace corvid::tool {

// The exit status, as the same command on a port would give it; 2 when the service
// refuses the document.
int RunServiceCommand(const Invocation& inv, std::ostream& out, std::ostream& err);

// The job a document command posts: {"type", "document"}, the file's JSON as it is.
// Throws jobs::DocumentError when the file is not a valid document.
nlohmann::json JobBodyOf(const Invocation& inv, const std::string& fileText);

}  // namespace corvid::tool
