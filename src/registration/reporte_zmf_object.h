// The creatable ReporteZMF class: one daily closure from fiscal memory.
#pragma once

#include <memory>

#include "records/reporte_zmf.h"
#include "registration/CorvidAPI_h.h"
#include "registration/record_object.h"

namespace corvid::registration {

class ReporteZMFObject : public RecordObject<_ReporteZMF, records::ReporteZMF> {
  public:
    static const CLSID& Clsid() { return CLSID_ReporteZMF; }

    explicit ReporteZMFObject(const char* error_source,
                              std::shared_ptr<Record> record = std::make_shared<Record>());

    STDMETHODIMP get_numeroCierre(SHORT* value) override;
    STDMETHODIMP put_numeroCierre(SHORT value) override;
    STDMETHODIMP get_fechaCierre(DATE* value) override;
    STDMETHODIMP put_fechaCierre(DATE value) override;
    STDMETHODIMP get_horaCierre(DATE* value) override;
    STDMETHODIMP put_horaCierre(DATE value) override;
    STDMETHODIMP get_numeroUltimaFactura(LONG* value) override;
    STDMETHODIMP put_numeroUltimaFactura(LONG value) override;
    STDMETHODIMP get_fechaUltimaFactura(DATE* value) override;
    STDMETHODIMP put_fechaUltimaFactura(DATE value) override;
    STDMETHODIMP get_horaUltimaFactura(DATE* value) override;
    STDMETHODIMP put_horaUltimaFactura(DATE value) override;
    STDMETHODIMP get_ventasExentas(CY* value) override;
    STDMETHODIMP put_ventasExentas(CY value) override;
    STDMETHODIMP get_baseVG(CY* value) override;
    STDMETHODIMP put_baseVG(CY value) override;
    STDMETHODIMP get_impuestoVG(CY* value) override;
    STDMETHODIMP put_impuestoVG(CY value) override;
    STDMETHODIMP get_baseIR(CY* value) override;
    STDMETHODIMP put_baseIR(CY value) override;
    STDMETHODIMP get_impuestoIR(CY* value) override;
    STDMETHODIMP put_impuestoIR(CY value) override;
    STDMETHODIMP get_NCExentas(CY* value) override;
    STDMETHODIMP put_NCExentas(CY value) override;
    STDMETHODIMP get_baseNCVG(CY* value) override;
    STDMETHODIMP put_baseNCVG(CY value) override;
    STDMETHODIMP get_impuestoNCVG(CY* value) override;
    STDMETHODIMP put_impuestoNCVG(CY value) override;
    STDMETHODIMP get_baseNCIR(CY* value) override;
    STDMETHODIMP put_baseNCIR(CY value) override;
    STDMETHODIMP get_impuestoNCIR(CY* value) override;
    STDMETHODIMP put_impuestoNCIR(CY value) override;

    STDMETHODIMP loadFromResponse(VARIANT* response) override;
    STDMETHODIMP toString(VARIANT* text) override;
    STDMETHODIMP load(_PrinterFiscal* printer, VARIANT* numero, VARIANT_BOOL* loaded) override;
};

}  // namespace corvid::registration
