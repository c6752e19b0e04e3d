// The creatable classes of the server, each listed once: its CLSID (from the IDL), ProgID,
// description and how to make an object. Registration, the class factories and the error
// source of each object ("PrinterFiscalCorvid.PrinterFiscal") all come from here.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <unknwn.h>

#include <span>

namespace corvid::registration {

struct PublishedClass {
    const CLSID* clsid;
    // Also the source of the errors its objects raise.
    const char* prog_id;
    const char* description;
    // A new object holding one reference for the caller; throws when creation fails.
    IUnknown* (*create)(const char* error_source);
};

std::span<const PublishedClass> PublishedClasses();
// Null for a CLSID the server does not publish.
const PublishedClass* FindPublishedClass(REFCLSID clsid);

}  // namespace corvid::registration
