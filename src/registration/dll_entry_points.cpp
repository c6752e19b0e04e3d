// The exported entry points of the in-process server (see CorvidAPI.def).
#include <windows.h>
// (first: the OLE headers below use its types)
#include <objbase.h>

#include "registration/class_factory.h"
#include "registration/class_table.h"
#include "registration/module_state.h"
#include "registration/self_registration.h"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        corvid::registration::SetModuleInstance(instance);
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    const auto* published = corvid::registration::FindPublishedClass(clsid);
    if (published == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
    IClassFactory* factory = nullptr;
    try {
        factory = new corvid::registration::ClassFactory(*published);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    const HRESULT hr = factory->QueryInterface(iid, object);
    factory->Release();
    return hr;
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    if (corvid::registration::ModuleInUse()) return S_FALSE;
    corvid::registration::ReleaseTypeLibrary();
    return S_OK;
}

HRESULT STDAPICALLTYPE DllRegisterServer() { return corvid::registration::RegisterServer(); }

HRESULT STDAPICALLTYPE DllUnregisterServer() { return corvid::registration::UnregisterServer(); }

}  // extern "C"
