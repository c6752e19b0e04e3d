#include "registration/printer_response1_object.h"

#include "registration/bstr_text.h"

namespace corvid::registration {

PrinterResponse1Object::PrinterResponse1Object(const char* error_source,
                                               std::shared_ptr<Record> record)
    : RecordObject(IID__PrinterResponse1, error_source, std::move(record)) {}

STDMETHODIMP PrinterResponse1Object::get_numeroCajero(SHORT* value) {
    return Get(value, &Record::numeroCajero);
}
STDMETHODIMP PrinterResponse1Object::put_numeroCajero(SHORT value) {
    return Put(value, &Record::numeroCajero);
}
STDMETHODIMP PrinterResponse1Object::get_totalVentasDiarias(CY* value) {
    return Get(value, &Record::totalVentasDiarias);
}
STDMETHODIMP PrinterResponse1Object::put_totalVentasDiarias(CY value) {
    return Put(value, &Record::totalVentasDiarias);
}
STDMETHODIMP PrinterResponse1Object::get_numeroUltimaFactura(LONG* value) {
    return Get(value, &Record::numeroUltimaFactura);
}
STDMETHODIMP PrinterResponse1Object::put_numeroUltimaFactura(LONG value) {
    return Put(value, &Record::numeroUltimaFactura);
}
STDMETHODIMP PrinterResponse1Object::get_facturasDia(LONG* value) {
    return Get(value, &Record::facturasDia);
}
STDMETHODIMP PrinterResponse1Object::put_facturasDia(LONG value) {
    return Put(value, &Record::facturasDia);
}
STDMETHODIMP PrinterResponse1Object::get_ultimoDNF(LONG* value) {
    return Get(value, &Record::ultimoDNF);
}
STDMETHODIMP PrinterResponse1Object::put_ultimoDNF(LONG value) {
    return Put(value, &Record::ultimoDNF);
}
STDMETHODIMP PrinterResponse1Object::get_ndfDia(LONG* value) { return Get(value, &Record::ndfDia); }
STDMETHODIMP PrinterResponse1Object::put_ndfDia(LONG value) { return Put(value, &Record::ndfDia); }
STDMETHODIMP PrinterResponse1Object::get_nCierres(LONG* value) {
    return Get(value, &Record::nCierres);
}
STDMETHODIMP PrinterResponse1Object::put_nCierres(LONG value) {
    return Put(value, &Record::nCierres);
}
STDMETHODIMP PrinterResponse1Object::get_contadorReportes(LONG* value) {
    return Get(value, &Record::contadorReportes);
}
STDMETHODIMP PrinterResponse1Object::put_contadorReportes(LONG value) {
    return Put(value, &Record::contadorReportes);
}
STDMETHODIMP PrinterResponse1Object::get_RIF(BSTR* value) { return Get(value, &Record::RIF); }
STDMETHODIMP PrinterResponse1Object::put_RIF(BSTR value) { return Put(value, &Record::RIF); }
STDMETHODIMP PrinterResponse1Object::get_Serial(BSTR* value) { return Get(value, &Record::Serial); }
STDMETHODIMP PrinterResponse1Object::put_Serial(BSTR value) { return Put(value, &Record::Serial); }
STDMETHODIMP PrinterResponse1Object::get_Fecha(DATE* value) { return Get(value, &Record::Fecha); }
STDMETHODIMP PrinterResponse1Object::put_Fecha(DATE value) { return Put(value, &Record::Fecha); }
STDMETHODIMP PrinterResponse1Object::get_numeroUltimaND(LONG* value) {
    return Get(value, &Record::numeroUltimaND);
}
STDMETHODIMP PrinterResponse1Object::put_numeroUltimaND(LONG value) {
    return Put(value, &Record::numeroUltimaND);
}
STDMETHODIMP PrinterResponse1Object::get_notasDebitoDia(SHORT* value) {
    return Get(value, &Record::notasDebitoDia);
}
STDMETHODIMP PrinterResponse1Object::put_notasDebitoDia(SHORT value) {
    return Put(value, &Record::notasDebitoDia);
}
STDMETHODIMP PrinterResponse1Object::get_numeroUltimaNC(LONG* value) {
    return Get(value, &Record::numeroUltimaNC);
}
STDMETHODIMP PrinterResponse1Object::put_numeroUltimaNC(LONG value) {
    return Put(value, &Record::numeroUltimaNC);
}
STDMETHODIMP PrinterResponse1Object::get_notasCreditoDia(SHORT* value) {
    return Get(value, &Record::notasCreditoDia);
}
STDMETHODIMP PrinterResponse1Object::put_notasCreditoDia(SHORT value) {
    return Put(value, &Record::notasCreditoDia);
}
STDMETHODIMP PrinterResponse1Object::get_isFake(VARIANT_BOOL* value) {
    return Get(value, &Record::isFake);
}
STDMETHODIMP PrinterResponse1Object::put_isFake(VARIANT_BOOL value) {
    return Put(value, &Record::isFake);
}

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
