// Late-bound hosts (VBScript, JScript) pass every variable as a Variant and a ByRef
// argument as VT_BYREF | VT_VARIANT, while the type library declares typed parameters
// ([in, out] long*, BSTR*, ...). Before the call, each argument is brought to the form the
// member's FUNCDESC declares: a typed ByRef parameter gets a temporary of its type
// (converted with VariantChangeType), a Variant ByRef parameter given by value gets a
// temporary copy, a by-value parameter given by reference gets the value itself, and an
// object for a parameter of an interface type is asked for that interface (an object of
// another class is a type mismatch, as VB reports it). After the call, what the member
// wrote into a temporary is written back into the caller's reference. Literals passed to
// ByRef parameters work the same way, without write-back.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <memory>
#include <vector>

namespace corvid::registration {

class LateBoundArguments {
  public:
    LateBoundArguments() = default;
    ~LateBoundArguments();
    LateBoundArguments(const LateBoundArguments&) = delete;
    LateBoundArguments& operator=(const LateBoundArguments&) = delete;

    // Prepares the arguments of `member` as called with `flags`. On a conversion failure
    // returns DISP_E_TYPEMISMATCH (or DISP_E_OVERFLOW) and sets *arg_error to the index
    // of the argument in `given`. A member the type information does not know leaves the
    // arguments as they are, for the dispatcher to refuse.
    HRESULT Adapt(ITypeInfo* info, DISPID member, WORD flags, DISPPARAMS* given, UINT* arg_error);

    // The arguments to hand to ITypeInfo::Invoke.
    DISPPARAMS* Adapted() { return &adapted_; }

    // Writes every temporary that stands for a caller's reference back into it.
    void WriteBack();

  private:
    struct Temporary {
        UINT index = 0;  // position in the caller's rgvarg
        bool write_back = false;
        VARIANT value{};
    };

    HRESULT AdaptOne(ITypeInfo* info, const TYPEDESC& declared, UINT index);
    HRESULT AdaptObject(REFIID iid, UINT index);
    Temporary& NewTemporary(UINT index, bool write_back);

    DISPPARAMS* given_ = nullptr;
    DISPPARAMS adapted_{};
    std::vector<VARIANTARG> arguments_;
    // Stable addresses: the adapted arguments point into these.
    std::vector<std::unique_ptr<Temporary>> temporaries_;
};

}  // namespace corvid::registration
