#include "registration/printer_response2_object.h"

#include "registration/host_array.h"

namespace corvid::registration {

PrinterResponse2Object::PrinterResponse2Object(const char* error_source,
                                               std::shared_ptr<Record> record)
    : RecordObject(IID__PrinterResponse2, error_source, std::move(record)) {}

STDMETHODIMP PrinterResponse2Object::loadFake() {
    return Guard([&] { record_value().loadFake(); });
}
STDMETHODIMP PrinterResponse2Object::loadFromResponse(VARIANT* v) {
    return Guard([&] { record_value().loadFromResponse(TextsOf(*Checked(v))); });
}
STDMETHODIMP PrinterResponse2Object::toString(BSTR* text) {
    return Guard([&] {
        BSTR* out = Checked(text);
        *out = ToHost(record_value().toString());
    });
}

}  // namespace corvid::registration
