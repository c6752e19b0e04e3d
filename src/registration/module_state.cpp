#include "registration/module_state.h"

#include <oleauto.h>

#include <atomic>

namespace corvid::registration {
namespace {

HINSTANCE module_instance = nullptr;
std::atomic<long> live_objects{0};
std::atomic<long> server_locks{0};
// Loaded on first use; objects keep their own references to its type infos.
ITypeLib* type_library = nullptr;

}  // namespace

void SetModuleInstance(HINSTANCE instance) { module_instance = instance; }

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(module_instance, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return {};
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void ObjectCreated() { ++live_objects; }
void ObjectDestroyed() { --live_objects; }
void LockModule(bool lock) { lock ? ++server_locks : --server_locks; }
bool ModuleInUse() { return live_objects > 0 || server_locks > 0; }

HRESULT InterfaceTypeInfo(REFIID iid, ITypeInfo** info) {
    if (type_library == nullptr) {
        const HRESULT hr = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &type_library);
        if (FAILED(hr)) return hr;
    }
    return type_library->GetTypeInfoOfGuid(iid, info);
}

void ReleaseTypeLibrary() {
    if (type_library != nullptr) {
        type_library->Release();
        type_library = nullptr;
    }
}

}  // namespace corvid::registration
