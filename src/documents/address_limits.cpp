#include "documents/address_limits.h"

#include "host/library_settings.h"

namespace corvid::documents {

std::int16_t AnchoDireccion() { return host::ReadInt16Setting("AnchoDireccion", 40).value_or(40); }

std::int16_t LineasDireccion() {
    return host::ReadInt16Setting("LineasDireccion", 10).value_or(10);
}

}  // namespace corvid::documents
