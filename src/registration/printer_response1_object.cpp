#include "registration/printer_response1_object.h"

#include "registration/bstr_text.h"

namespace corvid::registration {

PrinterResponse1Object::PrinterResponse1Object(const char* error_source,
                                               std::shared_ptr<Record> record)
    : RecordObject(IID__PrinterResponse1, error_source, std::move(record)) {}

STDMETHODIMP PrinterResponse1Object::loadFake() {
    return Guard([&] { record_value().loadFake(); });
}
STDMETHODIMP PrinterResponse1Object::loadFromResponse(BSTR* s) {
    return Guard([&] { record_value().loadFromResponse(BytesFromBstr(*Checked(s))); });
}
STDMETHODIMP PrinterResponse1Object::toString(BSTR* text) {
    return Guard([&] {
        BSTR* out = Checked(text);
        *out = ToHost(record_value().toString());
    });
}

}  // namespace corvid::registration
