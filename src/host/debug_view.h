// The on-screen trace: a report view the trace adds its lines to when immediate debugging
// is on, shown to the person when the session closes. The view itself lives in a higher
// module; the session installs a factory that creates it (already 80 columns wide).
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvid::host {

class DebugView {
  public:
    virtual ~DebugView() = default;
    virtual void Add(const std::string& line) = 0;
    virtual void ShowModal() = 0;
};

using DebugViewFactory = std::function<std::shared_ptr<DebugView>()>;

}  // namespace corvid::host
