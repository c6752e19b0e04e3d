// The creatable PrinterResponse4 class: the "S4" status record (amounts by means of payment).
#pragma once

#include <memory>

#include "records/printer_response4.h"
#include "registration/CorvidAPI_h.h"
#include "registration/record_object.h"

namespace corvid::registration {

class PrinterResponse4Object : public RecordObject<_PrinterResponse4, records::PrinterResponse4> {
  public:
    static const CLSID& Clsid() { return CLSID_PrinterResponse4; }

    explicit PrinterResponse4Object(const char* error_source,
                                    std::shared_ptr<Record> record = std::make_shared<Record>());

    CORVID_RECORD_PROPERTY(VARIANT_BOOL, isFake)

    STDMETHODIMP get_nMedios(SHORT* value) override;
    STDMETHODIMP loadFake() override;
    STDMETHODIMP loadFromResponse(VARIANT* r) override;
    STDMETHODIMP valor(LONG* n, CY* amount) override;
};

}  // namespace corvid::registration
