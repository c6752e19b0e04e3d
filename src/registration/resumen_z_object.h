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

    STDMETHODIMP get_numeroUltimoZ(SHORT* value) override;
    STDMETHODIMP put_numeroUltimoZ(SHORT value) override;
    STDMETHODIMP get_fechaUltimoReporte(DATE* value) override;
    STDMETHODIMP put_fechaUltimoReporte(DATE value) override;
    STDMETHODIMP get_numeroUltimaFactura(LONG* value) override;
    STDMETHODIMP put_numeroUltimaFactura(LONG value) override;
    STDMETHODIMP get_fechaUltimaFactura(DATE* value) override;
    STDMETHODIMP put_fechaUltimaFactura(DATE value) override;
    STDMETHODIMP get_ultimaNC(LONG* value) override;
    STDMETHODIMP put_ultimaNC(LONG value) override;
    STDMETHODIMP get_ultimaND(LONG* value) override;
    STDMETHODIMP put_ultimaND(LONG value) override;
    STDMETHODIMP get_ultimoDNF(LONG* value) override;
    STDMETHODIMP put_ultimoDNF(LONG value) override;
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
    STDMETHODIMP get_baseIA(CY* value) override;
    STDMETHODIMP put_baseIA(CY value) override;
    STDMETHODIMP get_impuestoIA(CY* value) override;
    STDMETHODIMP put_impuestoIA(CY value) override;
    STDMETHODIMP get_exentoND(CY* value) override;
    STDMETHODIMP put_exentoND(CY value) override;
    STDMETHODIMP get_baseVGND(CY* value) override;
    STDMETHODIMP put_baseVGND(CY value) override;
    STDMETHODIMP get_impuestoVGND(CY* value) override;
    STDMETHODIMP put_impuestoVGND(CY value) override;
    STDMETHODIMP get_baseIRND(CY* value) override;
    STDMETHODIMP put_baseIRND(CY value) override;
    STDMETHODIMP get_impuestoIRND(CY* value) override;
    STDMETHODIMP put_impuestoIRND(CY value) override;
    STDMETHODIMP get_baseIAND(CY* value) override;
    STDMETHODIMP put_baseIAND(CY value) override;
    STDMETHODIMP get_impuestoIAND(CY* value) override;
    STDMETHODIMP put_impuestoIAND(CY value) override;
    STDMETHODIMP get_exentoNC(CY* value) override;
    STDMETHODIMP put_exentoNC(CY value) override;
    STDMETHODIMP get_baseVGNC(CY* value) override;
    STDMETHODIMP put_baseVGNC(CY value) override;
    STDMETHODIMP get_impuestoVGNC(CY* value) override;
    STDMETHODIMP put_impuestoVGNC(CY value) override;
    STDMETHODIMP get_baseIRNC(CY* value) override;
    STDMETHODIMP put_baseIRNC(CY value) override;
    STDMETHODIMP get_impuestoIRNC(CY* value) override;
    STDMETHODIMP put_impuestoIRNC(CY value) override;
    STDMETHODIMP get_baseIANC(CY* value) override;
    STDMETHODIMP put_baseIANC(CY value) override;
    STDMETHODIMP get_impuestoIANC(CY* value) override;
    STDMETHODIMP put_impuestoIANC(CY value) override;
    STDMETHODIMP get_percibidoVentas(CY* value) override;
    STDMETHODIMP put_percibidoVentas(CY value) override;
    STDMETHODIMP get_percibidoND(CY* value) override;
    STDMETHODIMP put_percibidoND(CY value) override;
    STDMETHODIMP get_percibidoNC(CY* value) override;
    STDMETHODIMP put_percibidoNC(CY value) override;
    STDMETHODIMP get_BaseIGTF(CY* value) override;
    STDMETHODIMP put_BaseIGTF(CY value) override;
    STDMETHODIMP get_ValorIGTF(CY* value) override;
    STDMETHODIMP put_ValorIGTF(CY value) override;
    STDMETHODIMP get_BaseIGTFND(CY* value) override;
    STDMETHODIMP put_BaseIGTFND(CY value) override;
    STDMETHODIMP get_IGTFND(CY* value) override;
    STDMETHODIMP put_IGTFND(CY value) override;
    STDMETHODIMP get_BaseIGTFNC(CY* value) override;
    STDMETHODIMP put_BaseIGTFNC(CY value) override;
    STDMETHODIMP get_IGTFNC(CY* value) override;
    STDMETHODIMP put_IGTFNC(CY value) override;

    STDMETHODIMP load(_PrinterFiscal* printer) override;
    STDMETHODIMP Refresh(_PrinterFiscal* printer) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
