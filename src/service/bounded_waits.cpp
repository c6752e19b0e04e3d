#include "service/bounded_waits.h"

#include <string>

namespace corvid::service {
namespace {

constexpr const char* kServiceMaxWait = "5";

bool Bounded(const std::string& value) {
    try {
        return std::stod(value) > 0;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

BoundedWaits::BoundedWaits()
    : override_("MaxWait", [](const std::string& stored) {
          return Bounded(stored) ? stored : std::string(kServiceMaxWait);
      }) {}

}  // namespace corvid::service
