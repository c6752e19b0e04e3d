#include "registration/resumen_z_object.h"

#include "registration/printer_fiscal_object.h"
#include "session/process_state.h"

namespace corvid::registration {

ResumenZObject::ResumenZObject(const char* error_source, std::shared_ptr<Record> record)
    : RecordObject(IID__ResumenZ, error_source, std::move(record)) {}

STDMETHODIMP ResumenZObject::load(_PrinterFiscal* printer) {
    return Guard([&] { record_value().load(SessionOf(printer)); });
}
STDMETHODIMP ResumenZObject::Refresh(_PrinterFiscal* printer) {
    return Guard([&] { record_value().Refresh(SessionOf(printer)); });
}
// The serial is the one the last Abrir of any session learnt.
STDMETHODIMP ResumenZObject::toString(BSTR* text) {
    return Guard([&] {
        BSTR* out = Checked(text);
        *out = ToHost(record_value().toString(session::Process().lastSerial));
    });
}

}  // namespace corvid::registration
