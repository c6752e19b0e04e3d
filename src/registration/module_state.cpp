#include "registration/module_state.h"

#include <oleauto.h>

#include <atomic>
#include <mutex>

namespace corvid::registration {
namespace {

HINSTANCE module_instance = nullptr;
std::atomic<long> live_objects{0};
std::atomic<long> server_locks{0};
// Loaded on first use; objects keep their own references to its type infos. Objects of
// different apartments may be made at once, and COM asks DllCanUnloadNow from any thread.
std::mutex type_library_mutex;
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
void LockModule(bool lock) {
    if (lock) {
        ++server_locks;
        return;
    }
    // An unlock without a lock is the host's mistake: it must not cancel the next lock.
    long locks = server_locks.load();
    while (locks > 0 && !server_locks.compare_exchange_weak(locks, locks - 1)) {
    }
}
bool ModuleInUse() { return live_objects > 0 || server_locks > 0; }

HRESULT InterfaceTypeInfo(REFIID iid, ITypeInfo** info) {
    const std::lock_guard<std::mutex> guard(type_library_mutex);
    if (type_library == nullptr) {
        const HRESULT hr = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &type_library);
        if (FAILED(hr)) return hr;
    }
    return type_library->GetTypeInfoOfGuid(iid, info);
}

void ReleaseTypeLibrary() {
    const std::lock_guard<std::mutex> guard(type_library_mutex);
    if (type_library != nullptr) {
        type_library->Release();
        type_library = nullptr;
    }
}

}  // namespace corvid::registration
