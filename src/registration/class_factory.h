// The class factory of one creatable class: creates a new object per request. Creation
// errors (from the session's start-up, say) reach the host as the error of CreateObject.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <unknwn.h>

#include "registration/host_error.h"
#include "registration/module_state.h"
#include "registration/reference_count.h"

namespace corvid::registration {

template <class Object>
class ClassFactory : public IClassFactory {
  public:
    ClassFactory() { ObjectCreated(); }
    virtual ~ClassFactory() { ObjectDestroyed(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return references_.Increment(); }
    STDMETHODIMP_(ULONG) Release() override { return references_.Decrement(this); }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        Object* created = nullptr;
        try {
            created = new Object();
        } catch (...) {
            const HostError error = HostErrorFromCurrentException("PrinterFiscalCorvid");
            PublishErrorInfo(error, IID_IUnknown);
            return error.scode;
        }
        const HRESULT hr = created->QueryInterface(iid, object);
        created->Release();
        return hr;
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        LockModule(lock != FALSE);
        return S_OK;
    }

  private:
    ReferenceCount references_;
};

}  // namespace corvid::registration
