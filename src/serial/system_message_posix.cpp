#include <cstring>

#include "serial/system_message.h"

namespace corvid::serial {

std::string SystemMessage(std::int32_t number) { return std::strerror(number); }

}  // namespace corvid::serial
