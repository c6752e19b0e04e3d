// The creatable PrinterResponse2 class: the "S2" status record (the document in progress).
#pragma once

#include <memory>

#include "records/printer_response2.h"
#include "registration/CorvidAPI_h.h"
#include "registration/record_object.h"

namespace corvid::registration {

class PrinterResponse2Object : public RecordObject<_PrinterResponse2, records::PrinterResponse2> {
  public:
    static const CLSID& Clsid() { return CLSID_PrinterResponse2; }

    explicit PrinterResponse2Object(const char* error_source,
                                    std::shared_ptr<Record> record = std::make_shared<Record>());

    CORVID_RECORD_PROPERTY(CY, subTotalVenta)
    CORVID_RECORD_PROPERTY(CY, subTotalImpuestos)
    CORVID_RECORD_PROPERTY(double, cantidadItems)
    CORVID_RECORD_PROPERTY(CY, total)
    CORVID_RECORD_PROPERTY(SHORT, cantidadPagos)
    CORVID_RECORD_PROPERTY(SHORT, tipoTrans)

    STDMETHODIMP loadFake() override;
    STDMETHODIMP loadFromResponse(VARIANT* v) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
