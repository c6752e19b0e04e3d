#include "registration/printer_response3_object.h"

#include "automation/vb_error.h"
#include "registration/host_array.h"
#include "session/process_state.h"

namespace corvid::registration {

PrinterResponse3Object::PrinterResponse3Object(const char* error_source,
                                               std::shared_ptr<Record> record)
    : RecordObject(IID__PrinterResponse3, error_source, std::move(record), &kOwnIid) {}

STDMETHODIMP PrinterResponse3Object::get_TipoTasa1(VARIANT_BOOL* value) {
    return Get(value, &Record::TipoTasa1);
}
STDMETHODIMP PrinterResponse3Object::put_TipoTasa1(VARIANT_BOOL value) {
    return Put(value, &Record::TipoTasa1);
}
STDMETHODIMP PrinterResponse3Object::get_ValorTasa1(double* value) {
    return Get(value, &Record::ValorTasa1);
}
STDMETHODIMP PrinterResponse3Object::put_ValorTasa1(double value) {
    return Put(value, &Record::ValorTasa1);
}
STDMETHODIMP PrinterResponse3Object::get_TipoTasa2(VARIANT_BOOL* value) {
    return Get(value, &Record::TipoTasa2);
}
STDMETHODIMP PrinterResponse3Object::put_TipoTasa2(VARIANT_BOOL value) {
    return Put(value, &Record::TipoTasa2);
}
STDMETHODIMP PrinterResponse3Object::get_ValorTasa2(double* value) {
    return Get(value, &Record::ValorTasa2);
}
STDMETHODIMP PrinterResponse3Object::put_ValorTasa2(double value) {
    return Put(value, &Record::ValorTasa2);
}
STDMETHODIMP PrinterResponse3Object::get_TipoTasa3(VARIANT_BOOL* value) {
    return Get(value, &Record::TipoTasa3);
}
STDMETHODIMP PrinterResponse3Object::put_TipoTasa3(VARIANT_BOOL value) {
    return Put(value, &Record::TipoTasa3);
}
STDMETHODIMP PrinterResponse3Object::get_ValorTasa3(double* value) {
    return Get(value, &Record::ValorTasa3);
}
STDMETHODIMP PrinterResponse3Object::put_ValorTasa3(double value) {
    return Put(value, &Record::ValorTasa3);
}
STDMETHODIMP PrinterResponse3Object::get_nFlags(SHORT* value) {
    return Get(value, &Record::nFlags);
}
STDMETHODIMP PrinterResponse3Object::put_nFlags(SHORT value) { return Put(value, &Record::nFlags); }
STDMETHODIMP PrinterResponse3Object::get_isFake(VARIANT_BOOL* value) {
    return Get(value, &Record::isFake);
}
STDMETHODIMP PrinterResponse3Object::put_isFake(VARIANT_BOOL value) {
    return Put(value, &Record::isFake);
}
STDMETHODIMP PrinterResponse3Object::get_TasaIGTF(double* value) {
    return Get(value, &Record::TasaIGTF);
}
STDMETHODIMP PrinterResponse3Object::put_TasaIGTF(double value) {
    return Put(value, &Record::TasaIGTF);
}

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
