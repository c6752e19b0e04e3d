#include "port/message_pump.h"

namespace corvid::port {

// No window messages here: hosts with an event loop install a hook instead.
void PumpPlatformMessages() {}

}  // namespace corvid::port
