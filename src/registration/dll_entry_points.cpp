// The exported entry points of the in-process server (see CorvidAPI.def).
#include <windows.h>
// (first: the OLE headers below use its types)
#include <objbase.h>

#include <mutex>

#include "preview/platform_quick_view_window.h"
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
    // Reports shown by the host's objects (its own, the test-mode preview, the trace view)
    // appear in the preview window; installed here rather than under the loader lock.
    static std::once_flag window_installed;
    std::call_once(window_installed, [] { corvid::preview::InstallPlatformQuickViewWindow(); });
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
