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

    CORVID_RECORD_PROPERTY(CY, subTotalBasesImponibles)
    CORVID_RECORD_PROPERTY(CY, subTotalIVA)
    CORVID_RECORD_PROPERTY(BSTR, NotaS2)
    CORVID_RECORD_PROPERTY(CY, MontoPorPagar)
    CORVID_RECORD_PROPERTY(SHORT, numeroPagosRealizados)
    CORVID_RECORD_PROPERTY(SHORT, estado)

    STDMETHODIMP loadFromResponse(VARIANT* v) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
