#include "registration/printer_fiscal_object.h"

#include "automation/vb_error.h"
#include "registration/bstr_text.h"
#include "registration/checked_pointer.h"
#include "registration/host_array.h"
#include "registration/variant_values.h"

namespace corvid::registration {
namespace {

std::string Text(BSTR* argument) { return BytesFromBstr(*Checked(argument)); }

// An optional separator: the default when the host left it out, else its text.
std::string SeparatorOr(const VARIANT* argument, std::string fallback) {
    return IsMissing(argument) ? fallback : TextFromVariant(*argument);
}

}  // namespace

PrinterFiscalObject::PrinterFiscalObject(const char* error_source)
    : DispatchObject(IID__PrinterFiscal, error_source, &kOwnIid) {}

session::PrinterFiscal& SessionOf(_PrinterFiscal* printer) {
    if (printer == nullptr) {
        throw automation::VbError(91, {}, "Object variable or With block variable not set");
    }
    PrinterFiscalObject* object = OwnObject<PrinterFiscalObject>(printer);
    if (object == nullptr) {
        throw automation::VbError::Standard(automation::vb_errors::kTypeMismatch);
    }
    return object->session();
}

STDMETHODIMP PrinterFiscalObject::get_result(BSTR* value) {
    return Guard([&] { *Checked(value) = BstrFromBytes(session_.outcome().result); });
}
STDMETHODIMP PrinterFiscalObject::put_result(BSTR value) {
    return Guard([&] { session_.outcome().result = BytesFromBstr(value); });
}
STDMETHODIMP PrinterFiscalObject::get_resultFlag(controlValues* value) {
    return Guard(
        [&] { *Checked(value) = static_cast<controlValues>(session_.outcome().resultFlag); });
}
STDMETHODIMP PrinterFiscalObject::put_resultFlag(controlValues value) {
    return Guard([&] { session_.outcome().resultFlag = value; });
}
STDMETHODIMP PrinterFiscalObject::get_pfError(pfErrors* value) {
    return Guard([&] { *Checked(value) = static_cast<pfErrors>(session_.outcome().pfError); });
}
STDMETHODIMP PrinterFiscalObject::put_pfError(pfErrors value) {
    return Guard([&] { session_.outcome().pfError = value; });
}
STDMETHODIMP PrinterFiscalObject::get_STS1(LONG* value) {
    return Guard([&] { *Checked(value) = session_.outcome().STS1; });
}
STDMETHODIMP PrinterFiscalObject::put_STS1(LONG value) {
    return Guard([&] { session_.outcome().STS1 = value; });
}
STDMETHODIMP PrinterFiscalObject::get_STS2(LONG* value) {
    return Guard([&] { *Checked(value) = session_.outcome().STS2; });
}
STDMETHODIMP PrinterFiscalObject::put_STS2(LONG value) {
    return Guard([&] { session_.outcome().STS2 = value; });
}
STDMETHODIMP PrinterFiscalObject::get_DescripcionError(BSTR* value) {
    return Guard([&] { *Checked(value) = BstrFromBytes(session_.outcome().DescripcionError); });
}
STDMETHODIMP PrinterFiscalObject::put_DescripcionError(BSTR value) {
    return Guard([&] { session_.outcome().DescripcionError = BytesFromBstr(value); });
}
STDMETHODIMP PrinterFiscalObject::get_SerialPrinter(BSTR* value) {
    return Guard([&] { *Checked(value) = BstrFromBytes(session_.SerialPrinter()); });
}
STDMETHODIMP PrinterFiscalObject::put_SerialPrinter(BSTR value) {
    return Guard([&] { session_.SetSerialPrinter(BytesFromBstr(value)); });
}
PrinterResponse3Object* PrinterFiscalObject::S3Object() {
    const std::shared_ptr<records::PrinterResponse3> record = session_.s3();
    PrinterResponse3Object* held = s3_.get();
    if (record == nullptr) {
        s3_.Reset(nullptr);
    } else if (held == nullptr || held->record() != record) {
        PrinterResponse3Object* fresh = Publish<PrinterResponse3Object>(record);
        s3_.Reset(fresh);
        fresh->Release();
    }
    return s3_.get();
}
STDMETHODIMP PrinterFiscalObject::get_s3(_PrinterResponse3** value) {
    return Guard([&] {
        _PrinterResponse3** out = Checked(value);
        PrinterResponse3Object* object = S3Object();
        if (object != nullptr) object->AddRef();
        *out = object;
    });
}
// Only a PrinterResponse3 of this server: the session reads its rates and flags, which a
// host's own object could not give it.
STDMETHODIMP PrinterFiscalObject::putref_s3(_PrinterResponse3* value) {
    return Guard([&] {
        PrinterResponse3Object* object = OwnObject<PrinterResponse3Object>(value);
        if (value != nullptr && object == nullptr) {
            throw automation::VbError::Standard(automation::vb_errors::kTypeMismatch);
        }
        session_.Sets3(object != nullptr ? object->record() : nullptr);
        s3_.Reset(object);
    });
}
STDMETHODIMP PrinterFiscalObject::get_f21(SHORT* value) {
    return Guard([&] { *Checked(value) = session_.f21(); });
}
STDMETHODIMP PrinterFiscalObject::put_f21(SHORT value) {
    return Guard([&] { session_.Setf21(value); });
}
STDMETHODIMP PrinterFiscalObject::get_lError(SHORT* value) {
    return Guard([&] { *Checked(value) = session_.lError(); });
}
STDMETHODIMP PrinterFiscalObject::get_lStatus(SHORT* value) {
    return Guard([&] { *Checked(value) = session_.lStatus(); });
}

STDMETHODIMP PrinterFiscalObject::BuildCommandBlock(BSTR* sCommand, BSTR* block) {
    return Guard(
        [&] { *Checked(block) = BstrFromBytes(session_.BuildCommandBlock(Text(sCommand))); });
}
STDMETHODIMP PrinterFiscalObject::CalcXOr(BSTR* s, SHORT* check) {
    return Guard([&] { *Checked(check) = session_.CalcXOr(Text(s)); });
}
STDMETHODIMP PrinterFiscalObject::EscapeString(BSTR* s, BSTR* readable) {
    return Guard([&] { *Checked(readable) = BstrFromBytes(session_.EscapeString(Text(s))); });
}
STDMETHODIMP PrinterFiscalObject::tipoPrinter(VariantesPF* model) {
    return Guard([&] { *Checked(model) = static_cast<VariantesPF>(session_.tipoPrinter()); });
}

STDMETHODIMP PrinterFiscalObject::Abrir(VARIANT* portNumber) {
    // Converted only when a port is opened: in test mode any argument will do.
    return Guard([&] { session_.Abrir([&] { return ShortFromVariant(*Checked(portNumber)); }); });
}
STDMETHODIMP PrinterFiscalObject::Cerrar() {
    return Guard([&] { session_.Cerrar(); });
}
STDMETHODIMP PrinterFiscalObject::AbrirGaveta(VARIANT_BOOL* failed) {
    return Guard([&] { *Checked(failed) = session_.AbrirGaveta() ? VARIANT_TRUE : VARIANT_FALSE; });
}
STDMETHODIMP PrinterFiscalObject::SendDirect(BSTR* sCommand) {
    return Guard([&] { session_.SendDirect(Text(sCommand)); });
}
STDMETHODIMP PrinterFiscalObject::Execute(BSTR* sCmd, SHORT* outcome) {
    return Guard([&] { *Checked(outcome) = session_.Execute(Text(sCmd)); });
}
STDMETHODIMP PrinterFiscalObject::ExecuteNoCheck(BSTR* sCmd) {
    return Guard([&] { session_.ExecuteNoCheck(Text(sCmd)); });
}
STDMETHODIMP PrinterFiscalObject::SendAck() {
    return Guard([&] { session_.SendAck(); });
}
STDMETHODIMP PrinterFiscalObject::GetStatus() {
    return Guard([&] { session_.GetStatus(); });
}
STDMETHODIMP PrinterFiscalObject::explainSTS1(VARIANT* text) {
    return Guard([&] { SetText(Checked(text), session_.explainSTS1()); });
}
STDMETHODIMP PrinterFiscalObject::explainSTS2(VARIANT* text) {
    return Guard([&] { SetText(Checked(text), session_.explainSTS2()); });
}
STDMETHODIMP PrinterFiscalObject::Reset(VARIANT* outcome) {
    return Guard([&] { SetShort(Checked(outcome), session_.Reset()); });
}
STDMETHODIMP PrinterFiscalObject::NextStatusBlock(VARIANT* fields) {
    return Guard([&] { SetStringArray(Checked(fields), session_.NextStatusBlock()); });
}
STDMETHODIMP PrinterFiscalObject::GetResponse(BSTR* cmd, VARIANT* fields) {
    return Guard([&] { SetVariantArray(Checked(fields), session_.GetResponse(Text(cmd))); });
}
STDMETHODIMP PrinterFiscalObject::GetResponseString(BSTR* cmd, VARIANT* sep, BSTR* text) {
    return Guard([&] {
        const std::string separator = SeparatorOr(sep, {});
        *Checked(text) = BstrFromBytes(session_.GetResponseString(Text(cmd), separator));
    });
}
STDMETHODIMP PrinterFiscalObject::GetMultipleResponses(BSTR* cmd, VARIANT* blocks) {
    return Guard(
        [&] { SetArrayOfArrays(Checked(blocks), session_.GetMultipleResponses(Text(cmd))); });
}
STDMETHODIMP PrinterFiscalObject::GetMultipleResponsesStr(BSTR* cmd, VARIANT* itemSep,
                                                          VARIANT* rowSep, BSTR* text) {
    return Guard([&] {
        const std::string items = SeparatorOr(itemSep, std::string(1, session::US));
        const std::string rows = SeparatorOr(rowSep, std::string(1, session::RS));
        *Checked(text) = BstrFromBytes(session_.GetMultipleResponsesStr(Text(cmd), items, rows));
    });
}
STDMETHODIMP PrinterFiscalObject::responseItem(SHORT* selector, VARIANT* s, VARIANT* item) {
    return Guard([&] {
        const HostArray array = HostArrayOf(*Checked(s));
        const LONG index = *Checked(selector);
        if (index < array.lower || index > array.upper) {
            SetText(Checked(item), "<nil>");
        } else {
            ElementOf(array, index, Checked(item));
        }
    });
}

}  // namespace corvid::registration
