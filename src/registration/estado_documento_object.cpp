#include "registration/estado_documento_object.h"

#include "registration/host_array.h"

namespace corvid::registration {

EstadoDocumentoObject::EstadoDocumentoObject(const char* error_source,
                                             std::shared_ptr<Record> record)
    : RecordObject(IID__EstadoDocumento, error_source, std::move(record)) {}

STDMETHODIMP EstadoDocumentoObject::get_subTotalBasesImponibles(CY* value) {
    return Get(value, &Record::subTotalBasesImponibles);
}
STDMETHODIMP EstadoDocumentoObject::put_subTotalBasesImponibles(CY value) {
    return Put(value, &Record::subTotalBasesImponibles);
}
STDMETHODIMP EstadoDocumentoObject::get_subTotalIVA(CY* value) {
    return Get(value, &Record::subTotalIVA);
}
STDMETHODIMP EstadoDocumentoObject::put_subTotalIVA(CY value) {
    return Put(value, &Record::subTotalIVA);
}
STDMETHODIMP EstadoDocumentoObject::get_NotaS2(BSTR* value) { return Get(value, &Record::NotaS2); }
STDMETHODIMP EstadoDocumentoObject::put_NotaS2(BSTR value) { return Put(value, &Record::NotaS2); }
STDMETHODIMP EstadoDocumentoObject::get_MontoPorPagar(CY* value) {
    return Get(value, &Record::MontoPorPagar);
}
STDMETHODIMP EstadoDocumentoObject::put_MontoPorPagar(CY value) {
    return Put(value, &Record::MontoPorPagar);
}
STDMETHODIMP EstadoDocumentoObject::get_numeroPagosRealizados(SHORT* value) {
    return Get(value, &Record::numeroPagosRealizados);
}
STDMETHODIMP EstadoDocumentoObject::put_numeroPagosRealizados(SHORT value) {
    return Put(value, &Record::numeroPagosRealizados);
}
STDMETHODIMP EstadoDocumentoObject::get_estado(SHORT* value) { return Get(value, &Record::estado); }
STDMETHODIMP EstadoDocumentoObject::put_estado(SHORT value) { return Put(value, &Record::estado); }

STDMETHODIMP EstadoDocumentoObject::loadFromResponse(VARIANT* v) {
    return Guard([&] { record_value().loadFromResponse(TextsOf(*Checked(v))); });
}
STDMETHODIMP EstadoDocumentoObject::toString(BSTR* text) {
    return Guard([&] {
        BSTR* out = Checked(text);
        *out = ToHost(record_value().toString());
    });
}

}  // namespace corvid::registration
