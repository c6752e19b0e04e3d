#include "registration/reporte_zmf_object.h"

#include "registration/host_array.h"
#include "registration/printer_fiscal_object.h"
#include "registration/variant_values.h"

namespace corvid::registration {

ReporteZMFObject::ReporteZMFObject(const char* error_source, std::shared_ptr<Record> record)
    : RecordObject(IID__ReporteZMF, error_source, std::move(record)) {}

STDMETHODIMP ReporteZMFObject::loadFromResponse(VARIANT* response) {
    return Guard([&] { record_value().loadFromResponse(TextsOf(*Checked(response))); });
}
STDMETHODIMP ReporteZMFObject::toString(VARIANT* text) {
    return Guard([&] { SetText(Checked(text), record_value().toString()); });
}
STDMETHODIMP ReporteZMFObject::load(_PrinterFiscal* printer, VARIANT* numero,
                                    VARIANT_BOOL* loaded) {
    return Guard([&] {
        session::PrinterFiscal& session = SessionOf(printer);
        const automation::Variant number = ValueFromVariant(*Checked(numero));
        VARIANT_BOOL* out = Checked(loaded);
        *out = ToHost(record_value().load(session, number));
    });
}

}  // namespace corvid::registration
