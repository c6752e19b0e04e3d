// Process-wide state of the in-process server: the DLL's own handle, the counts that
// decide whether it may be unloaded, and the embedded type library.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <string>

namespace corvid::registration {

void SetModuleInstance(HINSTANCE instance);
// Full path of CorvidAPI.dll as loaded.
std::wstring ModulePath();

void ObjectCreated();
void ObjectDestroyed();
void LockModule(bool lock);
// True while an object lives or a host holds a lock on a class factory.
bool ModuleInUse();

// The type information of one interface of the embedded type library (AddRef'd).
HRESULT InterfaceTypeInfo(REFIID iid, ITypeInfo** info);
// Lets go of the cached type library before the DLL is unloaded.
void ReleaseTypeLibrary();

}  // namespace corvid::registration
