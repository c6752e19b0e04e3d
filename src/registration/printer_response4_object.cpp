#include "registration/printer_response4_object.h"

#include "registration/host_array.h"

namespace corvid::registration {

PrinterResponse4Object::PrinterResponse4Object(const char* error_source,
                                               std::shared_ptr<Record> record)
    : RecordObject(IID__PrinterResponse4, error_source, std::move(record)) {}

STDMETHODIMP PrinterResponse4Object::get_nMedios(SHORT* value) {
    return Guard([&] {
        SHORT* out = Checked(value);
        *out = record_value().nMedios();
    });
}
STDMETHODIMP PrinterResponse4Object::loadFake() {
    return Guard([&] { record_value().loadFake(); });
}
STDMETHODIMP PrinterResponse4Object::loadFromResponse(VARIANT* r) {
    return Guard([&] { record_value().loadFromResponse(TextsOf(*Checked(r))); });
}
STDMETHODIMP PrinterResponse4Object::valor(LONG* n, CY* amount) {
    return Guard([&] {
        CY* out = Checked(amount);
        *out = ToHost(record_value().valor(*Checked(n)));
    });
}

}  // namespace corvid::registration
