// The session's serial line over the process-wide port table.
#pragma once

#include <memory>

#include "session/serial_line.h"

namespace corvid::session {

std::shared_ptr<SerialLine> ProcessSerialLine();

}  // namespace corvid::session
