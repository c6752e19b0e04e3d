// The creatable PrinterFiscal class: one printer session behind the _PrinterFiscal dual
// interface. Each member converts its arguments, calls the session and converts back.
#pragma once

#include "registration/CorvidAPI_h.h"
#include "registration/dispatch_object.h"
#include "registration/held_reference.h"
#include "registration/printer_response3_object.h"
#include "session/printer_fiscal.h"

namespace corvid::registration {

class PrinterFiscalObject : public DispatchObject<_PrinterFiscal> {
  public:
    // Answered only by this class: records that read the printer accept no other session.
    static constexpr IID kOwnIid = {
        0xaecb77c5, 0xf7cd, 0x4b63, {0x85, 0xa7, 0xa6, 0x37, 0xd4, 0x8a, 0xf9, 0x4a}};

    explicit PrinterFiscalObject(const char* error_source);

    session::PrinterFiscal& session() { return session_; }

    STDMETHODIMP get_result(BSTR* value) override;
    STDMETHODIMP put_result(BSTR value) override;
    STDMETHODIMP get_resultFlag(controlValues* value) override;
    STDMETHODIMP put_resultFlag(controlValues value) override;
    STDMETHODIMP get_pfError(pfErrors* value) override;
    STDMETHODIMP put_pfError(pfErrors value) override;
    STDMETHODIMP get_STS1(LONG* value) override;
    STDMETHODIMP put_STS1(LONG value) override;
    STDMETHODIMP get_STS2(LONG* value) override;
    STDMETHODIMP put_STS2(LONG value) override;
    STDMETHODIMP get_DescripcionError(BSTR* value) override;
    STDMETHODIMP put_DescripcionError(BSTR value) override;
    STDMETHODIMP get_SerialPrinter(BSTR* value) override;
    STDMETHODIMP put_SerialPrinter(BSTR value) override;
    STDMETHODIMP get_s3(_PrinterResponse3** value) override;
    STDMETHODIMP putref_s3(_PrinterResponse3* value) override;
    STDMETHODIMP get_f21(SHORT* value) override;
    STDMETHODIMP put_f21(SHORT value) override;
    STDMETHODIMP get_lError(SHORT* value) override;
    STDMETHODIMP get_lStatus(SHORT* value) override;

    STDMETHODIMP BuildCommandBlock(BSTR* sCommand, BSTR* block) override;
    STDMETHODIMP CalcXOr(BSTR* s, SHORT* check) override;
    STDMETHODIMP EscapeString(BSTR* s, BSTR* readable) override;
    STDMETHODIMP tipoPrinter(VariantesPF* model) override;

    STDMETHODIMP Abrir(VARIANT* portNumber) override;
    STDMETHODIMP Cerrar() override;
    STDMETHODIMP AbrirGaveta(VARIANT_BOOL* failed) override;
    STDMETHODIMP SendDirect(BSTR* sCommand) override;
    STDMETHODIMP Execute(BSTR* sCmd, SHORT* outcome) override;
    STDMETHODIMP ExecuteNoCheck(BSTR* sCmd) override;
    STDMETHODIMP SendAck() override;
    STDMETHODIMP GetStatus() override;
    STDMETHODIMP explainSTS1(VARIANT* text) override;
    STDMETHODIMP explainSTS2(VARIANT* text) override;
    STDMETHODIMP Reset(VARIANT* outcome) override;
    STDMETHODIMP NextStatusBlock(VARIANT* fields) override;
    STDMETHODIMP GetResponse(BSTR* cmd, VARIANT* fields) override;
    STDMETHODIMP GetResponseString(BSTR* cmd, VARIANT* sep, BSTR* text) override;
    STDMETHODIMP GetMultipleResponses(BSTR* cmd, VARIANT* blocks) override;
    STDMETHODIMP GetMultipleResponsesStr(BSTR* cmd, VARIANT* itemSep, VARIANT* rowSep,
                                         BSTR* text) override;
    STDMETHODIMP responseItem(SHORT* selector, VARIANT* s, VARIANT* item) override;

    // Documents (printer_fiscal_documents_object.cpp).
    STDMETHODIMP PasarItem(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto, VARIANT* idblCantidad,
                           VARIANT* ivmPorcentajeImpuesto, SHORT* outcome) override;
    STDMETHODIMP RefundItem(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto, VARIANT* idblCantidad,
                            VARIANT* ivmPorcentajeImpuesto, SHORT* outcome) override;
    STDMETHODIMP AnularItem(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto, VARIANT* idblCantidad,
                            VARIANT* ivmPorcentajeImpuesto, SHORT* outcome) override;
    STDMETHODIMP PasarLineaFactura(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto,
                                   VARIANT* idblCantidad, VARIANT* ivmPorcentajeImpuesto,
                                   SHORT* outcome) override;
    STDMETHODIMP detalleGeneral(VARIANT* tipo, VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto,
                                VARIANT* idblCantidad, VARIANT* ivmPorcentajeImpuesto,
                                VARIANT* codigo, VARIANT* outcome) override;
    STDMETHODIMP pasarLineaFacturaG(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto,
                                    VARIANT* idblCantidad, VARIANT* ivmPorcentajeImpuesto,
                                    VARIANT* codigo, SHORT* outcome) override;
    STDMETHODIMP anularLineaFacturaG(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto,
                                     VARIANT* idblCantidad, VARIANT* ivmPorcentajeImpuesto,
                                     VARIANT* codigo, SHORT* outcome) override;
    STDMETHODIMP pasarLineaNCG(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto,
                               VARIANT* idblCantidad, VARIANT* ivmPorcentajeImpuesto,
                               VARIANT* codigo, SHORT* outcome) override;
    STDMETHODIMP anularLineaNCG(VARIANT* istrDescripcion, VARIANT* ivmPrecioNeto,
                                VARIANT* idblCantidad, VARIANT* ivmPorcentajeImpuesto,
                                VARIANT* codigo, SHORT* outcome) override;
    STDMETHODIMP IndiceTasa(double* idblTasa, SHORT* index) override;
    STDMETHODIMP PasarDatosCliente(VARIANT* Nombre, VARIANT* RIF, VARIANT* Direccion,
                                   VARIANT* datosFactRel, VARIANT* SerialPrinter,
                                   VARIANT* fechaFactura, VARIANT* outcome) override;
    STDMETHODIMP PasarDatosClienteNC(VARIANT* Nombre, VARIANT* RIF, VARIANT* Direccion,
                                     VARIANT* datosFactRel, VARIANT* SerialPrinter,
                                     VARIANT* fechaFactura, VARIANT* outcome) override;
    STDMETHODIMP IniciarFactura(VARIANT* Nombre, VARIANT* RIF, VARIANT* Direccion,
                                VARIANT* outcome) override;
    STDMETHODIMP PasarDatosClientePA(VARIANT* Nombre, VARIANT* RIF, VARIANT* Direccion,
                                     BSTR datosFactRel, VARIANT* outcome) override;
    STDMETHODIMP PasarDatosClienteNCPA(VARIANT* Nombre, VARIANT* RIF, VARIANT* Direccion,
                                       VARIANT* datosFactRel, VARIANT* outcome) override;
    STDMETHODIMP SubTotal(VARIANT* doPrint, VARIANT_BOOL* failed) override;
    STDMETHODIMP PasarDescuento(VARIANT* dblPorcentaje, VARIANT_BOOL* failed) override;
    STDMETHODIMP PasarMontoDescuento(VARIANT* dMonto, VARIANT_BOOL* failed) override;
    STDMETHODIMP descuentoGeneral(VARIANT* isPorcentaje, VARIANT* isDescuento, VARIANT* valor,
                                  VARIANT* outcome) override;
    STDMETHODIMP CerrarComprobante(VARIANT* Monto, SHORT* outcome) override;
    STDMETHODIMP CerrarConMedio(VARIANT* IndiceMedio, VARIANT* Monto, SHORT* outcome) override;
    STDMETHODIMP CerrarNotaCredito(SHORT* outcome) override;
    STDMETHODIMP CerrarNotaCreditoConMedio(VARIANT* IndiceMedio, VARIANT* Monto,
                                           SHORT* outcome) override;
    STDMETHODIMP CerrarDevolucion(VARIANT* MedioPago, VARIANT* MontoDevuelto,
                                  SHORT* outcome) override;
    STDMETHODIMP CancelarTransaccion(SHORT* outcome) override;
    STDMETHODIMP PrintNoFiscal(BSTR* sText, VARIANT_BOOL* bCerrar, SHORT* outcome) override;
    STDMETHODIMP ReporteDiario(BSTR* sRango, BSTR* sTipo, SHORT* outcome) override;
    STDMETHODIMP SetHeader(SHORT* nLineNumber, BSTR* sText, SHORT* outcome) override;
    STDMETHODIMP SetFooter(SHORT* nLineNumber, BSTR* sText, SHORT* outcome) override;
    STDMETHODIMP SetDate(DATE* dtFecha, SHORT* outcome) override;
    STDMETHODIMP SetTime(DATE* dtFecha, SHORT* outcome) override;
    STDMETHODIMP Login(VARIANT* nCajero, SHORT* outcome) override;
    STDMETHODIMP Logoff(SHORT* outcome) override;
    STDMETHODIMP StartTraining(SHORT* outcome) override;
    STDMETHODIMP EndTraining(SHORT* outcome) override;
    STDMETHODIMP setFlag(VARIANT Flag, VARIANT Value, VARIANT* outcome) override;
    STDMETHODIMP reimprimirDocumentos(BSTR* cmd, VARIANT* arg1, VARIANT* arg2) override;
    STDMETHODIMP reimprimirFactura(VARIANT* numero) override;

    // Status queries (printer_fiscal_status_object.cpp).
    STDMETHODIMP numeroUltimaFactura(LONG* numero) override;
    STDMETHODIMP NumeroUltimoCierre(LONG* numero) override;
    STDMETHODIMP Response1(_PrinterResponse1** record) override;
    STDMETHODIMP StatusS1(_PrinterResponse1** record) override;
    STDMETHODIMP Response2(_PrinterResponse2** record) override;
    STDMETHODIMP StatusS2(_PrinterResponse2** record) override;
    STDMETHODIMP Response3(_PrinterResponse3** record) override;
    STDMETHODIMP Response4(_PrinterResponse4** record) override;
    STDMETHODIMP StatusS3(_PrinterResponse3** record) override;
    STDMETHODIMP CerrarZ(_ResumenZ** summary) override;
    STDMETHODIMP ResumenZ(_ResumenZ** summary) override;
    STDMETHODIMP tasa(VARIANT Index, double* rate) override;
    STDMETHODIMP getEstadoDocumento(_EstadoDocumento** record) override;
    STDMETHODIMP reportesZMF(VARIANT* desde, VARIANT* hasta,
                             ReportesZMFCollection** closures) override;
    STDMETHODIMP loadReporteZMF(VARIANT* numero, _ReporteZMF** closure) override;

  private:
    // One of the "G" item-line wrappers, called with the host's converted arguments.
    using GeneralLineSender = std::int16_t (session::PrinterFiscal::*)(std::string_view,
                                                                       automation::Currency, double,
                                                                       double, std::string_view);
    std::int16_t GeneralLine(GeneralLineSender send, VARIANT* descripcion, VARIANT* precio,
                             VARIANT* cantidad, VARIANT* impuesto, VARIANT* codigo);
    static automation::Variant ReprintLimit(const std::string& cmd, const VARIANT* limit);

    // The object over the session's S3 record (null when it has none): the one last Set
    // or read while the record is the same, so that a host's `p.s3 Is p.s3` holds.
    PrinterResponse3Object* S3Object();

    session::PrinterFiscal session_;
    HeldReference<PrinterResponse3Object> s3_;
};

// The session behind `printer`, one of this server's PrinterFiscal objects. Nothing raises
// error 91, any other object type mismatch (13).
session::PrinterFiscal& SessionOf(_PrinterFiscal* printer);

}  // namespace corvid::registration
