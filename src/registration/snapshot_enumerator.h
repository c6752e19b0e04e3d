// IEnumConnections and IEnumConnectionPoints over a copy of the list taken when the host
// asked for it: later advising or unadvising does not disturb a walk in progress.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <ocidl.h>

#include <algorithm>
#include <vector>

#include "registration/module_state.h"
#include "registration/reference_count.h"

namespace corvid::registration {

inline void AddElementReference(CONNECTDATA& element) { element.pUnk->AddRef(); }
inline void ReleaseElement(CONNECTDATA& element) { element.pUnk->Release(); }
inline void AddElementReference(IConnectionPoint* element) { element->AddRef(); }
inline void ReleaseElement(IConnectionPoint* element) { element->Release(); }

template <class Enum, class Element>
class SnapshotEnumerator : public Enum {
  public:
    // Adds a reference to each element for as long as the enumerator lives.
    SnapshotEnumerator(REFIID iid, std::vector<Element> elements)
        : iid_(iid), elements_(std::move(elements)) {
        for (Element& element : elements_) AddElementReference(element);
        ObjectCreated();
    }
    virtual ~SnapshotEnumerator() {
        for (Element& element : elements_) ReleaseElement(element);
        ObjectDestroyed();
    }
    SnapshotEnumerator(const SnapshotEnumerator&) = delete;
    SnapshotEnumerator& operator=(const SnapshotEnumerator&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        if (iid != IID_IUnknown && iid != iid_) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<Enum*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return references_.Increment(); }
    STDMETHODIMP_(ULONG) Release() override { return references_.Decrement(this); }

    STDMETHODIMP Next(ULONG count, Element* out, ULONG* fetched) override {
        if (out == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
        ULONG given = 0;
        for (; given < count && position_ < elements_.size(); ++given, ++position_) {
            out[given] = elements_[position_];
            AddElementReference(out[given]);
        }
        if (fetched != nullptr) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = elements_.size() - position_;
        position_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Enum** copy) override {
        if (copy == nullptr) return E_POINTER;
        try {
            auto* clone = new SnapshotEnumerator(iid_, elements_);
            clone->position_ = position_;
            *copy = clone;
            return S_OK;
        } catch (...) {
            *copy = nullptr;
            return E_OUTOFMEMORY;
        }
    }

  private:
    IID iid_;
    std::vector<Element> elements_;
    std::size_t position_ = 0;
    ReferenceCount references_;
};

using ConnectionsEnumerator = SnapshotEnumerator<IEnumConnections, CONNECTDATA>;
using ConnectionPointsEnumerator = SnapshotEnumerator<IEnumConnectionPoints, IConnectionPoint*>;

}  // namespace corvid::registration
