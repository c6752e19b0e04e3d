// The creatable PrinterResponse1 class: the "S1" status record (cashier, counters, tax id,
// serial, printer date).
#pragma once

#include <memory>

#include "records/printer_response1.h"
#include "registration/CorvidAPI_h.h"
#include "registration/record_object.h"

namespace corvid::registration {

class PrinterResponse1Object : public RecordObject<_PrinterResponse1, records::PrinterResponse1> {
  public:
    static const CLSID& Clsid() { return CLSID_PrinterResponse1; }

    explicit PrinterResponse1Object(const char* error_source,
                                    std::shared_ptr<Record> record = std::make_shared<Record>());

    CORVID_RECORD_PROPERTY(SHORT, numeroCajero)
    CORVID_RECORD_PROPERTY(CY, totalVentasDiarias)
    CORVID_RECORD_PROPERTY(LONG, numeroUltimaFactura)
    CORVID_RECORD_PROPERTY(LONG, facturasDia)
    CORVID_RECORD_PROPERTY(LONG, ultimoDNF)
    CORVID_RECORD_PROPERTY(LONG, ndfDia)
    CORVID_RECORD_PROPERTY(LONG, nCierres)
    CORVID_RECORD_PROPERTY(LONG, contadorReportes)
    CORVID_RECORD_PROPERTY(BSTR, RIF)
    CORVID_RECORD_PROPERTY(BSTR, Serial)
    CORVID_RECORD_PROPERTY(DATE, Fecha)
    CORVID_RECORD_PROPERTY(LONG, numeroUltimaND)
    CORVID_RECORD_PROPERTY(SHORT, notasDebitoDia)
    CORVID_RECORD_PROPERTY(LONG, numeroUltimaNC)
    CORVID_RECORD_PROPERTY(SHORT, notasCreditoDia)
    CORVID_RECORD_PROPERTY(VARIANT_BOOL, isFake)

    STDMETHODIMP loadFake() override;
    STDMETHODIMP loadFromResponse(BSTR* s) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
