// The creatable CStringBuffer class: the library's growable text buffer behind the
// _CStringBuffer dual interface. It holds the host's text as UTF-16, so characters outside
// the ANSI code page survive and positions count UTF-16 units, as they do for the host.
#pragma once

#include "preview/string_buffer.h"
#include "registration/CorvidAPI_h.h"
#include "registration/dispatch_object.h"

namespace corvid::registration {

class StringBufferObject : public DispatchObject<_CStringBuffer> {
  public:
    explicit StringBufferObject(const char* error_source);

    STDMETHODIMP Append(BSTR* s) override;
    STDMETHODIMP AppendV(VARIANT* v) override;
    STDMETHODIMP Remove(LONG* Index, LONG* Length) override;
    STDMETHODIMP Insert(LONG* Index, BSTR* Text) override;
    STDMETHODIMP Replace(BSTR* orgText, BSTR* NewText) override;
    STDMETHODIMP get_Value(BSTR* text) override;
    STDMETHODIMP put_Value(BSTR text) override;

  private:
    preview::Utf16StringBuffer buffer_;
};

}  // namespace corvid::registration
