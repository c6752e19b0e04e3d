#include "automation/locale_format.h"

namespace corvid::automation {

// A fixed locale, so that output does not depend on the environment of the process.
LocaleFormat SystemLocaleFormat() { return LocaleFormat{}; }

}  // namespace corvid::automation
