// The document members of PrinterFiscal: every argument is converted as VB converts it
// (a price that is not a number raises type mismatch) before the session sends anything.
#include "registration/bstr_text.h"
#include "registration/checked_pointer.h"
#include "registration/printer_fiscal_object.h"
#include "registration/variant_values.h"

namespace corvid::registration {
namespace {

using automation::Currency;

std::string Text(const VARIANT* argument) { return TextFromVariant(*Checked(argument)); }
std::string Text(BSTR* argument) { return BytesFromBstr(*Checked(argument)); }
Currency Amount(const VARIANT* argument) { return CurrencyFromVariant(*Checked(argument)); }
double Number(const VARIANT* argument) { return DoubleFromVariant(*Checked(argument)); }

// An item line's four arguments, converted in the order the host passed them.
struct ItemArguments {
    std::string descripcion;
    Currency precio;
    double cantidad;
    double impuesto;
};

ItemArguments Item(VARIANT* descripcion, VARIANT* precio, VARIANT* cantidad, VARIANT* impuesto) {
    return {Text(descripcion), Amount(precio), Number(cantidad), Number(impuesto)};
}

std::string CodeOrEmpty(const VARIANT* codigo) { return IsMissing(codigo) ? "" : Text(codigo); }

std::optional<std::string> OptionalText(const VARIANT* argument) {
    if (IsMissing(argument)) return std::nullopt;
    return Text(argument);
}

void SetLong(VARIANT* result, std::int32_t value) {
    VariantInit(result);
    result->vt = VT_I4;
    result->lVal = value;
}

VARIANT_BOOL Bool(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace

STDMETHODIMP PrinterFiscalObject::PasarItem(VARIANT* d, VARIANT* p, VARIANT* c, VARIANT* i,
                                            SHORT* outcome) {
    return Guard([&] {
        const ItemArguments a = Item(d, p, c, i);
        *Checked(outcome) = session_.PasarItem(a.descripcion, a.precio, a.cantidad, a.impuesto);
    });
}
STDMETHODIMP PrinterFiscalObject::RefundItem(VARIANT* d, VARIANT* p, VARIANT* c, VARIANT* i,
                                             SHORT* outcome) {
    return Guard([&] {
        const ItemArguments a = Item(d, p, c, i);
        *Checked(outcome) = session_.RefundItem(a.descripcion, a.precio, a.cantidad, a.impuesto);
    });
}
STDMETHODIMP PrinterFiscalObject::AnularItem(VARIANT* d, VARIANT* p, VARIANT* c, VARIANT* i,
                                             SHORT* outcome) {
    return Guard([&] {
        const ItemArguments a = Item(d, p, c, i);
        *Checked(outcome) = session_.AnularItem(a.descripcion, a.precio, a.cantidad, a.impuesto);
    });
}
STDMETHODIMP PrinterFiscalObject::PasarLineaFactura(VARIANT* d, VARIANT* p, VARIANT* c, VARIANT* i,
                                                    SHORT* outcome) {
    return Guard([&] {
        const ItemArguments a = Item(d, p, c, i);
        *Checked(outcome) =
            session_.PasarLineaFactura(a.descripcion, a.precio, a.cantidad, a.impuesto);
    });
}

std::int16_t PrinterFiscalObject::GeneralLine(GeneralLineSender send, VARIANT* d, VARIANT* p,
                                              VARIANT* c, VARIANT* i, VARIANT* codigo) {
    const ItemArguments a = Item(d, p, c, i);
    return (session_.*send)(a.descripcion, a.precio, a.cantidad, a.impuesto, CodeOrEmpty(codigo));
}

STDMETHODIMP PrinterFiscalObject::detalleGeneral(VARIANT* tipo, VARIANT* d, VARIANT* p, VARIANT* c,
                                                 VARIANT* i, VARIANT* codigo, VARIANT* outcome) {
    return Guard([&] {
        const std::string kind = Text(tipo);
        const ItemArguments a = Item(d, p, c, i);
        SetShort(Checked(outcome),
                 session_.detalleGeneral(kind, a.descripcion, a.precio, a.cantidad, a.impuesto,
                                         CodeOrEmpty(codigo)));
    });
}
STDMETHODIMP PrinterFiscalObject::pasarLineaFacturaG(VARIANT* d, VARIANT* p, VARIANT* c, VARIANT* i,
                                                     VARIANT* codigo, SHORT* outcome) {
    return Guard([&] {
        *Checked(outcome) =
            GeneralLine(&session::PrinterFiscal::pasarLineaFacturaG, d, p, c, i, codigo);
    });
}
STDMETHODIMP PrinterFiscalObject::anularLineaFacturaG(VARIANT* d, VARIANT* p, VARIANT* c,
                                                      VARIANT* i, VARIANT* codigo, SHORT* outcome) {
    return Guard([&] {
        *Checked(outcome) =
            GeneralLine(&session::PrinterFiscal::anularLineaFacturaG, d, p, c, i, codigo);
    });
}
STDMETHODIMP PrinterFiscalObject::pasarLineaNCG(VARIANT* d, VARIANT* p, VARIANT* c, VARIANT* i,
                                                VARIANT* codigo, SHORT* outcome) {
    return Guard([&] {
        *Checked(outcome) = GeneralLine(&session::PrinterFiscal::pasarLineaNCG, d, p, c, i, codigo);
    });
}
STDMETHODIMP PrinterFiscalObject::anularLineaNCG(VARIANT* d, VARIANT* p, VARIANT* c, VARIANT* i,
                                                 VARIANT* codigo, SHORT* outcome) {
    return Guard([&] {
        *Checked(outcome) =
            GeneralLine(&session::PrinterFiscal::anularLineaNCG, d, p, c, i, codigo);
    });
}
STDMETHODIMP PrinterFiscalObject::IndiceTasa(double* idblTasa, SHORT* index) {
    return Guard([&] { *Checked(index) = session_.IndiceTasa(*Checked(idblTasa)); });
}

STDMETHODIMP PrinterFiscalObject::PasarDatosCliente(VARIANT* nombre, VARIANT* rif,
                                                    VARIANT* direccion, VARIANT* datosFactRel,
                                                    VARIANT* serial, VARIANT* fecha,
                                                    VARIANT* outcome) {
    return Guard([&] {
        const std::string n = Text(nombre), r = Text(rif), a = Text(direccion);
        auto reference = OptionalText(datosFactRel);
        auto printer = OptionalText(serial);
        std::optional<automation::Variant> date;
        if (!IsMissing(fecha)) date = automation::Date(DateFromVariant(*fecha));
        SetLong(Checked(outcome), session_.PasarDatosCliente(n, r, a, std::move(reference),
                                                             std::move(printer), std::move(date)));
    });
}
STDMETHODIMP PrinterFiscalObject::PasarDatosClienteNC(VARIANT* nombre, VARIANT* rif,
                                                      VARIANT* direccion, VARIANT* datosFactRel,
                                                      VARIANT* serial, VARIANT* fecha,
                                                      VARIANT* outcome) {
    return Guard([&] {
        const std::string n = Text(nombre), r = Text(rif), a = Text(direccion);
        const std::string reference = Text(datosFactRel), printer = Text(serial);
        const automation::Variant date = DateFromVariant(*Checked(fecha));
        SetLong(Checked(outcome), session_.PasarDatosClienteNC(n, r, a, reference, printer, date));
    });
}
STDMETHODIMP PrinterFiscalObject::IniciarFactura(VARIANT* nombre, VARIANT* rif, VARIANT* direccion,
                                                 VARIANT* outcome) {
    return Guard([&] {
        const std::string n = Text(nombre), r = Text(rif), a = Text(direccion);
        SetLong(Checked(outcome), session_.IniciarFactura(n, r, a));
    });
}
STDMETHODIMP PrinterFiscalObject::PasarDatosClientePA(VARIANT* nombre, VARIANT* rif,
                                                      VARIANT* direccion, BSTR datosFactRel,
                                                      VARIANT* outcome) {
    return Guard([&] {
        const std::string n = Text(nombre), r = Text(rif), a = Text(direccion);
        const std::string reference = BytesFromBstr(datosFactRel);
        SetLong(Checked(outcome), session_.PasarDatosClientePA(n, r, a, reference));
    });
}
STDMETHODIMP PrinterFiscalObject::PasarDatosClienteNCPA(VARIANT* nombre, VARIANT* rif,
                                                        VARIANT* direccion, VARIANT* datosFactRel,
                                                        VARIANT* outcome) {
    return Guard([&] {
        const std::string n = Text(nombre), r = Text(rif), a = Text(direccion);
        const std::string reference = Text(datosFactRel);
        SetLong(Checked(outcome), session_.PasarDatosClienteNCPA(n, r, a, reference));
    });
}

STDMETHODIMP PrinterFiscalObject::SubTotal(VARIANT* doPrint, VARIANT_BOOL* failed) {
    return Guard([&] {
        // Missing counts as True; a Null as False.
        bool print = true;
        if (!IsMissing(doPrint)) print = !IsNull(*doPrint) && BoolFromVariant(*doPrint);
        *Checked(failed) = Bool(session_.SubTotal(print));
    });
}
STDMETHODIMP PrinterFiscalObject::PasarDescuento(VARIANT* porcentaje, VARIANT_BOOL* failed) {
    return Guard([&] { *Checked(failed) = Bool(session_.PasarDescuento(Number(porcentaje))); });
}
STDMETHODIMP PrinterFiscalObject::PasarMontoDescuento(VARIANT* monto, VARIANT_BOOL* failed) {
    return Guard([&] { *Checked(failed) = Bool(session_.PasarMontoDescuento(Amount(monto))); });
}
STDMETHODIMP PrinterFiscalObject::descuentoGeneral(VARIANT* isPorcentaje, VARIANT* isDescuento,
                                                   VARIANT* valor, VARIANT* outcome) {
    return Guard([&] {
        const bool percent = BoolFromVariant(*Checked(isPorcentaje));
        const bool discount = BoolFromVariant(*Checked(isDescuento));
        const double value = Number(valor);
        SetShort(Checked(outcome), session_.descuentoGeneral(percent, discount, value));
    });
}
STDMETHODIMP PrinterFiscalObject::CerrarComprobante(VARIANT* monto, SHORT* outcome) {
    return Guard([&] {
        const Currency amount = IsMissing(monto) ? Currency{} : Amount(monto);
        *Checked(outcome) = session_.CerrarComprobante(amount);
    });
}
STDMETHODIMP PrinterFiscalObject::CerrarConMedio(VARIANT* indice, VARIANT* monto, SHORT* outcome) {
    return Guard([&] {
        const double means = Number(indice);
        *Checked(outcome) = session_.CerrarConMedio(means, Amount(monto));
    });
}
STDMETHODIMP PrinterFiscalObject::CerrarNotaCredito(SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.CerrarNotaCredito(); });
}
STDMETHODIMP PrinterFiscalObject::CerrarNotaCreditoConMedio(VARIANT* indice, VARIANT* monto,
                                                            SHORT* outcome) {
    return Guard([&] {
        const double means = Number(indice);
        *Checked(outcome) = session_.CerrarNotaCreditoConMedio(means, Amount(monto));
    });
}
STDMETHODIMP PrinterFiscalObject::CerrarDevolucion(VARIANT* medio, VARIANT* monto, SHORT* outcome) {
    return Guard([&] {
        const double means = Number(medio);
        *Checked(outcome) = session_.CerrarDevolucion(means, Amount(monto));
    });
}
STDMETHODIMP PrinterFiscalObject::CancelarTransaccion(SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.CancelarTransaccion(); });
}

STDMETHODIMP PrinterFiscalObject::PrintNoFiscal(BSTR* sText, VARIANT_BOOL* bCerrar,
                                                SHORT* outcome) {
    return Guard([&] {
        *Checked(outcome) = session_.PrintNoFiscal(Text(sText), *Checked(bCerrar) != VARIANT_FALSE);
    });
}
STDMETHODIMP PrinterFiscalObject::ReporteDiario(BSTR* sRango, BSTR* sTipo, SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.ReporteDiario(Text(sRango), Text(sTipo)); });
}
STDMETHODIMP PrinterFiscalObject::SetHeader(SHORT* nLineNumber, BSTR* sText, SHORT* outcome) {
    return Guard([&] {
        const automation::Variant line = std::int16_t{*Checked(nLineNumber)};
        *Checked(outcome) = session_.SetHeader(line, Text(sText));
    });
}
STDMETHODIMP PrinterFiscalObject::SetFooter(SHORT* nLineNumber, BSTR* sText, SHORT* outcome) {
    return Guard(
        [&] { *Checked(outcome) = session_.SetFooter(*Checked(nLineNumber), Text(sText)); });
}
STDMETHODIMP PrinterFiscalObject::SetDate(DATE* dtFecha, SHORT* outcome) {
    return Guard(
        [&] { *Checked(outcome) = session_.SetDate(automation::Date{*Checked(dtFecha)}); });
}
STDMETHODIMP PrinterFiscalObject::SetTime(DATE* dtFecha, SHORT* outcome) {
    return Guard(
        [&] { *Checked(outcome) = session_.SetTime(automation::Date{*Checked(dtFecha)}); });
}
STDMETHODIMP PrinterFiscalObject::Login(VARIANT* nCajero, SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.Login(Number(nCajero)); });
}
STDMETHODIMP PrinterFiscalObject::Logoff(SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.Logoff(); });
}
STDMETHODIMP PrinterFiscalObject::StartTraining(SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.StartTraining(); });
}
STDMETHODIMP PrinterFiscalObject::EndTraining(SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.EndTraining(); });
}
STDMETHODIMP PrinterFiscalObject::setFlag(VARIANT Flag, VARIANT Value, VARIANT* outcome) {
    return Guard([&] {
        const double flag = Number(&Flag), value = Number(&Value);
        SetShort(Checked(outcome), session_.setFlag(flag, value));
    });
}

// Dates for a lowercase command letter, document numbers otherwise.
automation::Variant PrinterFiscalObject::ReprintLimit(const std::string& cmd,
                                                      const VARIANT* limit) {
    if (cmd >= "a" && cmd <= "z") return automation::Date(DateFromVariant(*Checked(limit)));
    return Number(limit);
}

STDMETHODIMP PrinterFiscalObject::reimprimirDocumentos(BSTR* cmd, VARIANT* arg1, VARIANT* arg2) {
    return Guard([&] {
        const std::string letter = Text(cmd);
        const automation::Variant from = ReprintLimit(letter, arg1);
        session_.reimprimirDocumentos(letter, from, ReprintLimit(letter, arg2));
    });
}
STDMETHODIMP PrinterFiscalObject::reimprimirFactura(VARIANT* numero) {
    return Guard([&] { session_.reimprimirFactura(Number(numero)); });
}

}  // namespace corvid::registration
