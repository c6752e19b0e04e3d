// The base of the record classes: a dual interface over one core record. The record is
// shared, so a session's status query hands the host the very record it built; a host's
// CreateObject makes an empty one. Each class lists its properties, one
// CORVID_RECORD_PROPERTY(host type, field) line each, in the order of the interface.
#pragma once

#include <memory>

#include "registration/checked_pointer.h"
#include "registration/class_table.h"
#include "registration/dispatch_object.h"
#include "registration/record_values.h"

// The property `field` of the interface as a get/put pair over the record's member of the
// same name, converted to and from `Host` (SHORT, LONG, double, VARIANT_BOOL, CY, DATE or
// BSTR) as record_values.h does.
#define CORVID_RECORD_PROPERTY(Host, field)                                               \
    STDMETHODIMP get_##field(Host* value) override { return Get(value, &Record::field); } \
    STDMETHODIMP put_##field(Host value) override { return Put(value, &Record::field); }

namespace corvid::registration {

template <class Interface, class CoreRecord>
class RecordObject : public DispatchObject<Interface> {
  public:
    using Record = CoreRecord;

    RecordObject(REFIID iid, const char* error_source, std::shared_ptr<Record> record,
                 const IID* own_iid = nullptr)
        : DispatchObject<Interface>(iid, error_source, own_iid), record_(std::move(record)) {}

    const std::shared_ptr<Record>& record() const { return record_; }

  protected:
    template <class Host, class Field>
    HRESULT Get(Host* value, Field Record::*field) {
        return this->Guard([&] {
            Host* out = Checked(value);
            *out = ToHost((*record_).*field);
        });
    }
    template <class Host, class Field>
    HRESULT Put(Host value, Field Record::*field) {
        return this->Guard([&] { FromHost(value, (*record_).*field); });
    }

    Record& record_value() { return *record_; }

  private:
    std::shared_ptr<Record> record_;
};

// A new `Object` over `record`, holding one reference for the caller; null for a null
// record (the host sees Nothing). Its errors name the class as the class table does.
template <class Object>
Object* Publish(std::shared_ptr<typename Object::Record> record) {
    if (record == nullptr) return nullptr;
    return new Object(FindPublishedClass(Object::Clsid())->prog_id, std::move(record));
}

}  // namespace corvid::registration
