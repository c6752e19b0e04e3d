#include "registration/printer_response2_object.h"

#include "registration/host_array.h"

namespace corvid::registration {

PrinterResponse2Object::PrinterResponse2Object(const char* error_source,
                                               std::shared_ptr<Record> record)
    : RecordObject(IID__PrinterResponse2, error_source, std::move(record)) {}

STDMETHODIMP PrinterResponse2Object::get_subTotalVenta(CY* value) {
    return Get(value, &Record::subTotalVenta);
}
STDMETHODIMP PrinterResponse2Object::put_subTotalVenta(CY value) {
    return Put(value, &Record::subTotalVenta);
}
STDMETHODIMP PrinterResponse2Object::get_subTotalImpuestos(CY* value) {
    return Get(value, &Record::subTotalImpuestos);
}
STDMETHODIMP PrinterResponse2Object::put_subTotalImpuestos(CY value) {
    return Put(value, &Record::subTotalImpuestos);
}
STDMETHODIMP PrinterResponse2Object::get_cantidadItems(double* value) {
    return Get(value, &Record::cantidadItems);
}
STDMETHODIMP PrinterResponse2Object::put_cantidadItems(double value) {
    return Put(value, &Record::cantidadItems);
}
STDMETHODIMP PrinterResponse2Object::get_total(CY* value) { return Get(value, &Record::total); }
STDMETHODIMP PrinterResponse2Object::put_total(CY value) { return Put(value, &Record::total); }
STDMETHODIMP PrinterResponse2Object::get_cantidadPagos(SHORT* value) {
    return Get(value, &Record::cantidadPagos);
}
STDMETHODIMP PrinterResponse2Object::put_cantidadPagos(SHORT value) {
    return Put(value, &Record::cantidadPagos);
}
STDMETHODIMP PrinterResponse2Object::get_tipoTrans(SHORT* value) {
    return Get(value, &Record::tipoTrans);
}
STDMETHODIMP PrinterResponse2Object::put_tipoTrans(SHORT value) {
    return Put(value, &Record::tipoTrans);
}

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
