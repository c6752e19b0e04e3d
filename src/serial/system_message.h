// The system's own text for an error number, on one line, as error records quote it.
#pragma once

#include <cstdint>
#include <string>

namespace corvid::serial {

std::string SystemMessage(std::int32_t number);

}  // namespace corvid::serial
