#include "registration/self_registration.h"

#include <objbase.h>
#include <oleauto.h>
#include <olectl.h>

#include <cstring>
#include <string>

#include "registration/CorvidAPI_h.h"
#include "registration/class_table.h"
#include "registration/module_state.h"

namespace corvid::registration {
namespace {

// ProgIDs and descriptions are plain ASCII.
std::wstring Wide(const char* ascii) { return std::wstring(ascii, ascii + std::strlen(ascii)); }

std::wstring GuidText(const GUID& guid) {
    wchar_t text[40] = {};
    StringFromGUID2(guid, text, 40);
    return text;
}

// Creates `key` under HKEY_CLASSES_ROOT and sets its value `name` (default when null).
HRESULT SetValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    HKEY handle = nullptr;
    LONG status = RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                  nullptr, &handle, nullptr);
    if (status == ERROR_SUCCESS) {
        const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        status = RegSetValueExW(handle, name, 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(value.c_str()), bytes);
        RegCloseKey(handle);
    }
    return HRESULT_FROM_WIN32(status);
}

HRESULT RegisterPublishedClass(const PublishedClass& entry, const std::wstring& module_path) {
    const std::wstring clsid = GuidText(*entry.clsid);
    const std::wstring clsid_key = L"CLSID\\" + clsid;
    const std::wstring prog_id = Wide(entry.prog_id);
    const std::wstring description = Wide(entry.description);
    const HRESULT results[] = {
        SetValue(clsid_key, nullptr, description),
        SetValue(clsid_key + L"\\InprocServer32", nullptr, module_path),
        SetValue(clsid_key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"),
        SetValue(clsid_key + L"\\ProgID", nullptr, prog_id),
        SetValue(clsid_key + L"\\TypeLib", nullptr, GuidText(LIBID_PrinterFiscalCorvid)),
        SetValue(prog_id, nullptr, description),
        SetValue(prog_id + L"\\CLSID", nullptr, clsid),
    };
    for (HRESULT hr : results) {
        if (FAILED(hr)) return hr;
    }
    return S_OK;
}

HRESULT DeleteTree(const std::wstring& key) {
    const LONG status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    if (status == ERROR_FILE_NOT_FOUND) return S_OK;
    return HRESULT_FROM_WIN32(status);
}

// Whether the other registry view (the 32-bit one from a 64-bit DLL, and the other way
// round) still has `key`: the other build of the DLL is registered there. Where there is
// only one view, that is this one.
bool InOtherView(const std::wstring& key) {
    const REGSAM other = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY handle = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ | other, &handle) !=
        ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(handle);
    return true;
}

}  // namespace

HRESULT RegisterServer() {
    const std::wstring module_path = ModulePath();
    if (module_path.empty()) return SELFREG_E_CLASS;
    for (const auto& entry : PublishedClasses()) {
        if (FAILED(RegisterPublishedClass(entry, module_path))) return SELFREG_E_CLASS;
    }
    std::wstring path = module_path;  // RegisterTypeLib takes a non-const string
    ITypeLib* library = nullptr;
    HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library);
    if (SUCCEEDED(hr)) {
        hr = RegisterTypeLib(library, path.data(), nullptr);
        library->Release();
    }
    return FAILED(hr) ? SELFREG_E_TYPELIB : S_OK;
}

HRESULT UnregisterServer() {
    HRESULT result = S_OK;
    for (const auto& entry : PublishedClasses()) {
        const std::wstring clsid_key = L"CLSID\\" + GuidText(*entry.clsid);
        if (FAILED(DeleteTree(clsid_key))) result = SELFREG_E_CLASS;
        // Both views share the ProgID: it stays while the other build still serves the class.
        if (!InOtherView(clsid_key) && FAILED(DeleteTree(Wide(entry.prog_id)))) {
            result = SELFREG_E_CLASS;
        }
    }
    // Only the registration of this DLL's own pointer size: the 32-bit and 64-bit builds
    // share the type library's key, each with its own platform below it.
    constexpr SYSKIND kPlatform = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    const HRESULT hr =
        UnRegisterTypeLib(LIBID_PrinterFiscalCorvid, 1, 0, LOCALE_NEUTRAL, kPlatform);
    if (FAILED(hr) && hr != TYPE_E_REGISTRYACCESS && hr != TYPE_E_CANTLOADLIBRARY) {
        result = SELFREG_E_TYPELIB;
    }
    return result;
}

}  // namespace corvid::registration
