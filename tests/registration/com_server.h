// CorvidAPI.dll loaded in-process, as a host's COM runtime would, without registration:
// objects are made through its DllGetClassObject and driven late-bound, by name.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <string>
#include <vector>

namespace corvid::registration {

class ComServer {
  public:
    ComServer();
    ~ComServer();
    ComServer(const ComServer&) = delete;
    ComServer& operator=(const ComServer&) = delete;

    // A new object of the class `clsid` ("8409FF7E-..."), as IDispatch; null when the
    // server does not make it.
    IDispatch* Create(const std::string& clsid);
    // The class factory of `clsid` from DllGetClassObject; null when there is none.
    IClassFactory* Factory(const std::string& clsid);
    // What the server's DllCanUnloadNow answers: S_OK once nothing of it is in use.
    HRESULT CanUnloadNow();
};

// The DISPID GetIDsOfNames gives `name`; DISPID_UNKNOWN when the object does not know it.
DISPID DispidOf(IDispatch* object, const std::string& name);

// Invokes `name` with `flags` and the arguments in the order a host writes them; a
// property put passes the last one as the value. Returns the HRESULT of Invoke; the
// description of a raised error goes to `error` when given.
HRESULT CallByName(IDispatch* object, const std::string& name, WORD flags,
                   std::vector<VARIANT> arguments, VARIANT* result, std::string* error = nullptr);

// The reference count `object` has.
ULONG References(IUnknown* object);

}  // namespace corvid::registration
