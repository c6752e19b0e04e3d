#include "registration/resumen_z_object.h"

#include "registration/printer_fiscal_object.h"
#include "session/process_state.h"

namespace corvid::registration {

ResumenZObject::ResumenZObject(const char* error_source, std::shared_ptr<Record> record)
    : RecordObject(IID__ResumenZ, error_source, std::move(record)) {}

STDMETHODIMP ResumenZObject::get_numeroUltimoZ(SHORT* value) {
    return Get(value, &Record::numeroUltimoZ);
}
STDMETHODIMP ResumenZObject::put_numeroUltimoZ(SHORT value) {
    return Put(value, &Record::numeroUltimoZ);
}
STDMETHODIMP ResumenZObject::get_fechaUltimoReporte(DATE* value) {
    return Get(value, &Record::fechaUltimoReporte);
}
STDMETHODIMP ResumenZObject::put_fechaUltimoReporte(DATE value) {
    return Put(value, &Record::fechaUltimoReporte);
}
STDMETHODIMP ResumenZObject::get_numeroUltimaFactura(LONG* value) {
    return Get(value, &Record::numeroUltimaFactura);
}
STDMETHODIMP ResumenZObject::put_numeroUltimaFactura(LONG value) {
    return Put(value, &Record::numeroUltimaFactura);
}
STDMETHODIMP ResumenZObject::get_fechaUltimaFactura(DATE* value) {
    return Get(value, &Record::fechaUltimaFactura);
}
STDMETHODIMP ResumenZObject::put_fechaUltimaFactura(DATE value) {
    return Put(value, &Record::fechaUltimaFactura);
}
STDMETHODIMP ResumenZObject::get_ultimaNC(LONG* value) { return Get(value, &Record::ultimaNC); }
STDMETHODIMP ResumenZObject::put_ultimaNC(LONG value) { return Put(value, &Record::ultimaNC); }
STDMETHODIMP ResumenZObject::get_ultimaND(LONG* value) { return Get(value, &Record::ultimaND); }
STDMETHODIMP ResumenZObject::put_ultimaND(LONG value) { return Put(value, &Record::ultimaND); }
STDMETHODIMP ResumenZObject::get_ultimoDNF(LONG* value) { return Get(value, &Record::ultimoDNF); }
STDMETHODIMP ResumenZObject::put_ultimoDNF(LONG value) { return Put(value, &Record::ultimoDNF); }
STDMETHODIMP ResumenZObject::get_ventasExentas(CY* value) {
    return Get(value, &Record::ventasExentas);
}
STDMETHODIMP ResumenZObject::put_ventasExentas(CY value) {
    return Put(value, &Record::ventasExentas);
}
STDMETHODIMP ResumenZObject::get_baseVG(CY* value) { return Get(value, &Record::baseVG); }
STDMETHODIMP ResumenZObject::put_baseVG(CY value) { return Put(value, &Record::baseVG); }
STDMETHODIMP ResumenZObject::get_impuestoVG(CY* value) { return Get(value, &Record::impuestoVG); }
STDMETHODIMP ResumenZObject::put_impuestoVG(CY value) { return Put(value, &Record::impuestoVG); }
STDMETHODIMP ResumenZObject::get_baseIR(CY* value) { return Get(value, &Record::baseIR); }
STDMETHODIMP ResumenZObject::put_baseIR(CY value) { return Put(value, &Record::baseIR); }
STDMETHODIMP ResumenZObject::get_impuestoIR(CY* value) { return Get(value, &Record::impuestoIR); }
STDMETHODIMP ResumenZObject::put_impuestoIR(CY value) { return Put(value, &Record::impuestoIR); }
STDMETHODIMP ResumenZObject::get_baseIA(CY* value) { return Get(value, &Record::baseIA); }
STDMETHODIMP ResumenZObject::put_baseIA(CY value) { return Put(value, &Record::baseIA); }
STDMETHODIMP ResumenZObject::get_impuestoIA(CY* value) { return Get(value, &Record::impuestoIA); }
STDMETHODIMP ResumenZObject::put_impuestoIA(CY value) { return Put(value, &Record::impuestoIA); }
STDMETHODIMP ResumenZObject::get_exentoND(CY* value) { return Get(value, &Record::exentoND); }
STDMETHODIMP ResumenZObject::put_exentoND(CY value) { return Put(value, &Record::exentoND); }
STDMETHODIMP ResumenZObject::get_baseVGND(CY* value) { return Get(value, &Record::baseVGND); }
STDMETHODIMP ResumenZObject::put_baseVGND(CY value) { return Put(value, &Record::baseVGND); }
STDMETHODIMP ResumenZObject::get_impuestoVGND(CY* value) {
    return Get(value, &Record::impuestoVGND);
}
STDMETHODIMP ResumenZObject::put_impuestoVGND(CY value) {
    return Put(value, &Record::impuestoVGND);
}
STDMETHODIMP ResumenZObject::get_baseIRND(CY* value) { return Get(value, &Record::baseIRND); }
STDMETHODIMP ResumenZObject::put_baseIRND(CY value) { return Put(value, &Record::baseIRND); }
STDMETHODIMP ResumenZObject::get_impuestoIRND(CY* value) {
    return Get(value, &Record::impuestoIRND);
}
STDMETHODIMP ResumenZObject::put_impuestoIRND(CY value) {
    return Put(value, &Record::impuestoIRND);
}
STDMETHODIMP ResumenZObject::get_baseIAND(CY* value) { return Get(value, &Record::baseIAND); }
STDMETHODIMP ResumenZObject::put_baseIAND(CY value) { return Put(value, &Record::baseIAND); }
STDMETHODIMP ResumenZObject::get_impuestoIAND(CY* value) {
    return Get(value, &Record::impuestoIAND);
}
STDMETHODIMP ResumenZObject::put_impuestoIAND(CY value) {
    return Put(value, &Record::impuestoIAND);
}
STDMETHODIMP ResumenZObject::get_exentoNC(CY* value) { return Get(value, &Record::exentoNC); }
STDMETHODIMP ResumenZObject::put_exentoNC(CY value) { return Put(value, &Record::exentoNC); }
STDMETHODIMP ResumenZObject::get_baseVGNC(CY* value) { return Get(value, &Record::baseVGNC); }
STDMETHODIMP ResumenZObject::put_baseVGNC(CY value) { return Put(value, &Record::baseVGNC); }
STDMETHODIMP ResumenZObject::get_impuestoVGNC(CY* value) {
    return Get(value, &Record::impuestoVGNC);
}
STDMETHODIMP ResumenZObject::put_impuestoVGNC(CY value) {
    return Put(value, &Record::impuestoVGNC);
}
STDMETHODIMP ResumenZObject::get_baseIRNC(CY* value) { return Get(value, &Record::baseIRNC); }
STDMETHODIMP ResumenZObject::put_baseIRNC(CY value) { return Put(value, &Record::baseIRNC); }
STDMETHODIMP ResumenZObject::get_impuestoIRNC(CY* value) {
    return Get(value, &Record::impuestoIRNC);
}
STDMETHODIMP ResumenZObject::put_impuestoIRNC(CY value) {
    return Put(value, &Record::impuestoIRNC);
}
STDMETHODIMP ResumenZObject::get_baseIANC(CY* value) { return Get(value, &Record::baseIANC); }
STDMETHODIMP ResumenZObject::put_baseIANC(CY value) { return Put(value, &Record::baseIANC); }
STDMETHODIMP ResumenZObject::get_impuestoIANC(CY* value) {
    return Get(value, &Record::impuestoIANC);
}
STDMETHODIMP ResumenZObject::put_impuestoIANC(CY value) {
    return Put(value, &Record::impuestoIANC);
}
STDMETHODIMP ResumenZObject::get_percibidoVentas(CY* value) {
    return Get(value, &Record::percibidoVentas);
}
STDMETHODIMP ResumenZObject::put_percibidoVentas(CY value) {
    return Put(value, &Record::percibidoVentas);
}
STDMETHODIMP ResumenZObject::get_percibidoND(CY* value) { return Get(value, &Record::percibidoND); }
STDMETHODIMP ResumenZObject::put_percibidoND(CY value) { return Put(value, &Record::percibidoND); }
STDMETHODIMP ResumenZObject::get_percibidoNC(CY* value) { return Get(value, &Record::percibidoNC); }
STDMETHODIMP ResumenZObject::put_percibidoNC(CY value) { return Put(value, &Record::percibidoNC); }
STDMETHODIMP ResumenZObject::get_BaseIGTF(CY* value) { return Get(value, &Record::BaseIGTF); }
STDMETHODIMP ResumenZObject::put_BaseIGTF(CY value) { return Put(value, &Record::BaseIGTF); }
STDMETHODIMP ResumenZObject::get_ValorIGTF(CY* value) { return Get(value, &Record::ValorIGTF); }
STDMETHODIMP ResumenZObject::put_ValorIGTF(CY value) { return Put(value, &Record::ValorIGTF); }
STDMETHODIMP ResumenZObject::get_BaseIGTFND(CY* value) { return Get(value, &Record::BaseIGTFND); }
STDMETHODIMP ResumenZObject::put_BaseIGTFND(CY value) { return Put(value, &Record::BaseIGTFND); }
STDMETHODIMP ResumenZObject::get_IGTFND(CY* value) { return Get(value, &Record::IGTFND); }
STDMETHODIMP ResumenZObject::put_IGTFND(CY value) { return Put(value, &Record::IGTFND); }
STDMETHODIMP ResumenZObject::get_BaseIGTFNC(CY* value) { return Get(value, &Record::BaseIGTFNC); }
STDMETHODIMP ResumenZObject::put_BaseIGTFNC(CY value) { return Put(value, &Record::BaseIGTFNC); }
STDMETHODIMP ResumenZObject::get_IGTFNC(CY* value) { return Get(value, &Record::IGTFNC); }
STDMETHODIMP ResumenZObject::put_IGTFNC(CY value) { return Put(value, &Record::IGTFNC); }

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
