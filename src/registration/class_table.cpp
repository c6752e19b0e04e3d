#include "registration/class_table.h"

#include "registration/CorvidAPI_h.h"
#include "registration/printer_fiscal_object.h"
#include "registration/string_buffer_object.h"

namespace corvid::registration {
namespace {

template <class Object>
IUnknown* Create(const char* error_source) {
    return static_cast<typename Object::PublishedInterface*>(new Object(error_source));
}

const PublishedClass kClasses[] = {
    {&CLSID_PrinterFiscal, "PrinterFiscalCorvid.PrinterFiscal", "PrinterFiscal",
     Create<PrinterFiscalObject>},
    {&CLSID_CStringBuffer, "PrinterFiscalCorvid.CStringBuffer", "CStringBuffer",
     Create<StringBufferObject>},
};

}  // namespace

std::span<const PublishedClass> PublishedClasses() { return kClasses; }

const PublishedClass* FindPublishedClass(REFCLSID clsid) {
    for (const auto& entry : kClasses) {
        if (IsEqualCLSID(clsid, *entry.clsid)) return &entry;
    }
    return nullptr;
}

}  // namespace corvid::registration
