#include "registration/host_error.h"

#include <oleauto.h>

#include <exception>
#include <new>

#include "registration/bstr_text.h"

namespace corvid::registration {

HRESULT ScodeFromErrorNumber(std::int32_t number) {
    if (number >= 1 && number <= 0xFFFF) {
        return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<unsigned>(number));
    }
    return static_cast<HRESULT>(number);
}

HostError HostErrorFrom(const automation::VbError& error, const std::string& fallback_source) {
    HostError host;
    host.scode = ScodeFromErrorNumber(error.number());
    host.source = WideFromBytes(error.source().empty() ? fallback_source : error.source());
    host.description =
        WideFromBytes(error.description().empty() ? automation::StandardDescription(error.number())
                                                  : error.description());
    return host;
}

HostError HostErrorFromCurrentException(const std::string& fallback_source) {
    try {
        try {
            throw;
        } catch (const automation::VbError& error) {
            return HostErrorFrom(error, fallback_source);
        } catch (const std::bad_alloc&) {
            return HostError{E_OUTOFMEMORY, WideFromBytes(fallback_source), L"Out of memory"};
        } catch (const std::exception& error) {
            return HostError{E_UNEXPECTED, WideFromBytes(fallback_source),
                             WideFromBytes(error.what())};
        } catch (...) {
            return HostError{E_UNEXPECTED, WideFromBytes(fallback_source), L"Unexpected error"};
        }
    } catch (...) {
        // Building the message itself failed (out of memory).
        return HostError{E_OUTOFMEMORY, {}, {}};
    }
}

void PublishErrorInfo(const HostError& error, REFIID iid) {
    ICreateErrorInfo* create = nullptr;
    if (FAILED(CreateErrorInfo(&create))) return;
    create->SetGUID(iid);
    create->SetSource(const_cast<LPOLESTR>(error.source.c_str()));
    create->SetDescription(const_cast<LPOLESTR>(error.description.c_str()));
    IErrorInfo* info = nullptr;
    if (SUCCEEDED(create->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
        SetErrorInfo(0, info);
        info->Release();
    }
    create->Release();
}

void FillExcepInfo(const HostError& error, EXCEPINFO* excepinfo) {
    if (excepinfo == nullptr) return;
    SysFreeString(excepinfo->bstrSource);
    SysFreeString(excepinfo->bstrDescription);
    SysFreeString(excepinfo->bstrHelpFile);
    *excepinfo = EXCEPINFO{};
    excepinfo->scode = error.scode;
    excepinfo->bstrSource =
        SysAllocStringLen(error.source.data(), static_cast<UINT>(error.source.size()));
    excepinfo->bstrDescription =
        SysAllocStringLen(error.description.data(), static_cast<UINT>(error.description.size()));
}

}  // namespace corvid::registration
