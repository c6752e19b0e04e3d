// What regsvr32 does with the DLL: registers every class of the class table (CLSID with
// an apartment-threaded InprocServer32, ProgID) and the embedded type library, and removes
// exactly that again.
#pragma once

#include <windows.h>

namespace corvid::registration {

HRESULT RegisterServer();
HRESULT UnregisterServer();

}  // namespace corvid::registration
