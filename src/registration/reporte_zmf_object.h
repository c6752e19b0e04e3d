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

    CORVID_RECORD_PROPERTY(SHORT, numeroCierre)
    CORVID_RECORD_PROPERTY(DATE, fechaCierre)
    CORVID_RECORD_PROPERTY(DATE, horaCierre)
    CORVID_RECORD_PROPERTY(LONG, numeroUltimaFactura)
    CORVID_RECORD_PROPERTY(DATE, fechaUltimaFactura)
    CORVID_RECORD_PROPERTY(DATE, horaUltimaFactura)
    CORVID_RECORD_PROPERTY(CY, ventasExentas)
    CORVID_RECORD_PROPERTY(CY, baseVG)
    CORVID_RECORD_PROPERTY(CY, impuestoVG)
    CORVID_RECORD_PROPERTY(CY, baseIR)
    CORVID_RECORD_PROPERTY(CY, impuestoIR)
    CORVID_RECORD_PROPERTY(CY, NCExentas)
    CORVID_RECORD_PROPERTY(CY, baseNCVG)
    CORVID_RECORD_PROPERTY(CY, impuestoNCVG)
    CORVID_RECORD_PROPERTY(CY, baseNCIR)
    CORVID_RECORD_PROPERTY(CY, impuestoNCIR)

    STDMETHODIMP loadFromResponse(VARIANT* response) override;
    STDMETHODIMP toString(VARIANT* text) override;
    STDMETHODIMP load(_PrinterFiscal* printer, VARIANT* numero, VARIANT_BOOL* loaded) override;
};

}  // namespace corvid::registration
