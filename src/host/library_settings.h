// Typed readers of the library's own settings (application "ORV"), with the narrowing rules
// the session applies: a value that does not fit leaves the caller's field as it was.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace corvid::host {

inline constexpr const char* kApplication = "ORV";
inline constexpr const char* kSessionSection = "Config\\NimbusPF";
inline constexpr const char* kRatesSection = "Config\\NimbusPF\\Tasas";

// Numeric setting rounded half to even to 16 or 32 bits; nullopt when it overflows.
std::optional<std::int16_t> ReadInt16Setting(const std::string& key, double fallback);
std::optional<std::int32_t> ReadInt32Setting(const std::string& key, double fallback);
double ReadNumberSetting(const std::string& key, double fallback);
bool ReadBoolSetting(const std::string& key, bool fallback);

}  // namespace corvid::host
