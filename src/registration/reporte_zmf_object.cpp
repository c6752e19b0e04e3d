#include "registration/reporte_zmf_object.h"

#include "registration/host_array.h"
#include "registration/printer_fiscal_object.h"
#include "registration/variant_values.h"

namespace corvid::registration {

ReporteZMFObject::ReporteZMFObject(const char* error_source, std::shared_ptr<Record> record)
    : RecordObject(IID__ReporteZMF, error_source, std::move(record)) {}

STDMETHODIMP ReporteZMFObject::get_numeroCierre(SHORT* value) {
    return Get(value, &Record::numeroCierre);
}
STDMETHODIMP ReporteZMFObject::put_numeroCierre(SHORT value) {
    return Put(value, &Record::numeroCierre);
}
STDMETHODIMP ReporteZMFObject::get_fechaCierre(DATE* value) {
    return Get(value, &Record::fechaCierre);
}
STDMETHODIMP ReporteZMFObject::put_fechaCierre(DATE value) {
    return Put(value, &Record::fechaCierre);
}
STDMETHODIMP ReporteZMFObject::get_horaCierre(DATE* value) {
    return Get(value, &Record::horaCierre);
}
STDMETHODIMP ReporteZMFObject::put_horaCierre(DATE value) {
    return Put(value, &Record::horaCierre);
}
STDMETHODIMP ReporteZMFObject::get_numeroUltimaFactura(LONG* value) {
    return Get(value, &Record::numeroUltimaFactura);
}
STDMETHODIMP ReporteZMFObject::put_numeroUltimaFactura(LONG value) {
    return Put(value, &Record::numeroUltimaFactura);
}
STDMETHODIMP ReporteZMFObject::get_fechaUltimaFactura(DATE* value) {
    return Get(value, &Record::fechaUltimaFactura);
}
STDMETHODIMP ReporteZMFObject::put_fechaUltimaFactura(DATE value) {
    return Put(value, &Record::fechaUltimaFactura);
}
STDMETHODIMP ReporteZMFObject::get_horaUltimaFactura(DATE* value) {
    return Get(value, &Record::horaUltimaFactura);
}
STDMETHODIMP ReporteZMFObject::put_horaUltimaFactura(DATE value) {
    return Put(value, &Record::horaUltimaFactura);
}
STDMETHODIMP ReporteZMFObject::get_ventasExentas(CY* value) {
    return Get(value, &Record::ventasExentas);
}
STDMETHODIMP ReporteZMFObject::put_ventasExentas(CY value) {
    return Put(value, &Record::ventasExentas);
}
STDMETHODIMP ReporteZMFObject::get_baseVG(CY* value) { return Get(value, &Record::baseVG); }
STDMETHODIMP ReporteZMFObject::put_baseVG(CY value) { return Put(value, &Record::baseVG); }
STDMETHODIMP ReporteZMFObject::get_impuestoVG(CY* value) { return Get(value, &Record::impuestoVG); }
STDMETHODIMP ReporteZMFObject::put_impuestoVG(CY value) { return Put(value, &Record::impuestoVG); }
STDMETHODIMP ReporteZMFObject::get_baseIR(CY* value) { return Get(value, &Record::baseIR); }
STDMETHODIMP ReporteZMFObject::put_baseIR(CY value) { return Put(value, &Record::baseIR); }
STDMETHODIMP ReporteZMFObject::get_impuestoIR(CY* value) { return Get(value, &Record::impuestoIR); }
STDMETHODIMP ReporteZMFObject::put_impuestoIR(CY value) { return Put(value, &Record::impuestoIR); }
STDMETHODIMP ReporteZMFObject::get_NCExentas(CY* value) { return Get(value, &Record::NCExentas); }
STDMETHODIMP ReporteZMFObject::put_NCExentas(CY value) { return Put(value, &Record::NCExentas); }
STDMETHODIMP ReporteZMFObject::get_baseNCVG(CY* value) { return Get(value, &Record::baseNCVG); }
STDMETHODIMP ReporteZMFObject::put_baseNCVG(CY value) { return Put(value, &Record::baseNCVG); }
STDMETHODIMP ReporteZMFObject::get_impuestoNCVG(CY* value) {
    return Get(value, &Record::impuestoNCVG);
}
STDMETHODIMP ReporteZMFObject::put_impuestoNCVG(CY value) {
    return Put(value, &Record::impuestoNCVG);
}
STDMETHODIMP ReporteZMFObject::get_baseNCIR(CY* value) { return Get(value, &Record::baseNCIR); }
STDMETHODIMP ReporteZMFObject::put_baseNCIR(CY value) { return Put(value, &Record::baseNCIR); }
STDMETHODIMP ReporteZMFObject::get_impuestoNCIR(CY* value) {
    return Get(value, &Record::impuestoNCIR);
}
STDMETHODIMP ReporteZMFObject::put_impuestoNCIR(CY value) {
    return Put(value, &Record::impuestoNCIR);
}

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
