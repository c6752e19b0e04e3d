#include "registration/string_buffer_object.h"

#include "registration/bstr_text.h"
#include "registration/checked_pointer.h"
#include "registration/variant_values.h"

namespace corvid::registration {

StringBufferObject::StringBufferObject(const char* error_source)
    : DispatchObject(IID__CStringBuffer, error_source) {}

STDMETHODIMP StringBufferObject::Append(BSTR* s) {
    return Guard([&] { buffer_.Append(Utf16FromBstr(*Checked(s))); });
}

STDMETHODIMP StringBufferObject::AppendV(VARIANT* v) {
    return Guard([&] { buffer_.Append(Utf16FromVariant(*Checked(v))); });
}

STDMETHODIMP StringBufferObject::Remove(LONG* Index, LONG* Length) {
    return Guard([&] {
        std::int32_t length = *Checked(Length);
        buffer_.Remove(*Checked(Index), length);
        *Length = length;
    });
}

STDMETHODIMP StringBufferObject::Insert(LONG* Index, BSTR* Text) {
    return Guard([&] { buffer_.Insert(*Checked(Index), Utf16FromBstr(*Checked(Text))); });
}

STDMETHODIMP StringBufferObject::Replace(BSTR* orgText, BSTR* NewText) {
    return Guard([&] {
        buffer_.Replace(Utf16FromBstr(*Checked(orgText)), Utf16FromBstr(*Checked(NewText)));
    });
}

STDMETHODIMP StringBufferObject::get_Value(BSTR* text) {
    return Guard([&] { *Checked(text) = BstrFromUtf16(buffer_.Value()); });
}

STDMETHODIMP StringBufferObject::put_Value(BSTR text) {
    return Guard([&] { buffer_.SetValue(Utf16FromBstr(text)); });
}

}  // namespace corvid::registration
