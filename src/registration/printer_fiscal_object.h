// The creatable PrinterFiscal class: one printer session behind the _PrinterFiscal dual
// interface. Each member converts its arguments, calls the session and converts back.
#pragma once

#include "registration/CorvidAPI_h.h"
#include "registration/dispatch_object.h"
#include "registration/held_reference.h"
#include "session/printer_fiscal.h"

namespace corvid::registration {

class PrinterFiscalObject : public DispatchObject<_PrinterFiscal> {
  public:
    explicit PrinterFiscalObject(const char* error_source);

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
    STDMETHODIMP get_s3(IDispatch** value) override;
    STDMETHODIMP putref_s3(IDispatch* value) override;
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

  private:
    session::PrinterFiscal session_;
    // The host's S3 record, kept as it was Set; Nothing until then.
    HeldReference<IDispatch> s3_;
};

}  // namespace corvid::registration
