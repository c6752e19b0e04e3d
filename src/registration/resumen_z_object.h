// The creatable ResumenZ class: the daily (Z) summary, read from one of this server's
// PrinterFiscal sessions.
#pragma once

#include <memory>

#include "records/resumen_z.h"
#include "registration/CorvidAPI_h.h"
#include "registration/record_object.h"

namespace corvid::registration {

class ResumenZObject : public RecordObject<_ResumenZ, records::ResumenZ> {
  public:
    static const CLSID& Clsid() { return CLSID_ResumenZ; }

    explicit ResumenZObject(const char* error_source,
                            std::shared_ptr<Record> record = std::make_shared<Record>());

    CORVID_RECORD_PROPERTY(SHORT, numeroUltimoZ)
    CORVID_RECORD_PROPERTY(DATE, fechaUltimoReporte)
    CORVID_RECORD_PROPERTY(LONG, numeroUltimaFactura)
    CORVID_RECORD_PROPERTY(DATE, fechaUltimaFactura)
    CORVID_RECORD_PROPERTY(LONG, ultimaNC)
    CORVID_RECORD_PROPERTY(LONG, ultimaND)
    CORVID_RECORD_PROPERTY(LONG, ultimoDNF)
    CORVID_RECORD_PROPERTY(CY, ventasExentas)
    CORVID_RECORD_PROPERTY(CY, baseVG)
    CORVID_RECORD_PROPERTY(CY, impuestoVG)
    CORVID_RECORD_PROPERTY(CY, baseIR)
    CORVID_RECORD_PROPERTY(CY, impuestoIR)
    CORVID_RECORD_PROPERTY(CY, baseIA)
    CORVID_RECORD_PROPERTY(CY, impuestoIA)
    CORVID_RECORD_PROPERTY(CY, exentoND)
    CORVID_RECORD_PROPERTY(CY, baseVGND)
    CORVID_RECORD_PROPERTY(CY, impuestoVGND)
    CORVID_RECORD_PROPERTY(CY, baseIRND)
    CORVID_RECORD_PROPERTY(CY, impuestoIRND)
    CORVID_RECORD_PROPERTY(CY, baseIAND)
    CORVID_RECORD_PROPERTY(CY, impuestoIAND)
    CORVID_RECORD_PROPERTY(CY, exentoNC)
    CORVID_RECORD_PROPERTY(CY, baseVGNC)
    CORVID_RECORD_PROPERTY(CY, impuestoVGNC)
    CORVID_RECORD_PROPERTY(CY, baseIRNC)
    CORVID_RECORD_PROPERTY(CY, impuestoIRNC)
    CORVID_RECORD_PROPERTY(CY, baseIANC)
    CORVID_RECORD_PROPERTY(CY, impuestoIANC)
    CORVID_RECORD_PROPERTY(CY, percibidoVentas)
    CORVID_RECORD_PROPERTY(CY, percibidoND)
    CORVID_RECORD_PROPERTY(CY, percibidoNC)
    CORVID_RECORD_PROPERTY(CY, BaseIGTF)
    CORVID_RECORD_PROPERTY(CY, ValorIGTF)
    CORVID_RECORD_PROPERTY(CY, BaseIGTFND)
    CORVID_RECORD_PROPERTY(CY, IGTFND)
    CORVID_RECORD_PROPERTY(CY, BaseIGTFNC)
    CORVID_RECORD_PROPERTY(CY, IGTFNC)

    STDMETHODIMP load(_PrinterFiscal* printer) override;
    STDMETHODIMP Refresh(_PrinterFiscal* printer) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
