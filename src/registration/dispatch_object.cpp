#include "registration/dispatch_object.h"

#include <oleauto.h>

#include <stdexcept>
#include <utility>

#include "registration/host_array.h"
#include "registration/late_bound_arguments.h"
#include "registration/module_state.h"

namespace corvid::registration {

DispatchCore::DispatchCore(REFIID iid, std::string class_source)
    : iid_(iid), class_source_(std::move(class_source)) {
    const HRESULT hr = InterfaceTypeInfo(iid, &type_info_);
    if (FAILED(hr)) throw std::runtime_error("The type library of CorvidAPI cannot be loaded");
    ObjectCreated();
}

DispatchCore::~DispatchCore() {
    type_info_->Release();
    ObjectDestroyed();
}

HRESULT DispatchCore::TypeInfo(UINT index, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    type_info_->AddRef();
    *info = type_info_;
    return S_OK;
}

HRESULT DispatchCore::IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids) {
    return DispGetIDsOfNames(type_info_, names, count, ids);
}

HRESULT DispatchCore::Invoke(void* instance, DISPID member, WORD flags, DISPPARAMS* params,
                             VARIANT* result, EXCEPINFO* excepinfo, UINT* arg_error) {
    static DISPPARAMS no_arguments{};
    if (params == nullptr) params = &no_arguments;
    try {
        LateBoundArguments arguments;
        HRESULT hr = arguments.Adapt(type_info_, member, flags, params, arg_error);
        if (FAILED(hr)) return hr;
        raised_.reset();
        hr = type_info_->Invoke(instance, member, flags, arguments.Adapted(), result, excepinfo,
                                arg_error);
        const bool called = SUCCEEDED(hr) || raised_.has_value();
        if (called) arguments.WriteBack();
        if (raised_) {
            // Whether or not the type information copied the error object, the host reads
            // Err.Number, Err.Source and Err.Description from here.
            FillExcepInfo(*raised_, excepinfo);
            raised_.reset();
            return DISP_E_EXCEPTION;
        }
        if (SUCCEEDED(hr) && result != nullptr) MakeVariantArray(result);
        return hr;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

bool DispatchCore::Supports(REFIID iid) const { return IsEqualIID(iid, iid_) != FALSE; }

HRESULT DispatchCore::Raise(HostError error) {
    PublishErrorInfo(error, iid_);
    const HRESULT scode = error.scode;
    raised_ = std::move(error);
    return scode;
}

}  // namespace corvid::registration
