// The host object given to lfQuickView.SetNotify, as the report model sees it: its
// ReportClicked(line, column) is called late-bound, by name, and whatever it raises is
// ignored. A reference to the host object is held for as long as this target lives.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include "preview/report_click_target.h"
#include "registration/held_reference.h"

namespace corvid::registration {

class LateBoundClickTarget : public preview::ReportClickTarget {
  public:
    explicit LateBoundClickTarget(IDispatch* host_object) { host_object_.Reset(host_object); }

    void ReportClicked(const std::string& line, std::int32_t column) override;

  private:
    HeldReference<IDispatch> host_object_;
};

}  // namespace corvid::registration
