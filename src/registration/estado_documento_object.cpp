#include "registration/estado_documento_object.h"

#include "registration/host_array.h"

namespace corvid::registration {

EstadoDocumentoObject::EstadoDocumentoObject(const char* error_source,
                                             std::shared_ptr<Record> record)
    : RecordObject(IID__EstadoDocumento, error_source, std::move(record)) {}

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
