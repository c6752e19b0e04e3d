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

}  // namespace

ComServer::ComServer() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }

ComServer::~ComServer() { CoUninitialize(); }

IDispatch* ComServer::Create(const std::string& clsid) {
    if (Server() == nullptr) return nullptr;
    // Through void*: FARPROC has no parameters, so a direct cast draws a warning.
    const auto get_class_object = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(Server(), "DllGetClassObject")));
    CLSID id{};
    if (get_class_object == nullptr ||
        FAILED(CLSIDFromString(Wide("{" + clsid + "}").c_str(), &id))) {
        return nullptr;
    }
    IClassFactory* factory = nullptr;
    if (FAILED(get_class_object(id, IID_IClassFactory, reinterpret_cast<void**>(&factory)))) {
        return nullptr;
    }
    IDispatch* object = nullptr;
    factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&object));
    factory->Release();
    return object;
}

HRESULT ComServer::CanUnloadNow() {
    if (Server() == nullptr) return E_FAIL;
    const auto can_unload = reinterpret_cast<CanUnload>(
        reinterpret_cast<void*>(GetProcAddress(Server(), "DllCanUnloadNow")));
    return can_unload == nullptr ? E_FAIL : can_unload();
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
                   std::vector<VARIANT> arguments, VARIANT* result) {
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
