#include "registration/class_factory.h"

#include "registration/host_error.h"
#include "registration/module_state.h"

namespace corvid::registration {

ClassFactory::ClassFactory(const PublishedClass& published) : published_(published) {
    ObjectCreated();
}

ClassFactory::~ClassFactory() { ObjectDestroyed(); }

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    IUnknown* created = nullptr;
    try {
        created = published_.create(published_.prog_id);
    } catch (...) {
        const HostError error = HostErrorFromCurrentException(published_.prog_id);
        PublishErrorInfo(error, IID_IUnknown);
        return error.scode;
    }
    const HRESULT hr = created->QueryInterface(iid, object);
    created->Release();
    return hr;
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    LockModule(lock != FALSE);
    return S_OK;
}

}  // namespace corvid::registration
