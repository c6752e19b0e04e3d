#include "registration/class_table.h"

#include "registration/CorvidAPI_h.h"
#include "registration/estado_documento_object.h"
#include "registration/printer_fiscal_object.h"
#include "registration/printer_response1_object.h"
#include "registration/printer_response2_object.h"
#include "registration/printer_response3_object.h"
#include "registration/printer_response4_object.h"
#include "registration/quick_view_object.h"
#include "registration/reporte_zmf_object.h"
#include "registration/resumen_z_object.h"
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
    {&CLSID_PrinterResponse1, "PrinterFiscalCorvid.PrinterResponse1", "PrinterResponse1",
     Create<PrinterResponse1Object>},
    {&CLSID_PrinterResponse2, "PrinterFiscalCorvid.PrinterResponse2", "PrinterResponse2",
     Create<PrinterResponse2Object>},
    {&CLSID_EstadoDocumento, "PrinterFiscalCorvid.EstadoDocumento", "EstadoDocumento",
     Create<EstadoDocumentoObject>},
    {&CLSID_PrinterResponse3, "PrinterFiscalCorvid.PrinterResponse3", "PrinterResponse3",
     Create<PrinterResponse3Object>},
    {&CLSID_PrinterResponse4, "PrinterFiscalCorvid.PrinterResponse4", "PrinterResponse4",
     Create<PrinterResponse4Object>},
    {&CLSID_ResumenZ, "PrinterFiscalCorvid.ResumenZ", "ResumenZ", Create<ResumenZObject>},
    {&CLSID_ReporteZMF, "PrinterFiscalCorvid.ReporteZMF", "ReporteZMF", Create<ReporteZMFObject>},
    {&CLSID_lfQuickView, "PrinterFiscalCorvid.lfQuickView", "lfQuickView", Create<QuickViewObject>},
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
