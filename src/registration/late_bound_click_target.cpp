#include "registration/late_bound_click_target.h"

#include <oleauto.h>

#include "registration/bstr_text.h"

namespace corvid::registration {
namespace {

void CallReportClicked(IDispatch* host_object, const std::string& line, std::int32_t column) {
    wchar_t name[] = L"ReportClicked";
    LPOLESTR names[] = {name};
    DISPID member = DISPID_UNKNOWN;
    if (FAILED(host_object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member))) {
        return;
    }
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
    UINT arg_error = 0;
    host_object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result,
                        &excepinfo, &arg_error);
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
