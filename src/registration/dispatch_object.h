// The base of every COM class of the server: reference counting, IDispatch driven by the
// embedded type information, ISupportErrorInfo, and the boundary every member runs
// behind (Guard), where exceptions become the error a host sees.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <optional>
#include <string>

#include "registration/host_error.h"
#include "registration/reference_count.h"

namespace corvid::registration {

// What does not depend on the interface: the type information and the last error.
class DispatchCore {
  public:
    // `class_source` names the class in the errors its members raise.
    DispatchCore(REFIID iid, std::string class_source);
    ~DispatchCore();
    DispatchCore(const DispatchCore&) = delete;
    DispatchCore& operator=(const DispatchCore&) = delete;

    HRESULT TypeInfo(UINT index, ITypeInfo** info);
    HRESULT IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids);
    // Calls `member` on `instance` (the dual interface) through the type information,
    // after adapting late-bound arguments, and reports a raised error in `excepinfo`. A
    // typed array in the result reaches the late-bound host as an array of Variants.
    HRESULT Invoke(void* instance, DISPID member, WORD flags, DISPPARAMS* params, VARIANT* result,
                   EXCEPINFO* excepinfo, UINT* arg_error);
    bool Supports(REFIID iid) const;

    // Runs one member; any exception becomes the error it returns and publishes.
    template <class Body>
    HRESULT Guard(Body&& body) {
        try {
            body();
            return S_OK;
        } catch (...) {
            return Raise(HostErrorFromCurrentException(class_source_));
        }
    }

  private:
    HRESULT Raise(HostError error);

    IID iid_;
    std::string class_source_;
    ITypeInfo* type_info_ = nullptr;
    std::optional<HostError> raised_;
};

template <class Interface>
class DispatchObject : public Interface, public ISupportErrorInfo {
  public:
    using PublishedInterface = Interface;

    // `own_iid`, when given, is an IID outside the type library that only this class
    // answers (with the published interface): see OwnObject.
    DispatchObject(REFIID iid, std::string class_source, const IID* own_iid = nullptr)
        : core_(iid, std::move(class_source)), own_iid_(own_iid) {}
    virtual ~DispatchObject() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        if (iid == IID_IUnknown || iid == IID_IDispatch || core_.Supports(iid) ||
            (own_iid_ != nullptr && iid == *own_iid_)) {
            *object = static_cast<Interface*>(this);
        } else if (iid == IID_ISupportErrorInfo) {
            *object = static_cast<ISupportErrorInfo*>(this);
        } else {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return references_.Increment(); }
    STDMETHODIMP_(ULONG) Release() override { return references_.Decrement(this); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        return core_.TypeInfo(index, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return core_.IdsOfNames(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* params,
                        VARIANT* result, EXCEPINFO* excepinfo, UINT* arg_error) override {
        return core_.Invoke(static_cast<Interface*>(this), member, flags, params, result, excepinfo,
                            arg_error);
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return core_.Supports(iid) ? S_OK : S_FALSE;
    }

  protected:
    template <class Body>
    HRESULT Guard(Body&& body) {
        return core_.Guard(std::forward<Body>(body));
    }

  private:
    DispatchCore core_;
    const IID* own_iid_;
    ReferenceCount references_;
};

// `object` when it is an `Object` of this server in this apartment, else null (a host's
// own implementation of the interface, a proxy, null). Adds no reference: the caller
// holds one for as long as it uses the result.
template <class Object>
Object* OwnObject(IUnknown* object) {
    void* found = nullptr;
    if (object == nullptr || FAILED(object->QueryInterface(Object::kOwnIid, &found))) {
        return nullptr;
    }
    auto* published = static_cast<typename Object::PublishedInterface*>(found);
    published->Release();
    return static_cast<Object*>(published);
}

}  // namespace corvid::registration
