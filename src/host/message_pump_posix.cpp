#include "host/message_pump.h"

namespace corvid::host {

// No window messages here: hosts with an event loop install a hook instead.
void PumpPlatformMessages() {}

}  // namespace corvid::host
