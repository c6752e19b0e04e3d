// The status members of PrinterFiscal: each returns the record the session built, wrapped
// for the host (a null record is Nothing), or a number.
#include "registration/checked_pointer.h"
#include "registration/closure_collection.h"
#include "registration/estado_documento_object.h"
#include "registration/printer_fiscal_object.h"
#include "registration/printer_response1_object.h"
#include "registration/printer_response2_object.h"
#include "registration/printer_response3_object.h"
#include "registration/printer_response4_object.h"
#include "registration/reporte_zmf_object.h"
#include "registration/resumen_z_object.h"
#include "registration/variant_values.h"

namespace corvid::registration {

STDMETHODIMP PrinterFiscalObject::numeroUltimaFactura(LONG* numero) {
    return Guard([&] {
        LONG* out = Checked(numero);
        *out = session_.numeroUltimaFactura();
    });
}
STDMETHODIMP PrinterFiscalObject::NumeroUltimoCierre(LONG* numero) {
    return Guard([&] {
        LONG* out = Checked(numero);
        *out = session_.NumeroUltimoCierre();
    });
}
STDMETHODIMP PrinterFiscalObject::Response1(_PrinterResponse1** record) {
    return Guard([&] {
        _PrinterResponse1** out = Checked(record);
        *out = Publish<PrinterResponse1Object>(session_.Response1());
    });
}
STDMETHODIMP PrinterFiscalObject::StatusS1(_PrinterResponse1** record) {
    return Guard([&] {
        _PrinterResponse1** out = Checked(record);
        *out = Publish<PrinterResponse1Object>(session_.StatusS1());
    });
}
STDMETHODIMP PrinterFiscalObject::Response2(_PrinterResponse2** record) {
    return Guard([&] {
        _PrinterResponse2** out = Checked(record);
        *out = Publish<PrinterResponse2Object>(session_.Response2());
    });
}
STDMETHODIMP PrinterFiscalObject::StatusS2(_PrinterResponse2** record) {
    return Guard([&] {
        _PrinterResponse2** out = Checked(record);
        *out = Publish<PrinterResponse2Object>(session_.StatusS2());
    });
}
STDMETHODIMP PrinterFiscalObject::Response3(_PrinterResponse3** record) {
    return Guard([&] {
        _PrinterResponse3** out = Checked(record);
        *out = Publish<PrinterResponse3Object>(session_.Response3());
    });
}
STDMETHODIMP PrinterFiscalObject::Response4(_PrinterResponse4** record) {
    return Guard([&] {
        _PrinterResponse4** out = Checked(record);
        *out = Publish<PrinterResponse4Object>(session_.Response4());
    });
}
STDMETHODIMP PrinterFiscalObject::StatusS3(_PrinterResponse3** record) {
    return Guard([&] {
        _PrinterResponse3** out = Checked(record);
        *out = Publish<PrinterResponse3Object>(session_.StatusS3());
    });
}
STDMETHODIMP PrinterFiscalObject::CerrarZ(_ResumenZ** summary) {
    return Guard([&] {
        _ResumenZ** out = Checked(summary);
        *out = Publish<ResumenZObject>(session_.CerrarZ());
    });
}
STDMETHODIMP PrinterFiscalObject::ResumenZ(_ResumenZ** summary) {
    return Guard([&] {
        _ResumenZ** out = Checked(summary);
        *out = Publish<ResumenZObject>(session_.ResumenZ());
    });
}
STDMETHODIMP PrinterFiscalObject::tasa(VARIANT Index, double* rate) {
    return Guard([&] {
        double* out = Checked(rate);
        *out = session_.tasa(DoubleFromVariant(Index));
    });
}
STDMETHODIMP PrinterFiscalObject::getEstadoDocumento(_EstadoDocumento** record) {
    return Guard([&] {
        _EstadoDocumento** out = Checked(record);
        *out = Publish<EstadoDocumentoObject>(session_.getEstadoDocumento());
    });
}
STDMETHODIMP PrinterFiscalObject::reportesZMF(VARIANT* desde, VARIANT* hasta,
                                              ReportesZMFCollection** closures) {
    return Guard([&] {
        ReportesZMFCollection** out = Checked(closures);
        const automation::Variant from = ValueFromVariant(*Checked(desde));
        const automation::Variant to = ValueFromVariant(*Checked(hasta));
        *out = new ClosureCollection(session_.reportesZMF(from, to));
    });
}
STDMETHODIMP PrinterFiscalObject::loadReporteZMF(VARIANT* numero, _ReporteZMF** closure) {
    return Guard([&] {
        _ReporteZMF** out = Checked(closure);
        const automation::Variant number = ValueFromVariant(*Checked(numero));
        *out = Publish<ReporteZMFObject>(session_.loadReporteZMF(number));
    });
}

}  // namespace corvid::registration
