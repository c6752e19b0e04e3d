// The service's sessions must never wait for ever: with "MaxWait" unset (or 0) a session
// asks a silent printer for status without end, and a stopped service could not stop its
// worker. While one of these lives, "MaxWait" reads as 5 seconds unless set above 0.
#pragma once

#include <memory>

#include "host/settings_store.h"

namespace corvid::service {

class BoundedWaits {
  public:
    BoundedWaits();
    ~BoundedWaits();
    BoundedWaits(const BoundedWaits&) = delete;
    BoundedWaits& operator=(const BoundedWaits&) = delete;

  private:
    std::shared_ptr<host::SettingsSource> previous_;
};

}  // namespace corvid::service
