// The creatable CStringBuffer class: the library's growable text buffer behind the
// _CStringBuffer dual interface.
#pragma once

#include "preview/string_buffer.h"
#include "registration/CorvidAPI_h.h"
#include "registration/dispatch_object.h"

namespace corvid::registration {

class StringBufferObject : public DispatchObject<_CStringBuffer> {
  public:
    StringBufferObject();

    STDMETHODIMP Append(BSTR* s) override;
    STDMETHODIMP AppendV(VARIANT* v) override;
    STDMETHODIMP Remove(LONG* Index, LONG* Length) override;
    STDMETHODIMP Insert(LONG* Index, BSTR* Text) override;
    STDMETHODIMP Replace(BSTR* orgText, BSTR* NewText) override;
    STDMETHODIMP get_Value(BSTR* text) override;
    STDMETHODIMP put_Value(BSTR text) override;

  private:
    preview::CStringBuffer buffer_;
};

}  // namespace corvid::registration
