// The class factory of one published class: creates a new object per request. Creation
// errors (from the session's start-up, say) reach the host as the error of CreateObject.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <unknwn.h>

#include "registration/class_table.h"
#include "registration/reference_count.h"

namespace corvid::registration {

class ClassFactory : public IClassFactory {
  public:
    explicit ClassFactory(const PublishedClass& published);
    virtual ~ClassFactory();

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return references_.Increment(); }
    STDMETHODIMP_(ULONG) Release() override { return references_.Decrement(this); }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

  private:
    const PublishedClass& published_;
    ReferenceCount references_;
};

}  // namespace corvid::registration
