// The creatable PrinterResponse3 class: the "S3" status record (tax rates and printer
// flags). A session keeps one as its s3, so the class is recognised by its own IID.
#pragma once

#include <memory>

#include "records/printer_response3.h"
#include "registration/CorvidAPI_h.h"
#include "registration/record_object.h"

namespace corvid::registration {

class PrinterResponse3Object : public RecordObject<_PrinterResponse3, records::PrinterResponse3> {
  public:
    // Answered only by this class: how a session tells its own records from a host's.
    static constexpr IID kOwnIid = {
        0x64ff5ffc, 0x9ec4, 0x49f9, {0xbf, 0x8c, 0x78, 0x0f, 0x02, 0x4e, 0x12, 0x04}};
    static const CLSID& Clsid() { return CLSID_PrinterResponse3; }

    explicit PrinterResponse3Object(const char* error_source,
                                    std::shared_ptr<Record> record = std::make_shared<Record>());

    CORVID_RECORD_PROPERTY(VARIANT_BOOL, TipoTasa1)
    CORVID_RECORD_PROPERTY(double, ValorTasa1)
    CORVID_RECORD_PROPERTY(VARIANT_BOOL, TipoTasa2)
    CORVID_RECORD_PROPERTY(double, ValorTasa2)
    CORVID_RECORD_PROPERTY(VARIANT_BOOL, TipoTasa3)
    CORVID_RECORD_PROPERTY(double, ValorTasa3)
    CORVID_RECORD_PROPERTY(SHORT, nFlags)
    CORVID_RECORD_PROPERTY(VARIANT_BOOL, isFake)
    CORVID_RECORD_PROPERTY(double, TasaIGTF)

    STDMETHODIMP loadFake() override;
    STDMETHODIMP loadFromResponse(VARIANT* v) override;
    STDMETHODIMP Flag(SHORT* n, SHORT* value) override;
    STDMETHODIMP imagenIncluido(VARIANT_BOOL* t, BSTR* text) override;
    STDMETHODIMP toString(BSTR* text) override;
};

}  // namespace corvid::registration
