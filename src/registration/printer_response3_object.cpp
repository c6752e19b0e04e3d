#include "registration/printer_response3_object.h"

#include "automation/vb_error.h"
#include "registration/host_array.h"
#include "session/process_state.h"

namespace corvid::registration {

PrinterResponse3Object::PrinterResponse3Object(const char* error_source,
                                               std::shared_ptr<Record> record)
    : RecordObject(IID__PrinterResponse3, error_source, std::move(record), &kOwnIid) {}

STDMETHODIMP PrinterResponse3Object::loadFake() {
    return Guard([&] { record_value().loadFake(); });
}
STDMETHODIMP PrinterResponse3Object::loadFromResponse(VARIANT* v) {
    return Guard([&] {
        host::TraceLog& trace = session::Process().trace;
        std::vector<std::string> fields;
        try {
            fields = TextsOf(*Checked(v));
        } catch (const automation::VbError& error) {
            // The record never raises from here: an argument it cannot read ends the
            // reading as a bad field does.
            record_value().loadFromUnreadable(error.description(), trace);
            return;
        }
        record_value().loadFromResponse(fields, trace);
    });
}
STDMETHODIMP PrinterResponse3Object::Flag(SHORT* n, SHORT* value) {
    return Guard([&] {
        SHORT* out = Checked(value);
        *out = record_value().Flag(*Checked(n));
    });
}
STDMETHODIMP PrinterResponse3Object::imagenIncluido(VARIANT_BOOL* t, BSTR* text) {
    return Guard([&] {
        const bool included = *Checked(t) != VARIANT_FALSE;
        BSTR* out = Checked(text);
        *out = ToHost(Record::imagenIncluido(included));
    });
}
STDMETHODIMP PrinterResponse3Object::toString(BSTR* text) {
    return Guard([&] {
        BSTR* out = Checked(text);
        *out = ToHost(record_value().toString());
    });
}

}  // namespace corvid::registration
