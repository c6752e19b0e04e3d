// The creatable EstadoDocumento class: the "S2" reply read as the state of the document.
#pragma once

#include <memory>

#include "records/printer_response2.h"
#include "registration/CorvidAPI_h.h"
#include "registration/record_object.h"

namespace corvid::registration {

class EstadoDocumentoObject : public RecordObject<_EstadoDocumento, records::EstadoDocumento> {
  public:
    static const CLSID& Clsid() { return CLSID_EstadoDocumento; }

    explicit EstadoDocumentoObject(const char* error_source,
                                   std::shared_ptr<Record> record = std::make_shared<Record>());

    STDMETHODIMP get_subTotalBasesImponibles(CY* value) override;
    STDMETHODIMP put_subTotalBasesImponibles(CY value) override;
    STDMETHODIMP get_subTotalIVA(CY* value) override;
    STDMETHODIMP put_subTotalIVA(CY value) override;
    STDMETHODIMP get_NotaS2(BSTR* value) override;
    STDMETHODIMP put_NotaS2(BSTR value) override;
    STDMETHODIMP get_MontoPorPagar(CY* value) override;
    STDMETHODIMP put_MontoPorPagar(CY value) override;
    STDMETHODIMP get_numeroPagosRealizados(SHORT* value) override;
    STDMETHODIMP put_numeroPagosRealizados(SHORT value) override;
    STDMETHODIMP get_estado(SHORT* value) override;
    STDMETHODIMP put_estado(SHORT value) override;

    STDMETHODIMP loadFromResponse(VARIANT* v) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
