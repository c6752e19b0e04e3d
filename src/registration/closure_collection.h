// What reportesZMF gives the host: the closures in the printer's order, counted from 1,
// walked with For Each. Only the server makes one; hosts cannot create it.
#pragma once

#include <memory>
#include <vector>

#include "records/reporte_zmf.h"
#include "registration/CorvidAPI_h.h"
#include "registration/dispatch_object.h"
#include "registration/reporte_zmf_object.h"

namespace corvid::registration {

class ClosureCollection : public DispatchObject<ReportesZMFCollection> {
  public:
    explicit ClosureCollection(const std::vector<std::shared_ptr<records::ReporteZMF>>& closures);
    ~ClosureCollection() override;

    // A number from 1 to Count; a text is taken as a key, and there are none (error 5).
    STDMETHODIMP Item(VARIANT Index, _ReporteZMF** closure) override;
    STDMETHODIMP get_Count(LONG* count) override;
    STDMETHODIMP get__NewEnum(IUnknown** items) override;

    // One object per closure, made once, so that Item(1) Is Item(1).
    const std::vector<ReporteZMFObject*>& items() const { return items_; }

  private:
    std::vector<ReporteZMFObject*> items_;  // one reference each
};

}  // namespace corvid::registration
