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

    STDMETHODIMP get_numeroCajero(SHORT* value) override;
    STDMETHODIMP put_numeroCajero(SHORT value) override;
    STDMETHODIMP get_totalVentasDiarias(CY* value) override;
    STDMETHODIMP put_totalVentasDiarias(CY value) override;
    STDMETHODIMP get_numeroUltimaFactura(LONG* value) override;
    STDMETHODIMP put_numeroUltimaFactura(LONG value) override;
    STDMETHODIMP get_facturasDia(LONG* value) override;
    STDMETHODIMP put_facturasDia(LONG value) override;
    STDMETHODIMP get_ultimoDNF(LONG* value) override;
    STDMETHODIMP put_ultimoDNF(LONG value) override;
    STDMETHODIMP get_ndfDia(LONG* value) override;
    STDMETHODIMP put_ndfDia(LONG value) override;
    STDMETHODIMP get_nCierres(LONG* value) override;
    STDMETHODIMP put_nCierres(LONG value) override;
    STDMETHODIMP get_contadorReportes(LONG* value) override;
    STDMETHODIMP put_contadorReportes(LONG value) override;
    STDMETHODIMP get_RIF(BSTR* value) override;
    STDMETHODIMP put_RIF(BSTR value) override;
    STDMETHODIMP get_Serial(BSTR* value) override;
    STDMETHODIMP put_Serial(BSTR value) override;
    STDMETHODIMP get_Fecha(DATE* value) override;
    STDMETHODIMP put_Fecha(DATE value) override;
    STDMETHODIMP get_numeroUltimaND(LONG* value) override;
    STDMETHODIMP put_numeroUltimaND(LONG value) override;
    STDMETHODIMP get_notasDebitoDia(SHORT* value) override;
    STDMETHODIMP put_notasDebitoDia(SHORT value) override;
    STDMETHODIMP get_numeroUltimaNC(LONG* value) override;
    STDMETHODIMP put_numeroUltimaNC(LONG value) override;
    STDMETHODIMP get_notasCreditoDia(SHORT* value) override;
    STDMETHODIMP put_notasCreditoDia(SHORT value) override;
    STDMETHODIMP get_isFake(VARIANT_BOOL* value) override;
    STDMETHODIMP put_isFake(VARIANT_BOOL value) override;

    STDMETHODIMP loadFake() override;
    STDMETHODIMP loadFromResponse(BSTR* s) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
