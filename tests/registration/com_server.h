// CorvidAPI.dll loaded in-process, as a host's COM runtime would, without registration:
// objects are made through its DllGetClassObject and driven late-bound, by name. Also the
// arguments and objects a host hands to them.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <string>
#include <vector>

namespace corvid::registration {

// The CLSIDs of the published classes the tests make.
inline constexpr char kPrinterFiscal[] = "F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC";
inline constexpr char kCStringBuffer[] = "A704A2B7-2252-4DF2-B09A-7A534DAD3BD7";
inline constexpr char kResumenZ[] = "77EEFE1C-CBDD-45C0-A930-F12420291E68";
inline constexpr char kLfQuickView[] = "B9F4FDFD-3E73-4EC8-BB86-5F05E5E51C18";

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

// Invokes `name` with `flags` and the arguments in the order a host writes them; a
// property put passes the last one as the value. Returns the HRESULT of Invoke; the
// description of a raised error goes to `error` when given.
HRESULT CallByName(IDispatch* object, const std::string& name, WORD flags,
                   std::vector<VARIANT> arguments, VARIANT* result, std::string* error = nullptr);

// The outcome of a method call: "S_OK", or the description of the raised error.
std::string Call(IDispatch* object, const std::string& member, std::vector<VARIANT> arguments = {});
// The object a method returns, with the reference the host now holds; null on failure.
IDispatch* ObjectFrom(IDispatch* object, const std::string& member,
                      std::vector<VARIANT> arguments = {});

VARIANT Object(IDispatch* object);

// ORV.ini in the current folder, where a session reads its settings when it is made.
class SettingsFile {
  public:
    explicit SettingsFile(const std::string& lines);
    ~SettingsFile();
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;
};

// A host's own object: answers IUnknown, IDispatch and `also` (so it may claim one of the
// server's interfaces), counts its references and records every call it gets. Its one
// member, found by name, is ReportClicked (DISPID 7).
class HostObject : public IDispatch {
  public:
    explicit HostObject(const IID& also = IID_IDispatch) : also_(also) {}
    virtual ~HostObject() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    // Records the call; sets a by-reference cancel to True when `set_cancel`, and raises an
    // error of its own when `fail`.
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*,
                        EXCEPINFO* excepinfo, UINT*) override;

    ULONG references() const { return references_; }

    // Each call as "DISPID|line|column|VARTYPE of the third argument (0 when none came)".
    std::vector<std::wstring> calls;
    bool set_cancel = false;
    bool fail = false;

  private:
    IID also_;
    ULONG references_ = 1;
};

}  // namespace corvid::registration
