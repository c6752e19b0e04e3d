// The service's sessions must never wait for ever: with "MaxWait" unset (or 0) a session
// asks a silent printer for status without end, and a stopped service could not stop its
// worker. While one of these lives, "MaxWait" reads as 5 seconds unless set above 0.
#pragma once

#include "host/setting_override.h"

namespace corvid::service {

class BoundedWaits {
  public:
    BoundedWaits();

  private:
    host::SettingOverride override_;
};

}  // namespace corvid::service
