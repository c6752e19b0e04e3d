#include "registration/com_server.h"

#include <objbase.h>
#include <oleauto.h>

#include <algorithm>

namespace corvid::registration {
namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using CanUnload = HRESULT(STDAPICALLTYPE*)();

std::wstring Wide(const std::string& ascii) { return std::wstring(ascii.begin(), ascii.end()); }

// Loaded once for the whole run. Under Wine the test runs from a folder of drive Z:, the
// build machine's root, so the absolute build path resolves as it stands.
HMODULE Server() {
    static HMODULE module = LoadLibraryW(Wide(CORVID_API_DLL).c_str());
    return module;
}

// An export of the server by its plain name, as COM looks it up; null when missing.
template <class Function>
Function Export(const char* name) {
    if (Server() == nullptr) return nullptr;
    // Through void*: FARPROC has no parameters, so a direct cast draws a warning.
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(Server(), name)));
}

}  // namespace

ComServer::ComServer() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }

ComServer::~ComServer() { CoUninitialize(); }

IClassFactory* ComServer::Factory(const std::string& clsid) {
    const auto get_class_object = Export<GetClassObject>("DllGetClassObject");
    CLSID id{};
    if (get_class_object == nullptr ||
        FAILED(CLSIDFromString(Wide("{" + clsid + "}").c_str(), &id))) {
        return nullptr;
    }
    IClassFactory* factory = nullptr;
    if (FAILED(get_class_object(id, IID_IClassFactory, reinterpret_cast<void**>(&factory)))) {
        return nullptr;
    }
    return factory;
}

HRESULT ComServer::CanUnloadNow() {
    const auto can_unload = Export<CanUnload>("DllCanUnloadNow");
    return can_unload == nullptr ? E_NOTIMPL : can_unload();
}

IDispatch* ComServer::Create(const std::string& clsid) {
    IClassFactory* factory = Factory(clsid);
    if (factory == nullptr) return nullptr;
    IDispatch* object = nullptr;
    factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&object));
    factory->Release();
    return object;
}

DISPID DispidOf(IDispatch* object, const std::string& name) {
    std::wstring wide = Wide(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) {
        return DISPID_UNKNOWN;
    }
    return id;
}

HRESULT CallByName(IDispatch* object, const std::string& name, WORD flags,
                   std::vector<VARIANT> arguments, VARIANT* result, std::string* error) {
    std::reverse(arguments.begin(), arguments.end());  // rgvarg holds the last one first
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        params.rgdispidNamedArgs = &put;
        params.cNamedArgs = 1;
    }
    EXCEPINFO excepinfo{};
    UINT arg_error = 0;
    const HRESULT hr = object->Invoke(DispidOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags,
                                      &params, result, &excepinfo, &arg_error);
    if (error != nullptr && excepinfo.bstrDescription != nullptr) {
        // The descriptions are ASCII; anything else shows as '?'.
        error->clear();
        for (const wchar_t* c = excepinfo.bstrDescription; *c != 0; ++c) {
            error->push_back(*c < 0x80 ? static_cast<char>(*c) : '?');
        }
    }
    SysFreeString(excepinfo.bstrSource);
    SysFreeString(excepinfo.bstrDescription);
    SysFreeString(excepinfo.bstrHelpFile);
    return hr;
}

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

}  // namespace corvid::registration
