// The commands the simulated printer answers out of the box: those of printer_commands.h,
// and
//   "~B" N   a test query answering N blocks (1 to 99); block i holds the fields i and N.
//            Any other count is refused with NAK. No real printer command starts with "~".
#pragma once

#include "sim/command_table.h"

namespace corvid::sim {

inline constexpr const char* kMultiBlockTestCommand = "~B";

void RegisterBuiltinCommands(CommandTable& table);

}  // namespace corvid::sim
