#include "registration/com_server.h"

#include <objbase.h>
#include <oleauto.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace corvid::registration {
namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using CanUnload = HRESULT(STDAPICALLTYPE*)();

std::wstring Wide(const std::string& ascii) { return std::wstring(ascii.begin(), ascii.end()); }

// An export of the server by its plain name, as COM looks it up; null when missing. Under
// Wine the test runs from a folder of drive Z:, the build machine's root, so the absolute
// build path resolves as it stands.
template <class Function>
Function Export(const char* name) {
    static const HMODULE server = LoadLibraryW(Wide(CORVID_API_DLL).c_str());
    // Through void*: FARPROC has no parameters, so a direct cast draws a warning.
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(server, name)));
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
    get_class_object(id, IID_IClassFactory, reinterpret_cast<void**>(&factory));
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

HRESULT CallByName(IDispatch* object, const std::string& name, WORD flags,
                   std::vector<VARIANT> arguments, VARIANT* result, std::string* error) {
    std::reverse(arguments.begin(), arguments.end());  // rgvarg holds the last one first
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        params.rgdispidNamedArgs = &put;
        params.cNamedArgs = 1;
    }
    std::wstring wide = Wide(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    EXCEPINFO excepinfo{};
    UINT arg_error = 0;
    const HRESULT hr = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, result,
                                      &excepinfo, &arg_error);
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

std::string Call(IDispatch* object, const std::string& member, std::vector<VARIANT> arguments) {
    VARIANT result;
    VariantInit(&result);
    std::string error;
    const HRESULT hr =
        CallByName(object, member, DISPATCH_METHOD, std::move(arguments), &result, &error);
    VariantClear(&result);
    return hr == S_OK ? "S_OK" : error;
}

IDispatch* ObjectFrom(IDispatch* object, const std::string& member,
                      std::vector<VARIANT> arguments) {
    VARIANT result;
    VariantInit(&result);
    if (FAILED(CallByName(object, member, DISPATCH_METHOD, std::move(arguments), &result)) ||
        result.vt != VT_DISPATCH) {
        VariantClear(&result);
        return nullptr;
    }
    return result.pdispVal;
}

VARIANT Object(IDispatch* object) {
    VARIANT v{};
    v.vt = VT_DISPATCH;
    v.pdispVal = object;
    return v;
}

SettingsFile::SettingsFile(const std::string& lines) {
    std::ofstream("ORV.ini", std::ios::binary) << "[Config\\NimbusPF]\r\n" << lines << "\r\n";
}

SettingsFile::~SettingsFile() { std::remove("ORV.ini"); }

STDMETHODIMP HostObject::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch && iid != also_) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    *ids = std::wstring(names[0]) == L"ReportClicked" ? 7 : DISPID_UNKNOWN;
    return *ids == 7 ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP HostObject::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*,
                                EXCEPINFO* excepinfo, UINT*) {
    const VARIANT* last = &params->rgvarg[params->cArgs - 1];
    const bool with_cancel = params->cArgs == 3;
    calls.push_back(std::to_wstring(member) + L"|" +
                    (last[0].vt == VT_BSTR ? last[0].bstrVal : L"<not a String>") + L"|" +
                    std::to_wstring(last[-1].vt == VT_I4 ? last[-1].lVal : -1) + L"|" +
                    std::to_wstring(with_cancel ? params->rgvarg[0].vt : 0));
    if (with_cancel && set_cancel) {
        VARIANT* cancel = params->rgvarg[0].pvarVal;
        cancel->vt = VT_BOOL;
        cancel->boolVal = VARIANT_TRUE;
    }
    if (!fail) return S_OK;
    excepinfo->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 91);
    excepinfo->bstrDescription = SysAllocString(L"the host's own error");
    return DISP_E_EXCEPTION;
}

}  // namespace corvid::registration
