#include "registration/late_bound_click_target.h"

#include <dispex.h>
#include <oleauto.h>

#include "registration/bstr_text.h"

namespace corvid::registration {
namespace {

// Script objects (a VBScript class instance, say) may answer names only through
// IDispatchEx, as Wine's do: ask there first, then through IDispatch.
DISPID MemberId(IDispatch* host_object, IDispatchEx** extended) {
    wchar_t name[] = L"ReportClicked";
    DISPID member = DISPID_UNKNOWN;
    if (SUCCEEDED(host_object->QueryInterface(__uuidof(IDispatchEx),
                                              reinterpret_cast<void**>(extended)))) {
        BSTR text = SysAllocString(name);
        const HRESULT hr = (*extended)->GetDispID(text, fdexNameCaseInsensitive, &member);
        SysFreeString(text);
        if (SUCCEEDED(hr)) return member;
        (*extended)->Release();
        *extended = nullptr;
    }
    LPOLESTR names[] = {name};
    if (FAILED(host_object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member))) {
        return DISPID_UNKNOWN;
    }
    return member;
}

void CallReportClicked(IDispatch* host_object, const std::string& line, std::int32_t column) {
    IDispatchEx* extended = nullptr;
    const DISPID member = MemberId(host_object, &extended);
    if (member == DISPID_UNKNOWN) return;
    VARIANT arguments[2];  // the last argument first
    VariantInit(&arguments[0]);
    arguments[0].vt = VT_I4;
    arguments[0].lVal = column;
    VariantInit(&arguments[1]);
    arguments[1].vt = VT_BSTR;
    arguments[1].bstrVal = BstrFromBytes(line);
    DISPPARAMS params{arguments, nullptr, 2, 0};
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO excepinfo{};
    if (extended != nullptr) {
        extended->InvokeEx(member, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result,
                           &excepinfo, nullptr);
        extended->Release();
    } else {
        UINT arg_error = 0;
        host_object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params,
                            &result, &excepinfo, &arg_error);
    }
    VariantClear(&result);
    VariantClear(&arguments[1]);
    SysFreeString(excepinfo.bstrSource);
    SysFreeString(excepinfo.bstrDescription);
    SysFreeString(excepinfo.bstrHelpFile);
}

}  // namespace

void LateBoundClickTarget::ReportClicked(const std::string& line, std::int32_t column) {
    // The host may replace its target (and so drop this one) from inside the call: the
    // call runs on its own reference and touches nothing of this object afterwards.
    IDispatch* host_object = host_object_.Share();
    if (host_object == nullptr) return;
    try {
        CallReportClicked(host_object, line, column);
    } catch (...) {
        // Out of memory building the text: the host is simply not told.
    }
    host_object->Release();
}

}  // namespace corvid::registration
