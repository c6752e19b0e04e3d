// Jobs as clients read them (see job_desk.h for the shape).
#pragma once

#include <nlohmann/json.hpp>

#include "service/journal.h"

namespace corvid::service {

nlohmann::json JobJson(const JobRecord& job);

}  // namespace corvid::service
