// A record's fields as the host reads and writes them: 16- and 32-bit integers, Currency
// as CY, dates as DATE, Booleans as VARIANT_BOOL, text as BSTR in the ANSI code page.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <cstdint>
#include <string>

#include "automation/currency.h"
#include "automation/variant.h"

namespace corvid::registration {

inline SHORT ToHost(std::int16_t value) { return value; }
inline LONG ToHost(std::int32_t value) { return value; }
inline double ToHost(double value) { return value; }
inline VARIANT_BOOL ToHost(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
inline CY ToHost(automation::Currency value) {
    CY host;
    host.int64 = value.scaled();
    return host;
}
inline DATE ToHost(automation::Date value) { return value.days; }
// A new BSTR the caller owns.
BSTR ToHost(const std::string& value);

inline void FromHost(SHORT value, std::int16_t& field) { field = value; }
inline void FromHost(LONG value, std::int32_t& field) { field = value; }
inline void FromHost(double value, double& field) { field = value; }
// Any nonzero VARIANT_BOOL is True, as VB reads it.
inline void FromHost(VARIANT_BOOL value, bool& field) { field = value != VARIANT_FALSE; }
inline void FromHost(CY value, automation::Currency& field) {
    field = automation::Currency::FromScaled(value.int64);
}
inline void FromHost(DATE value, automation::Date& field) { field = automation::Date{value}; }
void FromHost(BSTR value, std::string& field);

}  // namespace corvid::registration
