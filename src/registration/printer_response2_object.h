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

    STDMETHODIMP get_subTotalVenta(CY* value) override;
    STDMETHODIMP put_subTotalVenta(CY value) override;
    STDMETHODIMP get_subTotalImpuestos(CY* value) override;
    STDMETHODIMP put_subTotalImpuestos(CY value) override;
    STDMETHODIMP get_cantidadItems(double* value) override;
    STDMETHODIMP put_cantidadItems(double value) override;
    STDMETHODIMP get_total(CY* value) override;
    STDMETHODIMP put_total(CY value) override;
    STDMETHODIMP get_cantidadPagos(SHORT* value) override;
    STDMETHODIMP put_cantidadPagos(SHORT value) override;
    STDMETHODIMP get_tipoTrans(SHORT* value) override;
    STDMETHODIMP put_tipoTrans(SHORT value) override;

    STDMETHODIMP loadFake() override;
    STDMETHODIMP loadFromResponse(VARIANT* v) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
