#include "registration/closure_collection.h"

#include "automation/vb_error.h"
#include "registration/checked_pointer.h"
#include "registration/module_state.h"
#include "registration/reference_count.h"
#include "registration/variant_store.h"
#include "registration/variant_values.h"

namespace corvid::registration {
namespace {

using automation::VbError;
namespace vb_errors = automation::vb_errors;

// For Each over a collection: keeps the collection alive and walks its items.
class ClosureEnumerator : public IEnumVARIANT {
  public:
    ClosureEnumerator(ClosureCollection* collection, std::size_t next)
        : collection_(collection), next_(next) {
        collection_->AddRef();
        ObjectCreated();
    }
    virtual ~ClosureEnumerator() {
        collection_->Release();
        ObjectDestroyed();
    }
    ClosureEnumerator(const ClosureEnumerator&) = delete;
    ClosureEnumerator& operator=(const ClosureEnumerator&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        if (iid != IID_IUnknown && iid != IID_IEnumVARIANT) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IEnumVARIANT*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return references_.Increment(); }
    STDMETHODIMP_(ULONG) Release() override { return references_.Decrement(this); }

    STDMETHODIMP Next(ULONG wanted, VARIANT* items, ULONG* fetched) override {
        if (items == nullptr || (wanted > 1 && fetched == nullptr)) return E_POINTER;
        const auto& all = collection_->items();
        ULONG given = 0;
        for (; given < wanted && next_ < all.size(); ++given, ++next_) {
            VariantInit(&items[given]);
            items[given].vt = VT_DISPATCH;
            items[given].pdispVal = all[next_];
            all[next_]->AddRef();
        }
        if (fetched != nullptr) *fetched = given;
        return given == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = collection_->items().size() - next_;
        next_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** copy) override {
        if (copy == nullptr) return E_POINTER;
        try {
            *copy = new ClosureEnumerator(collection_, next_);
            return S_OK;
        } catch (...) {
            *copy = nullptr;
            return E_OUTOFMEMORY;
        }
    }

  private:
    ClosureCollection* collection_;
    std::size_t next_;
    ReferenceCount references_;
};

}  // namespace

ClosureCollection::ClosureCollection(
    const std::vector<std::shared_ptr<records::ReporteZMF>>& closures)
    : DispatchObject(IID_ReportesZMFCollection, "PrinterFiscalCorvid.ReportesZMFCollection") {
    try {
        items_.reserve(closures.size());
        for (const auto& closure : closures) {
            items_.push_back(Publish<ReporteZMFObject>(closure));
        }
    } catch (...) {
        for (ReporteZMFObject* item : items_) item->Release();
        throw;
    }
}

ClosureCollection::~ClosureCollection() {
    for (ReporteZMFObject* item : items_) item->Release();
}

STDMETHODIMP ClosureCollection::Item(VARIANT Index, _ReporteZMF** closure) {
    return Guard([&] {
        _ReporteZMF** out = Checked(closure);
        const VARTYPE type = Innermost(&Index)->vt & VT_TYPEMASK;
        if (type == VT_BSTR) throw VbError::Standard(vb_errors::kInvalidProcedureCall);
        const std::int32_t index = LongFromVariant(Index);
        if (index < 1 || static_cast<std::size_t>(index) > items_.size()) {
            throw VbError::Standard(vb_errors::kSubscriptOutOfRange);
        }
        ReporteZMFObject* item = items_[static_cast<std::size_t>(index) - 1];
        item->AddRef();
        *out = item;
    });
}

STDMETHODIMP ClosureCollection::get_Count(LONG* count) {
    return Guard([&] {
        LONG* out = Checked(count);
        *out = static_cast<LONG>(items_.size());
    });
}

STDMETHODIMP ClosureCollection::get__NewEnum(IUnknown** items) {
    return Guard([&] {
        IUnknown** out = Checked(items);
        *out = new ClosureEnumerator(this, 0);
    });
}

}  // namespace corvid::registration
