// How much address a customer-data command may carry, read from the settings on every call.
#pragma once

#include <cstdint>

namespace corvid::documents {

// Width of one address line in characters ("AnchoDireccion", default 40).
std::int16_t AnchoDireccion();
// Number of address lines allowed ("LineasDireccion", default 10).
std::int16_t LineasDireccion();

}  // namespace corvid::documents
